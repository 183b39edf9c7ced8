// SPDX-License-Identifier: MIT
// Answers of a CIM server as text, for tests of clients.
#pragma once

#include <string>

/// A whole message around what stands in SIMPLERSP.
inline std::string answerAround(const std::string& content) {
    return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP>" +
           content + "</SIMPLERSP></MESSAGE></CIM>";
}

/// What an operation returns; its name is not looked at.
inline std::string results(const std::string& content) {
    return answerAround("<IMETHODRESPONSE NAME=\"X\"><IRETURNVALUE>" + content +
                        "</IRETURNVALUE></IMETHODRESPONSE>");
}

/// What a method answers: return value and out-parameters.
inline std::string methodAnswer(const std::string& method, const std::string& content) {
    return answerAround("<METHODRESPONSE NAME=\"" + method + "\">" + content + "</METHODRESPONSE>");
}

/// An instance of class A and its name: its key "b" is "c " and "c".
constexpr char instanceElement[] =
    "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"b\" TYPE=\"string\"><VALUE>c&#32;</VALUE>"
    "</PROPERTY></INSTANCE>";
constexpr char instanceNameElement[] =
    "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"string\">c"
    "</KEYVALUE></KEYBINDING></INSTANCENAME>";

/// The two as enumerations return them.
inline std::string namedInstanceElement() {
    return std::string("<VALUE.NAMEDINSTANCE>") + instanceNameElement + instanceElement +
           "</VALUE.NAMEDINSTANCE>";
}
