// SPDX-License-Identifier: MIT
#include "wire/cimxml/ObjectReader.h"

#include <Pegasus/Common/Array.h>
#include <gtest/gtest.h>

#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"

using namespace wire;
using Pegasus::CIMValue;
using Pegasus::String;

namespace {

/// A document of one element, and what is read from it.
class Source {
public:
    explicit Source(const std::string& element) : document_("<?xml version=\"1.0\"?>" + element) {}
    XmlElement element() const { return document_.root(); }

private:
    XmlDocument document_;
};

std::string path(const std::string& element) {
    return toUtf8(readPath(Source(element).element()).toString());
}

std::string key(const std::string& keyBinding) {
    return path("<INSTANCENAME CLASSNAME=\"A\">" + keyBinding + "</INSTANCENAME>");
}

template <typename Read>
std::string whatIsWrong(const std::string& element, Read read) {
    try {
        read(Source(element).element());
        return "nothing";
    } catch (const XmlError& error) {
        EXPECT_EQ(error.fault(), XmlFault::notValid);
        return error.what();
    }
}

std::string whatIsWrongWithPath(const std::string& element) {
    return whatIsWrong(element, readPath);
}
std::string whatIsWrongWithProperty(const std::string& element) {
    return whatIsWrong(element, readProperty);
}
std::string whatIsWrongWithParameter(const std::string& element) {
    return whatIsWrong(element, readParamValue);
}

Pegasus::CIMProperty property(const std::string& element) {
    return readProperty(Source(element).element());
}

Pegasus::CIMParamValue parameter(const std::string& element) {
    return readParamValue(Source(element).element());
}

/// A name with one key, which stands in that many references.
std::string nestedName(int references, const std::string& keyText) {
    std::string key = "<KEYVALUE>" + keyText + "</KEYVALUE>";
    const auto name = [](const std::string& inside) {
        return "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\">" + inside +
               "</KEYBINDING></INSTANCENAME>";
    };
    for (int i = 0; i < references; ++i) {
        key = "<VALUE.REFERENCE>" + name(key) + "</VALUE.REFERENCE>";
    }
    return name(key);
}

std::string instanceWith(Pegasus::Uint32 properties) {
    std::string instance = "<INSTANCE CLASSNAME=\"A\">";
    for (Pegasus::Uint32 i = 0; i < properties; ++i) {
        instance += "<PROPERTY NAME=\"p" + std::to_string(i) + "\" TYPE=\"uint8\"/>";
    }
    return instance + "</INSTANCE>";
}

const std::string instanceName =
    "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE>c</KEYVALUE></KEYBINDING>"
    "</INSTANCENAME>";
const std::string localNamespace =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH>";
const std::string namespacePath =
    "<NAMESPACEPATH><HOST>h</HOST>" + localNamespace + "</NAMESPACEPATH>";

}  // namespace

TEST(ObjectReader, readsEveryFormOfPath) {
    EXPECT_EQ(path(instanceName), "A.b=\"c\"");
    EXPECT_EQ(path("<LOCALINSTANCEPATH>" + localNamespace + instanceName + "</LOCALINSTANCEPATH>"),
              "root/x:A.b=\"c\"");
    EXPECT_EQ(path("<INSTANCEPATH>" + namespacePath + instanceName + "</INSTANCEPATH>"),
              "//h/root/x:A.b=\"c\"");
    EXPECT_EQ(path("<CLASSNAME NAME=\"A\"/>"), "A");
    EXPECT_EQ(
        path("<LOCALCLASSPATH>" + localNamespace + "<CLASSNAME NAME=\"A\"/></LOCALCLASSPATH>"),
        "root/x:A");
    EXPECT_EQ(path("<CLASSPATH>" + namespacePath + "<CLASSNAME NAME=\"A\"/></CLASSPATH>"),
              "//h/root/x:A");
    EXPECT_EQ(path("<INSTANCENAME CLASSNAME=\"A\"/>"), "A");
}

