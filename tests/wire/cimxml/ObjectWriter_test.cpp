// SPDX-License-Identifier: MIT
#include "wire/cimxml/ObjectWriter.h"

#include <Pegasus/Common/Array.h>
#include <gtest/gtest.h>

using namespace wire;
using Pegasus::Array;
using Pegasus::CIMKeyBinding;
using Pegasus::CIMName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMProperty;
using Pegasus::CIMValue;
using Pegasus::String;

namespace {

/// What `write` appends, on one line.
template <typename Write>
std::string written(Write write, bool classOrigin = false) {
    std::string out;
    ObjectWriter writer(out, classOrigin);
    write(writer);
    std::string line;
    for (const char c : out) {
        line += c == '\n' ? std::string() : std::string(1, c);
    }
    return line;
}

std::string writtenValue(const CIMValue& value) {
    return written([&](ObjectWriter& writer) { writer.value(value); });
}

std::string writtenProperty(const CIMProperty& property, bool classOrigin = false) {
    return written([&](ObjectWriter& writer) { writer.property(property); }, classOrigin);
}

std::string writtenReference(const char* path) {
    return written([&](ObjectWriter& writer) { writer.reference(CIMObjectPath(String(path))); });
}

const std::string instanceName =
    "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"string\">c"
    "</KEYVALUE></KEYBINDING></INSTANCENAME>";
const std::string localNamespace =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH>";
const std::string namespacePath =
    "<NAMESPACEPATH><HOST>h:1</HOST>" + localNamespace + "</NAMESPACEPATH>";

}  // namespace

TEST(ObjectWriter, writesNamespaces) {
    EXPECT_EQ(
        written([](ObjectWriter& w) { w.localNamespace(Pegasus::CIMNamespaceName("root/x")); }),
        localNamespace);
}

TEST(ObjectWriter, writesKeysOfEachType) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding("s", String(" text "), CIMKeyBinding::STRING));
    keys.append(CIMKeyBinding("n", String("42"), CIMKeyBinding::NUMERIC));
    keys.append(CIMKeyBinding("b", String("TRUE"), CIMKeyBinding::BOOLEAN));
    keys.append(CIMKeyBinding("r", CIMValue(CIMObjectPath(String("A.b=\"c\"")))));
    const CIMObjectPath path(String(), Pegasus::CIMNamespaceName(), "K", keys);
    const std::string text = written([&](ObjectWriter& w) { w.instanceName(path); });
    EXPECT_NE(text.find("<INSTANCENAME CLASSNAME=\"K\">"), std::string::npos);
    EXPECT_NE(text.find("<KEYBINDING NAME=\"s\"><KEYVALUE VALUETYPE=\"string\">&#32;text&#32;<"),
              std::string::npos);
    EXPECT_NE(text.find("<KEYBINDING NAME=\"n\"><KEYVALUE VALUETYPE=\"numeric\">42</KEYVALUE>"),
              std::string::npos);
    EXPECT_NE(text.find("<KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"boolean\">TRUE</KEYVALUE>"),
              std::string::npos);
    EXPECT_NE(text.find("<KEYBINDING NAME=\"r\"><VALUE.REFERENCE>" + instanceName +
                        "</VALUE.REFERENCE></KEYBINDING>"),
              std::string::npos)
        << text;
}

TEST(ObjectWriter, writesReferencesAsFarAsTheyGo) {
    EXPECT_EQ(writtenReference("A.b=\"c\""),
              "<VALUE.REFERENCE>" + instanceName + "</VALUE.REFERENCE>");
    EXPECT_EQ(writtenReference("root/x:A.b=\"c\""), "<VALUE.REFERENCE><LOCALINSTANCEPATH>" +
                                                        localNamespace + instanceName +
                                                        "</LOCALINSTANCEPATH></VALUE.REFERENCE>");
    EXPECT_EQ(writtenReference("//h:1/root/x:A.b=\"c\""), "<VALUE.REFERENCE><INSTANCEPATH>" +
                                                              namespacePath + instanceName +
                                                              "</INSTANCEPATH></VALUE.REFERENCE>");
}

TEST(ObjectWriter, writesPathsOfInstancesAndClasses) {
    const CIMObjectPath path(String("//h:1/root/x:A.b=\"c\""));
    EXPECT_EQ(written([&](ObjectWriter& w) { w.objectPath(path); }),
              "<OBJECTPATH><INSTANCEPATH>" + namespacePath + instanceName +
                  "</INSTANCEPATH></OBJECTPATH>");
    EXPECT_EQ(written([&](ObjectWriter& w) { w.classObjectPath(path); }),
              "<OBJECTPATH><CLASSPATH>" + namespacePath +
                  "<CLASSNAME NAME=\"A\"/></CLASSPATH></OBJECTPATH>");
    EXPECT_EQ(written([&](ObjectWriter& w) {
                  w.localClassPath(Pegasus::CIMNamespaceName("root/x"), "A");
              }),
              "<LOCALCLASSPATH>" + localNamespace + "<CLASSNAME NAME=\"A\"/></LOCALCLASSPATH>");
}

TEST(ObjectWriter, writesScalars) {
    EXPECT_EQ(writtenValue(CIMValue(Pegasus::Uint16(7))), "<VALUE>7</VALUE>");
    EXPECT_EQ(writtenValue(CIMValue(true)), "<VALUE>TRUE</VALUE>");
    EXPECT_EQ(writtenValue(CIMValue(String("<a>"))), "<VALUE>&lt;a&gt;</VALUE>");
    EXPECT_EQ(writtenValue(CIMValue(String())), "<VALUE></VALUE>") << "empty, not null";
    EXPECT_EQ(writtenValue(CIMValue(Pegasus::CIMTYPE_STRING, false)), "") << "null";
}

