// SPDX-License-Identifier: MIT
#include "tests/host/protocol/ReadClass.h"

#include <cstdlib>

#include "host/cimxml/ObjectReader.h"

namespace {

using namespace cimhost;

bool flag(XmlElement element, const char* attribute, bool otherwise) {
    return element.attribute(attribute) ? trueAttribute(element, attribute) : otherwise;
}

Pegasus::Uint32 arraySize(XmlElement element) {
    const std::string text = element.attribute("ARRAYSIZE").value_or("0");
    return static_cast<Pegasus::Uint32>(std::strtoul(text.c_str(), nullptr, 10));
}

Qualifiers readQualifiers(XmlElement element) {
    Qualifiers qualifiers;
    for (const XmlElement child : element) {
        if (child.name() != "QUALIFIER") {
            continue;
        }
        Qualifier qualifier;
        qualifier.name = nameAttribute(child, "NAME");
        const XmlElement value = child.firstChild();
        qualifier.value = readContent(child, typeAttribute(child, "TYPE"),
                                      value && value.name() == "VALUE.ARRAY");
        qualifier.flavor = {flag(child, "OVERRIDABLE", true), flag(child, "TOSUBCLASS", true),
                            flag(child, "TRANSLATABLE", false)};
        qualifier.propagated = flag(child, "PROPAGATED", false);
        qualifiers.push_back(qualifier);
    }
    return qualifiers;
}

ParameterDefinition readParameter(XmlElement element) {
    const std::string_view kind = element.name();
    ParameterDefinition parameter;
    parameter.name = nameAttribute(element, "NAME");
    parameter.isArray = kind == "PARAMETER.ARRAY" || kind == "PARAMETER.REFARRAY";
    const bool isReference = kind == "PARAMETER.REFERENCE" || kind == "PARAMETER.REFARRAY";
    parameter.type = isReference ? Pegasus::CIMTYPE_REFERENCE : typeAttribute(element, "TYPE");
    parameter.arraySize = arraySize(element);
    parameter.referenceClass = optionalNameAttribute(element, "REFERENCECLASS");
    parameter.qualifiers = readQualifiers(element);
    return parameter;
}

MethodDefinition readMethod(XmlElement element) {
    MethodDefinition method;
    method.name = nameAttribute(element, "NAME");
    method.returnType = typeAttribute(element, "TYPE");
    method.classOrigin = optionalNameAttribute(element, "CLASSORIGIN");
    method.propagated = flag(element, "PROPAGATED", false);
    method.qualifiers = readQualifiers(element);
    for (const XmlElement child : element) {
        if (child.name() != "QUALIFIER") {
            method.parameters.push_back(readParameter(child));
        }
    }
    return method;
}

PropertyDefinition readPropertyDefinition(XmlElement element) {
    const Pegasus::CIMProperty read = readProperty(element);
    PropertyDefinition property;
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

ClassDefinition readClass(XmlElement element) {
    ClassDefinition definition;
    definition.name = nameAttribute(expectElement(element, "CLASS"), "NAME");
    definition.superclass = optionalNameAttribute(element, "SUPERCLASS");
    definition.qualifiers = readQualifiers(element);
    for (const XmlElement child : element) {
        if (child.name() == "METHOD") {
            definition.methods.push_back(readMethod(child));
        } else if (child.name() != "QUALIFIER") {
            definition.properties.push_back(readPropertyDefinition(child));
        }
    }
    return definition;
}
