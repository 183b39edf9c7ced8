// SPDX-License-Identifier: MIT
#include "servers/cimhost/schema/ClassFilter.h"

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

void removeQualifiers(wire::ClassDefinition& definition) {
    definition.qualifiers.clear();
    for (wire::PropertyDefinition& property : definition.properties) {
        property.qualifiers.clear();
    }
    for (wire::MethodDefinition& method : definition.methods) {
        method.qualifiers.clear();
        for (wire::ParameterDefinition& parameter : method.parameters) {
            parameter.qualifiers.clear();
        }
    }
}

void removeClassOrigins(wire::ClassDefinition& definition) {
    for (wire::PropertyDefinition& property : definition.properties) {
        property.classOrigin = Pegasus::CIMName();
    }
    for (wire::MethodDefinition& method : definition.methods) {
        method.classOrigin = Pegasus::CIMName();
    }
}

void removeInherited(wire::ClassDefinition& definition) {
    removeIf(definition.qualifiers, isPropagated<wire::Qualifier>);
    removeIf(definition.properties, isPropagated<wire::PropertyDefinition>);
    removeIf(definition.methods, isPropagated<wire::MethodDefinition>);
}

}  // namespace

wire::ClassDefinition filteredClass(const wire::ClassDefinition& definition, bool localOnly,
                                    bool includeQualifiers, bool includeClassOrigin,
                                    const Pegasus::CIMPropertyList& propertyList) {
    wire::ClassDefinition result = definition;
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
        removeIf(result.properties, [&](const wire::PropertyDefinition& property) {
            return !propertyList.contains(property.name);
        });
    }
    return result;
}

}  // namespace cimhost