TEST(ObjectWriter, writesArrays) {
    Array<Pegasus::Uint16> numbers;
    EXPECT_EQ(writtenValue(CIMValue(numbers)), "<VALUE.ARRAY></VALUE.ARRAY>") << "empty, not null";
    numbers.append(1);
    numbers.append(2);
    EXPECT_EQ(writtenValue(CIMValue(numbers)),
              "<VALUE.ARRAY><VALUE>1</VALUE><VALUE>2</VALUE></VALUE.ARRAY>");
    EXPECT_EQ(writtenValue(CIMValue(Pegasus::CIMTYPE_UINT16, true)), "") << "null";
    Array<CIMObjectPath> paths;
    paths.append(CIMObjectPath(String("A.b=\"c\"")));
    EXPECT_EQ(writtenValue(CIMValue(paths)), "<VALUE.REFARRAY><VALUE.REFERENCE>" + instanceName +
                                                 "</VALUE.REFERENCE></VALUE.REFARRAY>");
    paths.append(CIMObjectPath(String("A.b=\"c\"")));
    EXPECT_EQ(writtenValue(CIMValue(paths)), "<VALUE.REFARRAY><VALUE.REFERENCE>" + instanceName +
                                                 "</VALUE.REFERENCE><VALUE.REFERENCE>" +
                                                 instanceName +
                                                 "</VALUE.REFERENCE></VALUE.REFARRAY>");
}

TEST(ObjectWriter, writesProperties) {
    EXPECT_EQ(writtenProperty(CIMProperty("P", CIMValue(Pegasus::Uint8(1)))),
              "<PROPERTY NAME=\"P\" TYPE=\"uint8\"><VALUE>1</VALUE></PROPERTY>");
    EXPECT_EQ(writtenProperty(CIMProperty("P", CIMValue(Pegasus::CIMTYPE_UINT8, false))),
              "<PROPERTY NAME=\"P\" TYPE=\"uint8\"></PROPERTY>");
    EXPECT_EQ(writtenProperty(CIMProperty("P", CIMValue(Pegasus::CIMTYPE_STRING, true))),
              "<PROPERTY.ARRAY NAME=\"P\" TYPE=\"string\"></PROPERTY.ARRAY>");
    EXPECT_EQ(writtenProperty(
                  CIMProperty("P", CIMValue(CIMObjectPath(String("A.b=\"c\""))), 0, CIMName("A"))),
              "<PROPERTY.REFERENCE NAME=\"P\" REFERENCECLASS=\"A\"><VALUE.REFERENCE>" +
                  instanceName + "</VALUE.REFERENCE></PROPERTY.REFERENCE>");
}

TEST(ObjectWriter, writesTheClassOriginWhereAskedTo) {
    const CIMProperty property("P", CIMValue(Pegasus::Uint8(1)), 0, CIMName(), CIMName("O"), true);
    EXPECT_EQ(
        writtenProperty(property, false),
        "<PROPERTY NAME=\"P\" TYPE=\"uint8\" PROPAGATED=\"true\"><VALUE>1</VALUE></PROPERTY>");
    EXPECT_EQ(writtenProperty(property, true),
              "<PROPERTY NAME=\"P\" TYPE=\"uint8\" CLASSORIGIN=\"O\" PROPAGATED=\"true\">"
              "<VALUE>1</VALUE></PROPERTY>");
}

TEST(ObjectWriter, writesInstances) {
    Pegasus::CIMInstance instance("A");
    instance.addProperty(CIMProperty("b", CIMValue(String("c"))));
    instance.setPath(CIMObjectPath(String("//h:1/root/x:A.b=\"c\"")));
    const std::string element =
        "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"b\" TYPE=\"string\"><VALUE>c</VALUE></PROPERTY>"
        "</INSTANCE>";
    EXPECT_EQ(written([&](ObjectWriter& w) { w.instance(instance); }), element);
    EXPECT_EQ(written([&](ObjectWriter& w) { w.namedInstance(instance); }),
              "<VALUE.NAMEDINSTANCE>" + instanceName + element + "</VALUE.NAMEDINSTANCE>");
    EXPECT_EQ(written([&](ObjectWriter& w) { w.objectWithPath(instance); }),
              "<VALUE.OBJECTWITHPATH><INSTANCEPATH>" + namespacePath + instanceName +
                  "</INSTANCEPATH>" + element + "</VALUE.OBJECTWITHPATH>");
}

TEST(ObjectWriter, anUninitializedInstanceIsAnError) {
    EXPECT_THROW(written([](ObjectWriter& w) { w.instance(Pegasus::CIMInstance()); }),
                 Pegasus::Exception);
}

TEST(ObjectWriter, writesParametersWithTheirTypeIfTheyHaveOne) {
    const auto parameter = [](const CIMValue& value, bool typed) {
        return written(
            [&](ObjectWriter& w) { w.paramValue(Pegasus::CIMParamValue("P", value, typed)); });
    };
    EXPECT_EQ(parameter(CIMValue(Pegasus::Uint16(7)), true),
              "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"uint16\"><VALUE>7</VALUE></PARAMVALUE>");
    EXPECT_EQ(parameter(CIMValue(String("7")), false),
              "<PARAMVALUE NAME=\"P\"><VALUE>7</VALUE></PARAMVALUE>");
    EXPECT_EQ(parameter(CIMValue(Pegasus::CIMTYPE_UINT16, true), true),
              "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"uint16\"></PARAMVALUE>");
}

TEST(ObjectWriter, writesReturnValues) {
    EXPECT_EQ(written([](ObjectWriter& w) { w.returnValue(CIMValue(Pegasus::Uint32(0))); }),
              "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>0</VALUE></RETURNVALUE>");
}
