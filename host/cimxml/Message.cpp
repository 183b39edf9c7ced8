// SPDX-License-Identifier: MIT
// What every CIM-XML message has around it.
#include "host/cimxml/Message.h"

#include "host/cimxml/ObjectReader.h"
#include "host/cimxml/XmlError.h"
#include "host/cimxml/XmlText.h"

namespace cimhost {

namespace {

/// Fails unless an attribute holds a version of the major number given: "2.0" for "2.".
void checkVersion(XmlElement element, const char* attribute, std::string_view major,
                  XmlFault fault) {
    const std::string version = requiredAttribute(element, attribute);
    if (version.compare(0, major.size(), major) != 0) {
        throw XmlError(fault, std::string(attribute) + " \"" + version + "\" is not supported");
    }
}

}  // namespace

XmlElement readMessage(XmlElement root) {
    expectElement(root, "CIM");
    checkVersion(root, "CIMVERSION", "2.", XmlFault::unsupportedCimVersion);
    checkVersion(root, "DTDVERSION", "2.", XmlFault::unsupportedDtdVersion);
    const XmlElement message = expectElement(root.firstChild(), "MESSAGE");
    checkVersion(message, "PROTOCOLVERSION", "1.", XmlFault::unsupportedProtocolVersion);
    return message;
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

}  // namespace cimhost
