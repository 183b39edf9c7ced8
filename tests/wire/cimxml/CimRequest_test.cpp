// SPDX-License-Identifier: MIT
#include "wire/cimxml/CimRequest.h"

#include <gtest/gtest.h>

#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"

using namespace wire;

namespace {

std::string message(const std::string& content) {
    return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"7\" PROTOCOLVERSION=\"1.0\">" +
           content + "</MESSAGE></CIM>";
}

std::string simple(const std::string& content) {
    return message("<SIMPLEREQ>" + content + "</SIMPLEREQ>");
}

const std::string localNamespace =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH>";

void expectFault(const std::string& text, XmlFault fault, const std::string& what) {
    const XmlDocument document(text);
    try {
        readRequest(document);
        FAIL() << text;
    } catch (const XmlError& error) {
        EXPECT_EQ(error.fault(), fault);
        EXPECT_EQ(error.what(), what);
    }
}

}  // namespace

TEST(CimRequest, readsOperations) {
    const XmlDocument document(simple("<IMETHODCALL NAME=\"GetInstance\">" + localNamespace +
                                      "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>TRUE</VALUE>"
                                      "</IPARAMVALUE><IPARAMVALUE NAME=\"X\"/></IMETHODCALL>"));
    const CimRequest request = readRequest(document);
    EXPECT_EQ(request.messageId, "7");
    EXPECT_EQ(request.protocolVersion, "1.0");
    EXPECT_TRUE(request.intrinsic);
    EXPECT_EQ(request.method, "GetInstance");
    EXPECT_EQ(toUtf8(request.nameSpace.getString()), "root/x");
    ASSERT_EQ(request.intrinsicParameters.size(), 2U);
    EXPECT_EQ(request.intrinsicParameters[0].name, "LocalOnly");
    EXPECT_EQ(request.intrinsicParameters[1].name, "X");
}

TEST(CimRequest, readsMethodsOfInstances) {
    const XmlDocument document(
        simple("<METHODCALL NAME=\"Run\"><LOCALINSTANCEPATH>" + localNamespace +
               "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE>c</KEYVALUE>"
               "</KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH>"
               "<PARAMVALUE NAME=\"P\"><VALUE>1</VALUE></PARAMVALUE></METHODCALL>"));
    const CimRequest request = readRequest(document);
    EXPECT_FALSE(request.intrinsic);
    EXPECT_EQ(request.method, "Run");
    EXPECT_EQ(toUtf8(request.object.toString()), "root/x:A.b=\"c\"");
    EXPECT_EQ(toUtf8(request.nameSpace.getString()), "root/x");
    EXPECT_EQ(request.parameters.size(), 1U);
}

TEST(CimRequest, readsMethodsOfClasses) {
    const XmlDocument document(simple("<METHODCALL NAME=\"Run\"><LOCALCLASSPATH>" + localNamespace +
                                      "<CLASSNAME NAME=\"A\"/></LOCALCLASSPATH></METHODCALL>"));
    EXPECT_EQ(toUtf8(readRequest(document).object.toString()), "root/x:A");
}

TEST(CimRequest, passesOverCorrelators) {
    const XmlDocument document(
        simple("<CORRELATOR NAME=\"c\" TYPE=\"string\"><VALUE/></CORRELATOR>"
               "<IMETHODCALL NAME=\"X\">" +
               localNamespace + "</IMETHODCALL>"));
    EXPECT_EQ(readRequest(document).method, "X");
}

TEST(CimRequest, refusesBatches) {
    expectFault(message("<MULTIREQ/>"), XmlFault::multipleRequests,
                "several requests in one message");
}

TEST(CimRequest, saysWhatIsMissing) {
    expectFault(message(""), XmlFault::notValid, "the element \"SIMPLEREQ\" is missing");
    expectFault(simple(""), XmlFault::notValid,
                "element \"SIMPLEREQ\": one method call is expected inside");
    expectFault(simple("<EXPMETHODCALL NAME=\"X\"/>"), XmlFault::notValid,
                "element \"SIMPLEREQ\": one method call is expected inside");
    expectFault(
        simple("<IMETHODCALL NAME=\"X\">" + localNamespace +
               "</IMETHODCALL><IMETHODCALL NAME=\"X\">" + localNamespace + "</IMETHODCALL>"),
        XmlFault::notValid, "element \"SIMPLEREQ\": one method call is expected inside");
    expectFault(simple("<IMETHODCALL NAME=\"X\"/>"), XmlFault::notValid,
                "the element \"LOCALNAMESPACEPATH\" is missing");
    expectFault(simple("<IMETHODCALL>" + localNamespace + "</IMETHODCALL>"), XmlFault::notValid,
                "element \"IMETHODCALL\": its attribute \"NAME\" is missing");
    expectFault(simple("<IMETHODCALL NAME=\"X\">" + localNamespace + "<VALUE/></IMETHODCALL>"),
                XmlFault::notValid, "element \"VALUE\": \"IPARAMVALUE\" is expected in its place");
    expectFault(simple("<METHODCALL NAME=\"Run\"/>"), XmlFault::notValid,
                "element \"METHODCALL\": the local path of an instance or class is expected first");
    expectFault(simple("<METHODCALL NAME=\"Run\"><INSTANCENAME CLASSNAME=\"A\"/></METHODCALL>"),
                XmlFault::notValid,
                "element \"METHODCALL\": the local path of an instance or class is expected first");
    expectFault(simple("<METHODCALL NAME=\"a b\"/>"), XmlFault::notValid,
                "element \"METHODCALL\": its attribute \"NAME\" is not a CIM name: \"a b\"");
}
