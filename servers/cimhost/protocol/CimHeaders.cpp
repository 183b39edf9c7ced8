// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/CimHeaders.h"

#include <algorithm>

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include "base/Ascii.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"
#include "wire/http/PercentEncoding.h"

namespace cimhost {

namespace {

constexpr std::string_view extension = "http://www.dmtf.org/cim/mapping/http/v1.0";
constexpr std::string_view defaultNumber = "73";

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

[[noreturn]] void mismatch(std::string_view field, std::string_view given,
                           std::string_view expected) {
    throw RequestRefused(
        400, "header-mismatch",
        std::string(field) + " is " + quoted(given) + ", but the message has " + quoted(expected));
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view space = " \t";
    text.remove_prefix(std::min(text.find_first_not_of(space), text.size()));
    return text.substr(0, text.find_last_not_of(space) + 1);
}

/// The value of a parameter ("; name=value") after the first part of a field, without quotes.
std::optional<std::string_view> fieldParameter(std::string_view field, std::string_view name) {
    while (true) {
        const std::size_t semicolon = field.find(';');
        if (semicolon == std::string_view::npos) {
            return std::nullopt;
        }
        field.remove_prefix(semicolon + 1);
        const std::string_view parameter = field.substr(0, field.find(';'));
        const std::size_t equals = parameter.find('=');
        if (equals == std::string_view::npos ||
            !base::equalIgnoringCase(trimmed(parameter.substr(0, equals)), name)) {
            continue;
        }
        std::string_view value = trimmed(parameter.substr(equals + 1));
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
            value = value.substr(1, value.size() - 2);
        }
        return value;
    }
}

/// The number that a Man field gives to the fields of CIM operations.
std::string extensionNumber(const wire::HttpFields& fields) {
    const std::string man = wire::findField(fields, "Man").value_or("");
    const std::string_view number = fieldParameter(man, "ns").value_or("");
    constexpr std::size_t mostDigits = 9;
    const bool isNumber =
        !number.empty() && number.size() <= mostDigits && base::isAllDigits(number);
    return std::string(isNumber ? number : defaultNumber);
}

/// Whether the keys of two paths, which are sorted by their names, have the same names and values.
/// Their types are not compared: a path written as text does not tell every type, and the message
/// says it anyway.
bool sameKeys(const Pegasus::CIMObjectPath& left, const Pegasus::CIMObjectPath& right) {
    const auto& keys = left.getKeyBindings();
    const auto& others = right.getKeyBindings();
    const Pegasus::CIMKeyBinding* const begin = keys.getData();
    const Pegasus::CIMKeyBinding* const end = begin + keys.size();
    return keys.size() == others.size() &&
           std::equal(begin, end, others.getData(), [](const auto& key, const auto& other) {
               return key.getName().equal(other.getName()) && key.getValue() == other.getValue();
           });
}

/// Whether text names the object that a method is invoked on.
bool namesObject(const std::string& text, const Pegasus::CIMObjectPath& object) {
    try {
        const Pegasus::CIMObjectPath named(wire::fromUtf8(text));
        return named.getNameSpace().equal(object.getNameSpace()) &&
               named.getClassName().equal(object.getClassName()) && sameKeys(named, object);
    } catch (const Pegasus::Exception&) {
        return false;
    } catch (const wire::XmlError&) {
        return false;
    }
}

bool namesTarget(const std::string& text, const wire::CimRequest& request) {
    if (request.intrinsic) {
        return base::equalIgnoringCase(text, wire::toUtf8(request.nameSpace.getString()));
    }
    return namesObject(text, request.object);
}

std::string targetText(const wire::CimRequest& request) {
    return wire::toUtf8(request.intrinsic ? request.nameSpace.getString()
                                          : request.object.toString());
}

}  // namespace

CimHeaders::CimHeaders(const wire::HttpFields& fields, bool extended)
    : fields_(fields), extended_(extended) {
    if (extended) {
        prefix_ = extensionNumber(fields) + "-";
    }
}

std::optional<std::string> CimHeaders::find(std::string_view name) const {
    if (!prefix_.empty()) {
        if (auto value = wire::findField(fields_, prefix_ + std::string(name))) {
            return value;
        }
    }
    return wire::findField(fields_, name);
}

std::string CimHeaders::require(std::string_view name) const {
    auto value = find(name);
    if (!value) {
        throw RequestRefused(400, "header-mismatch",
                             "the header field " + std::string(name) + " is missing");
    }
    return *std::move(value);
}

void CimHeaders::check(bool http10) const {
    if (!http10 && !wire::findField(fields_, "Host")) {
        throw RequestRefused(400, "", "the header field Host is missing");
    }
    if (!wire::findField(fields_, "Content-Length") &&
        !wire::findField(fields_, "Transfer-Encoding")) {
        throw RequestRefused(411, "", "the header field Content-Length is missing");
    }
    const auto operation = find("CIMOperation");
    if (!operation) {
        throw RequestRefused(400, "", "the header field CIMOperation is missing");
    }
    if (!base::equalIgnoringCase(*operation, "MethodCall")) {
        throw RequestRefused(400, "unsupported-operation",
                             "CIMOperation " + quoted(*operation) + " is not supported");
    }
    checkContentType();
    const std::string version = find("CIMProtocolVersion").value_or("1.0");
    if (version.compare(0, 2, "1.") != 0) {
        throw RequestRefused(501, "unsupported-protocol-version",
                             "CIMProtocolVersion " + quoted(version) + " is not supported");
    }
}

void CimHeaders::checkContentType() const {
    const std::string type = wire::findField(fields_, "Content-Type").value_or("");
    const std::string_view media = trimmed(std::string_view(type).substr(0, type.find(';')));
    if (!base::equalIgnoringCase(media, "application/xml") &&
        !base::equalIgnoringCase(media, "text/xml")) {
        throw RequestRefused(
            400, "", "Content-Type must be application/xml or text/xml, not " + quoted(type));
    }
    const std::string_view charset = fieldParameter(type, "charset").value_or("utf-8");
    if (!base::equalIgnoringCase(charset, "utf-8")) {
        throw RequestRefused(400, "", "the charset must be utf-8, not " + quoted(charset));
    }
}

void CimHeaders::checkAgainst(const wire::CimRequest& request) const {
    const std::string version = find("CIMProtocolVersion").value_or("1.0");
    if (version != request.protocolVersion) {
        mismatch("CIMProtocolVersion", version, request.protocolVersion);
    }
    const std::string method = require("CIMMethod");
    if (!base::equalIgnoringCase(wire::percentDecoded(method), request.method)) {
        mismatch("CIMMethod", method, request.method);
    }
    // Not all clients encode a percent sign of their own, so what was sent may be meant as it is.
    const std::string object = require("CIMObject");
    if (!namesTarget(wire::percentDecoded(object), request) && !namesTarget(object, request)) {
        mismatch("CIMObject", object, targetText(request));
    }
}

void CimHeaders::append(wire::HttpFields& answer, std::string_view name,
                        std::string_view value) const {
    answer.push_back({prefix_ + std::string(name), std::string(value)});
}

void CimHeaders::appendExtension(wire::HttpFields& answer) const {
    if (!extended_) {
        return;
    }
    answer.push_back({"Ext", ""});
    answer.push_back({"Cache-Control", "no-cache"});
    answer.push_back(
        {"Man", std::string(extension).append("; ns=").append(prefix_, 0, prefix_.size() - 1)});
}

}  // namespace cimhost