TEST(ObjectReader, readsKeysOfEachType) {
    EXPECT_EQ(
        key("<KEYBINDING NAME=\"k\"><KEYVALUE VALUETYPE=\"numeric\">42</KEYVALUE></KEYBINDING>"),
        "A.k=42");
    EXPECT_EQ(
        key("<KEYBINDING NAME=\"k\"><KEYVALUE VALUETYPE=\"boolean\">TRUE</KEYVALUE></KEYBINDING>"),
        "A.k=TRUE");
    EXPECT_EQ(
        key("<KEYBINDING NAME=\"k\"><KEYVALUE VALUETYPE=\"string\">42</KEYVALUE></KEYBINDING>"),
        "A.k=\"42\"");
    EXPECT_EQ(key("<KEYBINDING NAME=\"k\"><KEYVALUE>42</KEYVALUE></KEYBINDING>"), "A.k=\"42\"")
        << "without a type it is a string";
    EXPECT_EQ(key("<KEYBINDING NAME=\"k\"><VALUE.REFERENCE>" + instanceName +
                  "</VALUE.REFERENCE></KEYBINDING>"),
              "A.k=\"A.b=\\\"c\\\"\"");
    EXPECT_EQ(key("<KEYBINDING NAME=\"k\"><KEYVALUE> a&#32; </KEYVALUE></KEYBINDING>"),
              "A.k=\"a \"");
}

TEST(ObjectReader, saysWhatIsWrongWithAPath) {
    EXPECT_EQ(whatIsWrongWithPath("<FOO/>"),
              "element \"FOO\": \"INSTANCENAME\" is expected in its place");
    EXPECT_EQ(whatIsWrongWithPath("<INSTANCENAME CLASSNAME=\"not a name\"/>"),
              "element \"INSTANCENAME\": its attribute \"CLASSNAME\" is not a CIM name: "
              "\"not a name\"");
    EXPECT_EQ(whatIsWrongWithPath("<INSTANCENAME/>"),
              "element \"INSTANCENAME\": its attribute \"CLASSNAME\" is missing");
    EXPECT_EQ(
        whatIsWrongWithPath("<INSTANCENAME CLASSNAME=\"A\"><KEYVALUE>1</KEYVALUE></INSTANCENAME>"),
        "element \"KEYVALUE\": \"KEYBINDING\" is expected in its place");
    EXPECT_EQ(whatIsWrongWithPath(
                  "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"k\"/></INSTANCENAME>"),
              "element \"KEYBINDING\": exactly one element is expected inside");
    EXPECT_EQ(whatIsWrongWithPath("<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"k\"><KEYVALUE "
                                  "VALUETYPE=\"odd\">1</KEYVALUE></KEYBINDING></INSTANCENAME>"),
              "element \"KEYVALUE\": its VALUETYPE is unknown: \"odd\"");
    EXPECT_EQ(whatIsWrongWithPath("<LOCALINSTANCEPATH><LOCALNAMESPACEPATH/>" + instanceName +
                                  "</LOCALINSTANCEPATH>"),
              "element \"LOCALNAMESPACEPATH\": \"\" is not a namespace");
    EXPECT_EQ(whatIsWrongWithPath("<LOCALINSTANCEPATH>" + localNamespace + "</LOCALINSTANCEPATH>"),
              "the element \"INSTANCENAME\" is missing");
    EXPECT_EQ(
        whatIsWrongWithPath("<INSTANCEPATH>" + localNamespace + instanceName + "</INSTANCEPATH>"),
        "element \"LOCALNAMESPACEPATH\": \"NAMESPACEPATH\" is expected in its place");
}

TEST(ObjectReader, aHostThatIsNoneIsNotValid) {
    EXPECT_EQ(whatIsWrongWithPath("<CLASSPATH><NAMESPACEPATH><HOST>#demo</HOST>" + localNamespace +
                                  "</NAMESPACEPATH><CLASSNAME NAME=\"A\"/></CLASSPATH>"),
              "element \"HOST\": \"#demo\" is not the name of a host");
}

TEST(ObjectReader, readsProperties) {
    const Pegasus::CIMProperty number = property(
        "<PROPERTY NAME=\"P\" TYPE=\"uint16\" CLASSORIGIN=\"O\" PROPAGATED=\"true\">"
        "<QUALIFIER NAME=\"Q\" TYPE=\"boolean\"/><VALUE>7</VALUE></PROPERTY>");
    EXPECT_TRUE(number.getName().equal("P"));
    EXPECT_EQ(number.getValue(), CIMValue(Pegasus::Uint16(7)));
    EXPECT_TRUE(number.getClassOrigin().equal("O"));
    EXPECT_TRUE(number.getPropagated());

    const Pegasus::CIMProperty null = property("<PROPERTY NAME=\"P\" TYPE=\"uint16\"/>");
    EXPECT_TRUE(null.getValue().isNull());
    EXPECT_EQ(null.getType(), Pegasus::CIMTYPE_UINT16);

    const Pegasus::CIMProperty empty =
        property("<PROPERTY NAME=\"P\" TYPE=\"string\"><VALUE></VALUE></PROPERTY>");
    EXPECT_EQ(empty.getValue(), CIMValue(String()));
}

