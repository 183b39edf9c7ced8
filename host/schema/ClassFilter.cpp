// SPDX-License-Identifier: MIT
#include "host/schema/ClassFilter.h"

#include <algorithm>

namespace cimhost {

namespace {

template <class Element, class Unwanted>
void removeIf(std::vector<Element>& elements, Unwanted unwanted) {
    elements.erase(std::remove_if(elements.begin(), elements.end(), unwanted), elements.end());
}

template <class Element>
bool isPropagated(const Element& element) {
    return element.propagated;
}

void removeQualifiers(ClassDefinition& definition) {
    definition.qualifiers.clear();
    for (PropertyDefinition& property : definition.properties) {
        property.qualifiers.clear();
    }
    for (MethodDefinition& method : definition.methods) {
        method.qualifiers.clear();
        for (ParameterDefinition& parameter : method.parameters) {
            parameter.qualifiers.clear();
        }
    }
}

void removeClassOrigins(ClassDefinition& definition) {
    for (PropertyDefinition& property : definition.properties) {
        property.classOrigin = Pegasus::CIMName();
    }
    for (MethodDefinition& method : definition.methods) {
        method.classOrigin = Pegasus::CIMName();
    }
}

void removeInherited(ClassDefinition& definition) {
    removeIf(definition.qualifiers, isPropagated<Qualifier>);
    removeIf(definition.properties, isPropagated<PropertyDefinition>);
    removeIf(definition.methods, isPropagated<MethodDefinition>);
}

}  // namespace

ClassDefinition filteredClass(const ClassDefinition& definition, bool localOnly,
                              bool includeQualifiers, bool includeClassOrigin,
                              const Pegasus::CIMPropertyList& propertyList) {
    ClassDefinition result = definition;
    if (localOnly) {
        removeInherited(result);
    }
    if (!includeQualifiers) {
        removeQualifiers(result);
    }
    if (!includeClassOrigin) {
        removeClassOrigins(result);
    }
    if (!propertyList.isNull()) {
        removeIf(result.properties, [&](const PropertyDefinition& property) {
            return !propertyList.contains(property.name);
        });
    }
    return result;
}

}  // namespace cimhost
