// SPDX-License-Identifier: MIT
#include "wire/cimxml/ClassWriter.h"

#include <gtest/gtest.h>

using namespace wire;
using Pegasus::CIMName;
using Pegasus::CIMValue;

namespace {

std::string written(const ClassDefinition& definition) {
    std::string out;
    appendClass(out, definition);
    return out;
}

Qualifier qualifier(const char* name, const CIMValue& value) {
    Qualifier result;
    result.name = CIMName(name);
    result.value = value;
    return result;
}

}  // namespace

TEST(ClassWriter, writesABareClass) {
    ClassDefinition definition;
    definition.name = CIMName("A");
    EXPECT_EQ(written(definition), "<CLASS NAME=\"A\">\n</CLASS>\n");
}

TEST(ClassWriter, writesPropertiesOfEachKind) {
    ClassDefinition definition;
    definition.name = CIMName("A");
    definition.superclass = CIMName("S");

    PropertyDefinition key;
    key.name = CIMName("K");
    key.defaultValue = CIMValue(Pegasus::CIMTYPE_STRING, false);
    key.classOrigin = CIMName("S");
    key.propagated = true;
    key.qualifiers.push_back(qualifier("Key", CIMValue(true)));
    definition.properties.push_back(key);

    PropertyDefinition array;
    array.name = CIMName("N");
    array.type = Pegasus::CIMTYPE_UINT16;
    array.isArray = true;
    array.arraySize = 3;
    array.defaultValue = CIMValue(Pegasus::CIMTYPE_UINT16, true);
    definition.properties.push_back(array);

    PropertyDefinition preset;
    preset.name = CIMName("D");
    preset.type = Pegasus::CIMTYPE_UINT8;
    preset.defaultValue = CIMValue(Pegasus::Uint8(7));
    definition.properties.push_back(preset);

    PropertyDefinition reference;
    reference.name = CIMName("R");
    reference.type = Pegasus::CIMTYPE_REFERENCE;
    reference.referenceClass = CIMName("A");
    reference.defaultValue = CIMValue(Pegasus::CIMTYPE_REFERENCE, false);
    definition.properties.push_back(reference);

    EXPECT_EQ(written(definition),
              "<CLASS NAME=\"A\" SUPERCLASS=\"S\">\n"
              "<PROPERTY NAME=\"K\" TYPE=\"string\" CLASSORIGIN=\"S\" PROPAGATED=\"true\">\n"
              "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\">\n<VALUE>TRUE</VALUE>\n</QUALIFIER>\n"
              "</PROPERTY>\n"
              "<PROPERTY.ARRAY NAME=\"N\" TYPE=\"uint16\" ARRAYSIZE=\"3\">\n</PROPERTY.ARRAY>\n"
              "<PROPERTY NAME=\"D\" TYPE=\"uint8\">\n<VALUE>7</VALUE>\n</PROPERTY>\n"
              "<PROPERTY.REFERENCE NAME=\"R\" REFERENCECLASS=\"A\">\n</PROPERTY.REFERENCE>\n"
              "</CLASS>\n");
}

TEST(ClassWriter, writesMethodsWithParametersOfEachKind) {
    MethodDefinition method;
    method.name = CIMName("M");
    method.classOrigin = CIMName("A");
    const auto add = [&](const char* name, Pegasus::CIMType type, bool isArray) {
        ParameterDefinition parameter;
        parameter.name = CIMName(name);
        parameter.type = type;
        parameter.isArray = isArray;
        if (type == Pegasus::CIMTYPE_REFERENCE) {
            parameter.referenceClass = CIMName("A");
        }
        method.parameters.push_back(parameter);
    };
    add("S", Pegasus::CIMTYPE_STRING, false);
    add("SA", Pegasus::CIMTYPE_STRING, true);
    add("R", Pegasus::CIMTYPE_REFERENCE, false);
    add("RA", Pegasus::CIMTYPE_REFERENCE, true);
    method.parameters[0].qualifiers.push_back(qualifier("In", CIMValue(false)));
    ClassDefinition definition;
    definition.name = CIMName("A");
    definition.methods.push_back(method);
    EXPECT_EQ(written(definition),
              "<CLASS NAME=\"A\">\n"
              "<METHOD NAME=\"M\" TYPE=\"uint32\" CLASSORIGIN=\"A\">\n"
              "<PARAMETER NAME=\"S\" TYPE=\"string\">\n"
              "<QUALIFIER NAME=\"In\" TYPE=\"boolean\">\n<VALUE>FALSE</VALUE>\n</QUALIFIER>\n"
              "</PARAMETER>\n"
              "<PARAMETER.ARRAY NAME=\"SA\" TYPE=\"string\">\n</PARAMETER.ARRAY>\n"
              "<PARAMETER.REFERENCE NAME=\"R\" REFERENCECLASS=\"A\">\n</PARAMETER.REFERENCE>\n"
              "<PARAMETER.REFARRAY NAME=\"RA\" REFERENCECLASS=\"A\">\n</PARAMETER.REFARRAY>\n"
              "</METHOD>\n"
              "</CLASS>\n");
}

TEST(ClassWriter, writesFlavorsThatAreNotTheDefault) {
    ClassDefinition definition;
    definition.name = CIMName("A");
    Qualifier odd = qualifier("Odd", CIMValue(Pegasus::String("x")));
    odd.flavor = {false, false, true};
    odd.propagated = true;
    definition.qualifiers.push_back(odd);
    EXPECT_EQ(written(definition),
              "<CLASS NAME=\"A\">\n"
              "<QUALIFIER NAME=\"Odd\" PROPAGATED=\"true\" TYPE=\"string\" OVERRIDABLE=\"false\" "
              "TOSUBCLASS=\"false\" TRANSLATABLE=\"true\">\n<VALUE>x</VALUE>\n</QUALIFIER>\n"
              "</CLASS>\n");
}