TEST(ObjectReader, readsArraysAndReferences) {
    const Pegasus::CIMProperty array = property(
        "<PROPERTY.ARRAY NAME=\"P\" TYPE=\"string\" ARRAYSIZE=\"2\"><VALUE.ARRAY><VALUE>a</VALUE>"
        "<VALUE> b c </VALUE></VALUE.ARRAY></PROPERTY.ARRAY>");
    Pegasus::Array<String> texts;
    array.getValue().get(texts);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[1], String("b c"));

    EXPECT_TRUE(property("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"string\"/>").getValue().isNull());
    EXPECT_TRUE(property("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"string\"/>").isArray());
    EXPECT_FALSE(
        property("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"string\"><VALUE.ARRAY/></PROPERTY.ARRAY>")
            .getValue()
            .isNull());

    const Pegasus::CIMProperty reference =
        property("<PROPERTY.REFERENCE NAME=\"P\" REFERENCECLASS=\"A\"><VALUE.REFERENCE>" +
                 instanceName + "</VALUE.REFERENCE></PROPERTY.REFERENCE>");
    EXPECT_EQ(reference.getType(), Pegasus::CIMTYPE_REFERENCE);
    EXPECT_TRUE(reference.getReferenceClassName().equal("A"));
}

TEST(ObjectReader, saysWhatIsWrongWithAProperty) {
    EXPECT_EQ(whatIsWrongWithProperty("<PROPERTY NAME=\"P\"><VALUE>7</VALUE></PROPERTY>"),
              "element \"PROPERTY\": its attribute \"TYPE\" is missing");
    EXPECT_EQ(whatIsWrongWithProperty("<PROPERTY NAME=\"P\" TYPE=\"int\"/>"),
              "element \"PROPERTY\": \"int\" is not a type");
    EXPECT_EQ(whatIsWrongWithProperty("<PROPERTY NAME=\"P\" TYPE=\"reference\"/>"),
              "element \"PROPERTY\": its TYPE cannot be \"reference\"");
    EXPECT_EQ(whatIsWrongWithProperty(
                  "<PROPERTY NAME=\"P\" TYPE=\"uint16\"><VALUE>70000</VALUE></PROPERTY>"),
              "element \"VALUE\": \"70000\" is not a valid uint16");
    EXPECT_EQ(whatIsWrongWithProperty("<PROPERTY NAME=\"P\" TYPE=\"uint16\"><VALUE>1</VALUE>"
                                      "<VALUE>2</VALUE></PROPERTY>"),
              "element \"PROPERTY\": more than one value is inside");
    EXPECT_EQ(
        whatIsWrongWithProperty("<PROPERTY NAME=\"P\" TYPE=\"uint16\"><VALUE.ARRAY/></PROPERTY>"),
        "element \"PROPERTY\": no array is expected");
    EXPECT_EQ(whatIsWrongWithProperty(
                  "<PROPERTY.ARRAY NAME=\"P\" TYPE=\"uint16\"><VALUE>1</VALUE></PROPERTY.ARRAY>"),
              "element \"PROPERTY.ARRAY\": an array is expected");
    EXPECT_EQ(whatIsWrongWithProperty("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"uint16\"><VALUE.ARRAY>"
                                      "<VALUE.NULL/></VALUE.ARRAY></PROPERTY.ARRAY>"),
              "element \"VALUE.NULL\": \"VALUE\" is expected in its place")
        << "elements of arrays cannot be null";
    EXPECT_EQ(whatIsWrongWithProperty(
                  "<PROPERTY NAME=\"P\" TYPE=\"string\"><VALUE><b/></VALUE></PROPERTY>"),
              "element \"VALUE\": no elements are expected inside");
    EXPECT_EQ(
        whatIsWrongWithProperty("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"uint16\" ARRAYSIZE=\"-1\"/>"),
        "element \"PROPERTY.ARRAY\": its ARRAYSIZE is wrong: \"-1\" is not a valid uint32");
    EXPECT_EQ(whatIsWrongWithProperty("<METHOD NAME=\"P\"/>"),
              "element \"METHOD\": \"PROPERTY\" is expected in its place");
}

