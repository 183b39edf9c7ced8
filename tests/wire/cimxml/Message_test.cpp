// SPDX-License-Identifier: MIT
#include "wire/cimxml/Message.h"

#include <gtest/gtest.h>

#include "wire/cimxml/XmlError.h"

using namespace wire;

namespace {

std::string message(const std::string& cimVersion, const std::string& dtdVersion) {
    return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"" + cimVersion + "\" DTDVERSION=\"" +
           dtdVersion + "\"><MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"/></CIM>";
}

void expectFault(const std::string& text, XmlFault fault, const std::string& what) {
    const XmlDocument document(text);
    try {
        readMessage(document.root());
        FAIL() << text;
    } catch (const XmlError& error) {
        EXPECT_EQ(error.fault(), fault);
        EXPECT_EQ(error.what(), what);
    }
}

}  // namespace

TEST(Message, writesWhatItReads) {
    std::string text;
    beginMessage(text, "any \"text\" & more");
    endMessage(text);
    const XmlDocument document(text);
    EXPECT_EQ(readMessage(document.root()).attribute("ID"), "any \"text\" & more");
    EXPECT_EQ(readMessage(document.root()).attribute("PROTOCOLVERSION"), "1.0");
}

TEST(Message, takesEveryVersion2) {
    const XmlDocument document(message("2.3", "2.4"));
    EXPECT_EQ(readMessage(document.root()).name(), "MESSAGE");
}

TEST(Message, refusesOtherVersions) {
    expectFault(message("3.0", "2.0"), XmlFault::unsupportedCimVersion,
                "CIMVERSION \"3.0\" is not supported");
    expectFault(message("2.0", "9.0"), XmlFault::unsupportedDtdVersion,
                "DTDVERSION \"9.0\" is not supported");
    expectFault(message("20.0", "2.0"), XmlFault::unsupportedCimVersion,
                "CIMVERSION \"20.0\" is not supported");
}

TEST(Message, refusesOtherDocuments) {
    expectFault("<?xml version=\"1.0\"?><FOO/>", XmlFault::notValid,
                "element \"FOO\": \"CIM\" is expected in its place");
    expectFault("<?xml version=\"1.0\"?><CIM DTDVERSION=\"2.0\"/>", XmlFault::notValid,
                "element \"CIM\": its attribute \"CIMVERSION\" is missing");
    expectFault("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"/>",
                XmlFault::notValid, "the element \"MESSAGE\" is missing");
}
