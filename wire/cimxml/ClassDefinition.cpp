// SPDX-License-Identifier: MIT
#include "wire/cimxml/ClassDefinition.h"

#include <algorithm>

namespace wire {

namespace {

template <class Element>
const Element* findByName(const std::vector<Element>& elements, const Pegasus::CIMName& name) {
    const auto found = std::find_if(elements.begin(), elements.end(), [&](const Element& element) {
        return element.name.equal(name);
    });
    return found == elements.end() ? nullptr : &*found;
}

}  // namespace

const Qualifier* findQualifier(const Qualifiers& qualifiers, const Pegasus::CIMName& name) {
    return findByName(qualifiers, name);
}

bool isQualified(const Qualifiers& qualifiers, const Pegasus::CIMName& name, bool otherwise) {
    const Qualifier* const qualifier = findQualifier(qualifiers, name);
    if (qualifier == nullptr || qualifier->value.isNull() || qualifier->value.isArray() ||
        qualifier->value.getType() != Pegasus::CIMTYPE_BOOLEAN) {
        return otherwise;
    }
    Pegasus::Boolean value = false;
    qualifier->value.get(value);
    return value;
}

bool PropertyDefinition::isKey() const {
    return isQualified(qualifiers, "Key");
}

bool ParameterDefinition::isIn() const {
    return isQualified(qualifiers, "In", true);
}

bool ParameterDefinition::isOut() const {
    return isQualified(qualifiers, "Out");
}

const ParameterDefinition* MethodDefinition::findParameter(
    const Pegasus::CIMName& parameterName) const {
    return findByName(parameters, parameterName);
}

bool ClassDefinition::isAssociation() const {
    return isQualified(qualifiers, "Association");
}

const PropertyDefinition* ClassDefinition::findProperty(
    const Pegasus::CIMName& propertyName) const {
    return findByName(properties, propertyName);
}

const MethodDefinition* ClassDefinition::findMethod(const Pegasus::CIMName& methodName) const {
    return findByName(methods, methodName);
}

}  // namespace wire