TEST(ObjectReader, readsInstances) {
    const Source source("<VALUE.NAMEDINSTANCE>" + instanceName +
                        "<INSTANCE CLASSNAME=\"A\"><QUALIFIER NAME=\"Q\" TYPE=\"boolean\"/>"
                        "<PROPERTY NAME=\"b\" TYPE=\"string\"><VALUE>c</VALUE></PROPERTY>"
                        "</INSTANCE></VALUE.NAMEDINSTANCE>");
    const Pegasus::CIMInstance instance = readInstanceWithPath(source.element());
    EXPECT_EQ(instance.getPropertyCount(), 1U);
    EXPECT_EQ(toUtf8(instance.getPath().toString()), "A.b=\"c\"");
}

TEST(ObjectReader, saysWhatIsWrongWithAnInstance) {
    EXPECT_EQ(whatIsWrong("<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"b\" TYPE=\"string\"/>"
                          "<PROPERTY NAME=\"B\" TYPE=\"string\"/></INSTANCE>",
                          readInstance),
              "element \"INSTANCE\": the property \"B\" is given twice");
    EXPECT_EQ(
        whatIsWrong("<VALUE.NAMEDINSTANCE>" + instanceName +
                        "<INSTANCE CLASSNAME=\"Z\"/></VALUE.NAMEDINSTANCE>",
                    readInstanceWithPath),
        "element \"VALUE.NAMEDINSTANCE\": the name and the instance are of different classes");
    EXPECT_EQ(whatIsWrong("<VALUE.NAMEDINSTANCE/>", readInstanceWithPath),
              "element \"VALUE.NAMEDINSTANCE\": the name of the instance is missing");
}

TEST(ObjectReader, referencesNestEightDeepAndNoDeeper) {
    EXPECT_EQ(path(nestedName(1, "c")), "A.b=\"A.b=\\\"c\\\"\"");
    EXPECT_EQ(whatIsWrongWithPath(nestedName(8, "c")), "nothing");
    EXPECT_EQ(whatIsWrongWithPath(nestedName(9, "c")),
              "element \"VALUE.REFERENCE\": references are nested more than 8 deep");
    const auto parameterOf = [](int references) {
        return "<PARAMVALUE NAME=\"P\"><VALUE.REFERENCE>" + nestedName(references - 1, "c") +
               "</VALUE.REFERENCE></PARAMVALUE>";
    };
    EXPECT_EQ(whatIsWrongWithParameter(parameterOf(8)), "nothing");
    EXPECT_EQ(whatIsWrongWithParameter(parameterOf(9)),
              "element \"VALUE.REFERENCE\": references are nested more than 8 deep");
}

TEST(ObjectReader, aKeyHas4096CharactersAndNoMore) {
    EXPECT_EQ(whatIsWrongWithPath(nestedName(0, std::string(4096, 'x'))), "nothing");
    EXPECT_EQ(whatIsWrongWithPath(nestedName(0, std::string(4097, 'x'))),
              "element \"KEYVALUE\": its text is longer than 4096 characters");
}

TEST(ObjectReader, aPathHas8192CharactersAndNoMore) {
    const std::string tooLong = "element \"INSTANCENAME\": the path is longer than 8192 characters";
    const auto withKeys = [](int count, const std::string& tag) {
        std::string name = "<INSTANCENAME CLASSNAME=\"A\">";
        for (int i = 0; i < count; ++i) {
            name += "<KEYBINDING NAME=\"b\"><KEYVALUE>" + tag + "</KEYVALUE></KEYBINDING>";
        }
        return name + "</INSTANCENAME>";
    };
    const std::string text(1000, 'x');
    EXPECT_EQ(whatIsWrongWithPath(withKeys(8, text)), "nothing");
    EXPECT_EQ(whatIsWrongWithPath(withKeys(9, text)), tooLong);
    EXPECT_EQ(whatIsWrongWithPath(withKeys(1400, "")), "nothing");
    EXPECT_EQ(whatIsWrongWithPath(withKeys(1700, "")), tooLong);
    // Each reference doubles what stands before a quotation mark or a backslash.
    EXPECT_EQ(whatIsWrongWithPath(nestedName(5, std::string(100, '"'))), "nothing");
    EXPECT_EQ(whatIsWrongWithPath(nestedName(6, std::string(100, '"'))), tooLong);
    EXPECT_EQ(whatIsWrongWithPath(nestedName(6, std::string(100, '\\'))), tooLong);
    std::string elsewhere = "<LOCALINSTANCEPATH><LOCALNAMESPACEPATH>";
    for (int i = 0; i < 9; ++i) {
        elsewhere += "<NAMESPACE NAME=\"" + text + "\"/>";
    }
    EXPECT_EQ(whatIsWrongWithPath(elsewhere + "</LOCALNAMESPACEPATH>" + instanceName +
                                  "</LOCALINSTANCEPATH>"),
              tooLong);
}

