// SPDX-License-Identifier: MIT
#include "servers/cimhost/schema/ClassResolver.h"

#include <utility>

#include <Pegasus/Common/Exception.h>

namespace cimhost {

namespace {

using Pegasus::CIMException;
using Pegasus::CIMName;
using Pegasus::String;

[[noreturn]] void refuse(const CIMName& className, const CIMName& element, const char* reason) {
    String text(className.getString());
    text.append(".");
    text.append(element.getString());
    text.append(reason);
    throw CIMException(Pegasus::CIM_ERR_INVALID_PARAMETER, text);
}

wire::Qualifiers inheritQualifiers(const CIMName& className, const CIMName& element,
                                   const wire::Qualifiers& inherited, const wire::Qualifiers& own) {
    wire::Qualifiers result;
    for (const wire::Qualifier& qualifier : inherited) {
        if (!qualifier.flavor.toSubclass) {
            continue;
        }
        const wire::Qualifier* const override = findQualifier(own, qualifier.name);
        if (override == nullptr) {
            result.push_back(qualifier);
            result.back().propagated = true;
        } else if (!qualifier.flavor.overridable && !(override->value == qualifier.value)) {
            refuse(className, element, ": a qualifier of the superclass must not be overridden");
        }
    }
    result.insert(result.end(), own.begin(), own.end());
    return result;
}

void checkUnique(const wire::ClassDefinition& own) {
    for (auto property = own.properties.begin(); property != own.properties.end(); ++property) {
        if (own.findProperty(property->name) != &*property) {
            refuse(own.name, property->name, ": declared twice");
        }
        if (property->type == Pegasus::CIMTYPE_REFERENCE && property->isArray) {
            refuse(own.name, property->name, ": a property cannot be an array of references");
        }
    }
    for (auto method = own.methods.begin(); method != own.methods.end(); ++method) {
        if (own.findMethod(method->name) != &*method) {
            refuse(own.name, method->name, ": declared twice");
        }
        for (const wire::ParameterDefinition& parameter : method->parameters) {
            if (method->findParameter(parameter.name) != &parameter) {
                refuse(own.name, parameter.name, ": a parameter is declared twice");
            }
        }
    }
}

wire::PropertyDefinition resolveProperty(const wire::ClassDefinition& own,
                                         wire::PropertyDefinition property,
                                         const wire::PropertyDefinition* inherited) {
    property.classOrigin = own.name;
    property.propagated = false;
    if (inherited != nullptr) {
        if (inherited->type != property.type || inherited->isArray != property.isArray) {
            refuse(own.name, property.name, ": its type is not that of the superclass");
        }
        property.classOrigin = inherited->classOrigin;
        property.qualifiers =
            inheritQualifiers(own.name, property.name, inherited->qualifiers, property.qualifiers);
        if (property.defaultValue.isNull()) {
            property.defaultValue = inherited->defaultValue;
        }
    }
    return property;
}

wire::MethodDefinition resolveMethod(const wire::ClassDefinition& own,
                                     wire::MethodDefinition method,
                                     const wire::MethodDefinition* inherited) {
    method.classOrigin = own.name;
    method.propagated = false;
    if (inherited != nullptr) {
        if (inherited->returnType != method.returnType) {
            refuse(own.name, method.name, ": its return type is not that of the superclass");
        }
        method.classOrigin = inherited->classOrigin;
        method.qualifiers =
            inheritQualifiers(own.name, method.name, inherited->qualifiers, method.qualifiers);
    }
    return method;
}

}  // namespace

wire::ClassDefinition resolveClass(const wire::ClassDefinition& own,
                                   const wire::ClassDefinition* superclass) {
    static const wire::ClassDefinition noClass;
    const wire::ClassDefinition& inherited = superclass == nullptr ? noClass : *superclass;
    checkUnique(own);

    wire::ClassDefinition result;
    result.name = own.name;
    result.superclass = own.superclass;
    result.qualifiers = inheritQualifiers(own.name, own.name, inherited.qualifiers, own.qualifiers);
    for (const wire::PropertyDefinition& property : inherited.properties) {
        if (own.findProperty(property.name) == nullptr) {
            result.properties.push_back(property);
            result.properties.back().propagated = true;
        }
    }
    for (const wire::PropertyDefinition& property : own.properties) {
        result.properties.push_back(
            resolveProperty(own, property, inherited.findProperty(property.name)));
    }
    for (const wire::MethodDefinition& method : inherited.methods) {
        if (own.findMethod(method.name) == nullptr) {
            result.methods.push_back(method);
            result.methods.back().propagated = true;
        }
    }
    for (const wire::MethodDefinition& method : own.methods) {
        result.methods.push_back(resolveMethod(own, method, inherited.findMethod(method.name)));
    }
    if (!result.isAssociation()) {
        for (const wire::PropertyDefinition& property : result.properties) {
            if (property.type == Pegasus::CIMTYPE_REFERENCE) {
                refuse(own.name, property.name,
                       ": only an association may have a reference property");
            }
        }
    }
    return result;
}

}  // namespace cimhost
