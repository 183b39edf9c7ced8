// SPDX-License-Identifier: MIT
#include "wire/cimxml/Message.h"

#include "wire/cimxml/ObjectReader.h"
#include "wire/cimxml/XmlError.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

namespace {

/// Fails unless an attribute holds a version 2 with any minor number.
void checkVersion(XmlElement element, const char* attribute, XmlFault fault) {
    constexpr std::string_view major = "2.";
    const std::string version = requiredAttribute(element, attribute);
    if (version.compare(0, major.size(), major) != 0) {
        throw XmlError(fault, std::string(attribute) + " \"" + version + "\" is not supported");
    }
}

}  // namespace

XmlElement readMessage(XmlElement root) {
    expectElement(root, "CIM");
    checkVersion(root, "CIMVERSION", XmlFault::unsupportedCimVersion);
    checkVersion(root, "DTDVERSION", XmlFault::unsupportedDtdVersion);
    return expectElement(root.firstChild(), "MESSAGE");
}

void beginMessage(std::string& out, std::string_view messageId) {
    out +=
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
        "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
        "<MESSAGE";
    appendAttribute(out, "ID", messageId);
    out += " PROTOCOLVERSION=\"1.0\">\n";
}

void endMessage(std::string& out) {
    out += "</MESSAGE>\n</CIM>\n";
}

}  // namespace wire