TEST(ObjectReader, anInstanceHas256PropertiesAndNoMore) {
    EXPECT_EQ(whatIsWrong(instanceWith(256), readInstance), "nothing");
    EXPECT_EQ(whatIsWrong(instanceWith(257), readInstance),
              "element \"INSTANCE\": there are more than 256 properties inside");
}

TEST(ObjectReader, readsTypedParameters) {
    const Pegasus::CIMParamValue number =
        parameter("<PARAMVALUE NAME=\"P\" PARAMTYPE=\"uint16\"><VALUE>0x10</VALUE></PARAMVALUE>");
    EXPECT_TRUE(number.isTyped());
    EXPECT_EQ(number.getValue(), CIMValue(Pegasus::Uint16(16)));
    const Pegasus::CIMParamValue null = parameter("<PARAMVALUE NAME=\"P\" PARAMTYPE=\"uint16\"/>");
    EXPECT_TRUE(null.getValue().isNull());
    EXPECT_EQ(null.getValue().getType(), Pegasus::CIMTYPE_UINT16);
}

TEST(ObjectReader, parametersWithoutATypeAreTextsOrReferences) {
    const Pegasus::CIMParamValue text =
        parameter("<PARAMVALUE NAME=\"P\"><VALUE>7</VALUE></PARAMVALUE>");
    EXPECT_FALSE(text.isTyped());
    EXPECT_EQ(text.getValue(), CIMValue(String("7")));
    EXPECT_TRUE(parameter("<PARAMVALUE NAME=\"P\"><VALUE.ARRAY><VALUE>7</VALUE></VALUE.ARRAY>"
                          "</PARAMVALUE>")
                    .getValue()
                    .isArray());
    EXPECT_EQ(parameter("<PARAMVALUE NAME=\"P\"><VALUE.REFERENCE>" + instanceName +
                        "</VALUE.REFERENCE></PARAMVALUE>")
                  .getValue()
                  .getType(),
              Pegasus::CIMTYPE_REFERENCE);
    EXPECT_TRUE(parameter("<PARAMVALUE NAME=\"P\"><VALUE.REFARRAY><VALUE.REFERENCE>" +
                          instanceName + "</VALUE.REFERENCE></VALUE.REFARRAY></PARAMVALUE>")
                    .getValue()
                    .isArray());
    const Pegasus::CIMParamValue null = parameter("<PARAMVALUE NAME=\"P\"/>");
    EXPECT_TRUE(null.getValue().isNull());
    EXPECT_EQ(null.getValue().getType(), Pegasus::CIMTYPE_STRING);
}

TEST(ObjectReader, saysWhatIsWrongWithAParameter) {
    EXPECT_EQ(whatIsWrongWithParameter(
                  "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"uint16\"><VALUE>seven</VALUE></PARAMVALUE>"),
              "element \"VALUE\": \"seven\" is not a valid uint16");
    EXPECT_EQ(whatIsWrongWithParameter(
                  "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"reference\"><VALUE>x</VALUE></PARAMVALUE>"),
              "element \"VALUE\": \"VALUE.REFERENCE\" is expected in its place");
    EXPECT_EQ(whatIsWrongWithParameter("<PARAMVALUE NAME=\"P\"><VALUE/><VALUE/></PARAMVALUE>"),
              "element \"PARAMVALUE\": more than one value is inside");
    EXPECT_EQ(whatIsWrongWithParameter("<PARAMVALUE/>"),
              "element \"PARAMVALUE\": its attribute \"NAME\" is missing");
    EXPECT_EQ(whatIsWrongWithParameter("<PARAMVALUE NAME=\"\"><VALUE>x</VALUE></PARAMVALUE>"),
              "element \"PARAMVALUE\": its attribute \"NAME\" is empty");
}
