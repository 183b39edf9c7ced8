// SPDX-License-Identifier: MIT
#include "tests/servers/cimhost/protocol/RecordedExchange.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

#include <pugixml.hpp>

#include "tests/support/RawConnection.h"
#include "wire/http/PercentEncoding.h"

namespace fs = std::filesystem;

namespace {

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void append(std::string& out, const pugi::xml_node& node) {
    if (node.type() != pugi::node_element) {
        const std::string text = node.value();
        if (text.find_first_not_of(" \r\n\t") != std::string::npos) {
            out += "  text " + text + "\n";
        }
        return;
    }
    std::map<std::string, std::string> attributes;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        attributes[attribute.name()] = attribute.value();
    }
    out += node.name();
    for (const auto& [name, value] : attributes) {
        out += " " + name + "=\"" + value + "\"";
    }
    out += "\n";
    for (const pugi::xml_node& child : node.children()) {
        append(out, child);
    }
    out += std::string("/") + node.name() + "\n";
}

/// Puts the error of a trailer where it stands in answers without one.
void insertError(pugi::xml_document& document, const std::string& trailer) {
    const std::string code = fieldOf("\r\n" + trailer, "CIMStatusCode");
    if (code.empty()) {
        return;
    }
    pugi::xml_node response =
        document.child("CIM").child("MESSAGE").child("SIMPLERSP").first_child();
    while (response.type() != pugi::node_element) {
        response = response.next_sibling();
    }
    pugi::xml_node error = response.append_child("ERROR");
    error.append_attribute("CODE") = code.c_str();
    const std::string text =
        wire::percentDecoded(fieldOf("\r\n" + trailer, "CIMStatusCodeDescription"));
    error.append_attribute("DESCRIPTION") = text.c_str();
}

}  // namespace

std::vector<RecordedExchange> recordedExchanges(const std::string& folder) {
    std::vector<RecordedExchange> exchanges;
    if (!fs::is_directory(folder)) {
        return exchanges;
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        const std::string file = entry.path().filename();
        const std::string kind = "request";
        if (file.compare(0, kind.size(), kind) != 0) {
            continue;
        }
        const std::string rest = file.substr(kind.size());  // ".http" or "-2.http"
        const std::string number = rest.substr(0, rest.find('.'));
        exchanges.push_back({entry.path().parent_path().filename().string() + number,
                             readFile(entry.path()),
                             readFile(entry.path().parent_path() / ("response" + rest))});
    }
    std::sort(exchanges.begin(), exchanges.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    return exchanges;
}

std::string wholeBody(const std::string& response, std::string& trailer) {
    const std::string body = bodyOf(response);
    if (fieldOf(response, "transfer-encoding") != "chunked") {
        return body;
    }
    std::string whole;
    std::size_t at = 0;
    while (true) {
        const std::size_t line = body.find("\r\n", at);
        if (line == std::string::npos) {
            throw std::runtime_error("a chunk without an end");
        }
        const std::size_t size = std::stoul(body.substr(at, line - at), nullptr, 16);
        at = line + 2;
        if (size == 0) {
            trailer = body.substr(at);
            return whole;
        }
        whole += body.substr(at, size);
        at += size + 2;
    }
}

ComparableResponse comparable(const std::string& response) {
    ComparableResponse result;
    result.status = statusOf(response);
    result.cimError = fieldOf(response, "CIMError");
    std::string trailer;
    const std::string body = wholeBody(response, trailer);
    if (result.status == 200) {
        pugi::xml_document document;
        const pugi::xml_parse_result parsed =
            document.load_buffer(body.data(), body.size(), pugi::parse_default);
        if (!parsed) {
            throw std::runtime_error(std::string("not XML: ") + parsed.description());
        }
        insertError(document, trailer);
        append(result.message, document.document_element());
    }
    return result;
}
