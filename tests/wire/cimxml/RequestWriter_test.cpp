// SPDX-License-Identifier: MIT
#include "wire/cimxml/RequestWriter.h"

#include <gtest/gtest.h>

#include "wire/cimxml/CimRequest.h"
#include "wire/cimxml/StringConversion.h"

using namespace wire;
using Pegasus::CIMObjectPath;
using Pegasus::String;

namespace {

const Pegasus::CIMNamespaceName nameSpace("root/x");

std::string withoutLineEnds(const std::string& text) {
    std::string line;
    for (const char c : text) {
        line += c == '\n' ? std::string() : std::string(1, c);
    }
    return line;
}

}  // namespace

TEST(RequestWriter, writesEachParameter) {
    OperationRequestWriter writer("1", "Associators", nameSpace);
    writer.instanceName("ObjectName", CIMObjectPath(String("//h/root/y:A.b=1")));
    writer.className("AssocClass", Pegasus::CIMName("B"));
    writer.text("Role", "<r>");
    writer.boolean("LocalOnly", false);
    Pegasus::Array<Pegasus::CIMName> names;
    names.append("P");
    writer.propertyList(Pegasus::CIMPropertyList(names));
    EXPECT_EQ(withoutLineEnds(writer.finish()),
              "<?xml version=\"1.0\" encoding=\"utf-8\" ?><CIM CIMVERSION=\"2.0\" "
              "DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
              "<IMETHODCALL NAME=\"Associators\"><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
              "<NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH><IPARAMVALUE NAME=\"ObjectName\">"
              "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\">"
              "<KEYVALUE VALUETYPE=\"numeric\">1</KEYVALUE></KEYBINDING></INSTANCENAME>"
              "</IPARAMVALUE><IPARAMVALUE NAME=\"AssocClass\"><CLASSNAME NAME=\"B\"/></IPARAMVALUE>"
              "<IPARAMVALUE NAME=\"Role\"><VALUE>&lt;r&gt;</VALUE></IPARAMVALUE>"
              "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
              "<IPARAMVALUE NAME=\"PropertyList\"><VALUE.ARRAY><VALUE>P</VALUE></VALUE.ARRAY>"
              "</IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>");
}

TEST(RequestWriter, leavesOutWhatIsNull) {
    OperationRequestWriter writer("1", "X", nameSpace);
    writer.className("AssocClass", Pegasus::CIMName());
    writer.text("Role", String());
    writer.propertyList(Pegasus::CIMPropertyList());
    const XmlDocument document(writer.finish());
    EXPECT_TRUE(readRequest(document).intrinsicParameters.empty());
}

TEST(RequestWriter, anEmptyPropertyListIsNotNull) {
    OperationRequestWriter writer("1", "X", nameSpace);
    writer.propertyList(Pegasus::CIMPropertyList(Pegasus::Array<Pegasus::CIMName>()));
    const XmlDocument document(writer.finish());
    EXPECT_EQ(readRequest(document).intrinsicParameters.size(), 1U);
}

TEST(RequestWriter, methodsAreReadAsWritten) {
    Pegasus::Array<Pegasus::CIMParamValue> parameters;
    parameters.append(Pegasus::CIMParamValue("N", Pegasus::CIMValue(Pegasus::Uint16(7))));
    parameters.append(Pegasus::CIMParamValue("S", Pegasus::CIMValue(String(" 7 ")), false));
    const XmlDocument document(writeMethodRequest(
        "m<1>", "Run", nameSpace, CIMObjectPath(String("//h/root/y:A.b=\"c\"")), parameters));
    const CimRequest request = readRequest(document);
    EXPECT_EQ(request.messageId, "m<1>");
    EXPECT_EQ(request.method, "Run");
    EXPECT_EQ(toUtf8(request.object.toString()), "root/x:A.b=\"c\"")
        << "the namespace of the request, not of the path";
    ASSERT_EQ(request.parameters.size(), 2U);
    EXPECT_TRUE(request.parameters[0].isTyped());
    EXPECT_EQ(request.parameters[0].getValue(), Pegasus::CIMValue(Pegasus::Uint16(7)));
    EXPECT_FALSE(request.parameters[1].isTyped());
    EXPECT_EQ(request.parameters[1].getValue(), Pegasus::CIMValue(String(" 7 ")));
}

TEST(RequestWriter, aPathWithoutKeysIsAClass) {
    const XmlDocument document(writeMethodRequest("1", "Run", nameSpace, CIMObjectPath(String("A")),
                                                  Pegasus::Array<Pegasus::CIMParamValue>()));
    EXPECT_EQ(toUtf8(readRequest(document).object.toString()), "root/x:A");
}
