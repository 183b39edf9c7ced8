// SPDX-License-Identifier: MIT
#include "tests/servers/cimhost/protocol/ReadClass.h"

#include <cstdlib>

#include "wire/cimxml/ObjectReader.h"

namespace {

using namespace wire;

bool flag(wire::XmlElement element, const char* attribute, bool otherwise) {
    return element.attribute(attribute) ? wire::trueAttribute(element, attribute) : otherwise;
}

Pegasus::Uint32 arraySize(wire::XmlElement element) {
    const std::string text = element.attribute("ARRAYSIZE").value_or("0");
    return static_cast<Pegasus::Uint32>(std::strtoul(text.c_str(), nullptr, 10));
}

wire::Qualifiers readQualifiers(wire::XmlElement element) {
    wire::Qualifiers qualifiers;
    for (const wire::XmlElement child : element) {
        if (child.name() != "QUALIFIER") {
            continue;
        }
        wire::Qualifier qualifier;
        qualifier.name = wire::nameAttribute(child, "NAME");
        const wire::XmlElement value = child.firstChild();
        qualifier.value = wire::readContent(child, wire::typeAttribute(child, "TYPE"),
                                            value && value.name() == "VALUE.ARRAY");
        qualifier.flavor = {flag(child, "OVERRIDABLE", true), flag(child, "TOSUBCLASS", true),
                            flag(child, "TRANSLATABLE", false)};
        qualifier.propagated = flag(child, "PROPAGATED", false);
        qualifiers.push_back(qualifier);
    }
    return qualifiers;
}

wire::ParameterDefinition readParameter(wire::XmlElement element) {
    const std::string_view kind = element.name();
    wire::ParameterDefinition parameter;
    parameter.name = wire::nameAttribute(element, "NAME");
    parameter.isArray = kind == "PARAMETER.ARRAY" || kind == "PARAMETER.REFARRAY";
    const bool isReference = kind == "PARAMETER.REFERENCE" || kind == "PARAMETER.REFARRAY";
    parameter.type =
        isReference ? Pegasus::CIMTYPE_REFERENCE : wire::typeAttribute(element, "TYPE");
    parameter.arraySize = arraySize(element);
    parameter.referenceClass = wire::optionalNameAttribute(element, "REFERENCECLASS");
    parameter.qualifiers = readQualifiers(element);
    return parameter;
}

wire::MethodDefinition readMethod(wire::XmlElement element) {
    wire::MethodDefinition method;
    method.name = wire::nameAttribute(element, "NAME");
    method.returnType = wire::typeAttribute(element, "TYPE");
    method.classOrigin = wire::optionalNameAttribute(element, "CLASSORIGIN");
    method.propagated = flag(element, "PROPAGATED", false);
    method.qualifiers = readQualifiers(element);
    for (const wire::XmlElement child : element) {
        if (child.name() != "QUALIFIER") {
            method.parameters.push_back(readParameter(child));
        }
    }
    return method;
}

wire::PropertyDefinition readPropertyDefinition(wire::XmlElement element) {
    const Pegasus::CIMProperty read = wire::readProperty(element);
    wire::PropertyDefinition property;
    property.name = read.getName();
    property.type = read.getType();
    property.isArray = read.isArray();
    property.arraySize = read.getArraySize();
    property.referenceClass = read.getReferenceClassName();
    property.defaultValue = read.getValue();
    property.qualifiers = readQualifiers(element);
    property.classOrigin = read.getClassOrigin();
    property.propagated = read.getPropagated();
    return property;
}

}  // namespace

wire::ClassDefinition readClass(wire::XmlElement element) {
    wire::ClassDefinition definition;
    definition.name = wire::nameAttribute(wire::expectElement(element, "CLASS"), "NAME");
    definition.superclass = wire::optionalNameAttribute(element, "SUPERCLASS");
    definition.qualifiers = readQualifiers(element);
    for (const wire::XmlElement child : element) {
        if (child.name() == "METHOD") {
            definition.methods.push_back(readMethod(child));
        } else if (child.name() != "QUALIFIER") {
            definition.properties.push_back(readPropertyDefinition(child));
        }
    }
    return definition;
}
