// SPDX-License-Identifier: MIT
// Responses of a CIM server in CIM-XML, for tests of clients.
// Any thread.
#pragma once

#include <string>

/// A message with `content` in its SIMPLERSP.
inline std::string answerAround(const std::string& content) {
    return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP>" +
           content + "</SIMPLERSP></MESSAGE></CIM>";
}

/// The response of an operation with `content` as its return value. The operation's name is "X".
inline std::string results(const std::string& content) {
    return answerAround("<IMETHODRESPONSE NAME=\"X\"><IRETURNVALUE>" + content +
                        "</IRETURNVALUE></IMETHODRESPONSE>");
}

/// The response of a method with `content`: return value and out-parameters.
inline std::string methodAnswer(const std::string& method, const std::string& content) {
    return answerAround("<METHODRESPONSE NAME=\"" + method + "\">" + content + "</METHODRESPONSE>");
}

/// An instance of class A and its name; the key "b" is "c " in the instance and "c" in the name.
constexpr char instanceElement[] =
    "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"b\" TYPE=\"string\"><VALUE>c&#32;</VALUE>"
    "</PROPERTY></INSTANCE>";
constexpr char instanceNameElement[] =
    "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"string\">c"
    "</KEYVALUE></KEYBINDING></INSTANCENAME>";

/// Both, as enumerations return them.
inline std::string namedInstanceElement() {
    return std::string("<VALUE.NAMEDINSTANCE>") + instanceNameElement + instanceElement +
           "</VALUE.NAMEDINSTANCE>";
}
