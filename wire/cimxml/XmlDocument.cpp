// SPDX-License-Identifier: MIT
#include "wire/cimxml/XmlDocument.h"

#include <algorithm>
#include <utility>

#include "wire/cimxml/XmlError.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";

std::string_view withoutLeadingSpace(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
    return text;
}

std::string_view withoutTrailingSpace(std::string_view text) {
    return text.substr(0, text.find_last_not_of(whiteSpace) + 1);
}

}  // namespace

std::optional<std::string> XmlElement::attribute(const char* name) const {
    const pugi::xml_attribute found = node_.attribute(name);
    if (found.empty()) {
        return std::nullopt;
    }
    std::string value;
    appendDecoded(value, found.value());
    return value;
}

std::string XmlElement::text() const {
    std::string text;
    bool first = true;
    for (pugi::xml_node part = node_.first_child(); !part.empty();) {
        const pugi::xml_node following = part.next_sibling();
        if (part.type() == pugi::node_cdata) {
            text += part.value();
        } else if (part.type() == pugi::node_pcdata) {
            std::string_view raw = part.value();
            if (first) {
                raw = withoutLeadingSpace(raw);
            }
            if (following.empty()) {
                raw = withoutTrailingSpace(raw);
            }
            appendDecoded(text, raw);
        }
        first = false;
        part = following;
    }
    return text;
}

XmlDocument::XmlDocument(std::string text, const XmlLimits& limits) : text_(std::move(text)) {
    scanXml(text_, limits);
    // References stay as written: only then does a space written as one differ from white space.
    const pugi::xml_parse_result result = document_.load_buffer_inplace(
        text_.data(), text_.size(), pugi::parse_cdata, pugi::encoding_utf8);
    if (!result) {
        throw XmlError(XmlFault::notWellFormed, result.description());
    }
}

}  // namespace wire
