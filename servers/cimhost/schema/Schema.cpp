// SPDX-License-Identifier: MIT
#include "servers/cimhost/schema/Schema.h"

#include <Pegasus/Common/Exception.h>

#include "servers/cimhost/schema/ClassResolver.h"

namespace cimhost {

using Pegasus::CIMException;
using Pegasus::String;

void Schema::addNamespace(const Namespace& nameSpace) {
    namespaces_.try_emplace(nameSpace);
}

bool Schema::hasNamespace(const Namespace& nameSpace) const {
    return namespaces_.find(nameSpace) != namespaces_.end();
}

const Schema::NamespaceContent& Schema::content(const Namespace& nameSpace) const {
    const auto found = namespaces_.find(nameSpace);
    if (found == namespaces_.end()) {
        throw CIMException(Pegasus::CIM_ERR_INVALID_NAMESPACE, nameSpace.getString());
    }
    return found->second;
}

void Schema::requireNamespace(const Namespace& nameSpace) const {
    content(nameSpace);
}

void Schema::addQualifier(const Namespace& nameSpace,
                          const wire::QualifierDeclaration& declaration) {
    requireNamespace(nameSpace);
    const auto [known, added] =
        namespaces_[nameSpace].qualifiers.try_emplace(declaration.name, declaration);
    const wire::QualifierDeclaration& existing = known->second;
    if (!added && (existing.defaultValue.getType() != declaration.defaultValue.getType() ||
                   existing.defaultValue.isArray() != declaration.defaultValue.isArray())) {
        throw CIMException(Pegasus::CIM_ERR_ALREADY_EXISTS,
                           String("there is already a qualifier ") + declaration.name.getString() +
                               " of another type");
    }
}

const wire::QualifierDeclaration* Schema::findQualifier(const Namespace& nameSpace,
                                                        const Name& name) const {
    const auto& qualifiers = content(nameSpace).qualifiers;
    const auto found = qualifiers.find(name);
    return found == qualifiers.end() ? nullptr : &found->second;
}

void Schema::addClass(const Namespace& nameSpace, const wire::ClassDefinition& definition) {
    if (findClass(nameSpace, definition.name) != nullptr) {
        throw CIMException(Pegasus::CIM_ERR_ALREADY_EXISTS,
                           String("there is already a class ") + definition.name.getString());
    }
    ClassPointer superclass;
    if (!definition.superclass.isNull()) {
        superclass = findClass(nameSpace, definition.superclass);
        if (superclass == nullptr) {
            throw CIMException(Pegasus::CIM_ERR_INVALID_SUPERCLASS,
                               String("unknown superclass ") + definition.superclass.getString());
        }
    }
    auto resolved =
        std::make_shared<const wire::ClassDefinition>(resolveClass(definition, superclass.get()));
    for (const wire::PropertyDefinition& property : resolved->properties) {
        if (property.type == Pegasus::CIMTYPE_REFERENCE &&
            findClass(nameSpace, property.referenceClass) == nullptr &&
            !property.referenceClass.equal(definition.name)) {
            throw CIMException(
                Pegasus::CIM_ERR_INVALID_PARAMETER,
                String("unknown reference class ") + property.referenceClass.getString());
        }
    }
    NamespaceContent& target = namespaces_[nameSpace];
    target.children[definition.superclass].push_back(definition.name);
    target.classes.emplace(definition.name, std::move(resolved));
}

Schema::ClassPointer Schema::findClass(const Namespace& nameSpace, const Name& className) const {
    const auto& classes = content(nameSpace).classes;
    const auto found = classes.find(className);
    return found == classes.end() ? nullptr : found->second;
}

Schema::ClassPointer Schema::requireClass(const Namespace& nameSpace, const Name& className) const {
    ClassPointer found = findClass(nameSpace, className);
    if (found == nullptr) {
        throw CIMException(Pegasus::CIM_ERR_INVALID_CLASS, className.getString());
    }
    return found;
}

std::vector<Schema::Name> Schema::subclasses(const Namespace& nameSpace, const Name& className,
                                             bool deepInheritance) const {
    const auto& children = content(nameSpace).children;
    std::vector<Name> result;
    const auto direct = children.find(className);
    if (direct == children.end()) {
        return result;
    }
    result = direct->second;
    // The vector grows after the reading position, so every generation follows the one before.
    for (std::size_t position = 0; deepInheritance && position < result.size(); ++position) {
        const auto below = children.find(result[position]);
        if (below != children.end()) {
            result.insert(result.end(), below->second.begin(), below->second.end());
        }
    }
    return result;
}

bool Schema::isOrInherits(const Namespace& nameSpace, const Name& className,
                          const Name& ancestor) const {
    ClassPointer current = findClass(nameSpace, className);
    while (current != nullptr) {
        if (current->name.equal(ancestor)) {
            return true;
        }
        current =
            current->superclass.isNull() ? nullptr : findClass(nameSpace, current->superclass);
    }
    return false;
}

}  // namespace cimhost
