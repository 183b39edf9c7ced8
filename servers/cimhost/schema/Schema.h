// SPDX-License-Identifier: MIT
// The namespaces of the host with their qualifier declarations and classes.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include <Pegasus/Common/CIMName.h>

#include "servers/cimhost/schema/NameOrder.h"
#include "wire/cimxml/ClassDefinition.h"

namespace cimhost {

/// Namespaces, qualifier declarations and classes.
///
/// Filled once, by one thread, before the host serves; afterwards any number of threads may read it
/// (the const operations). Names are compared without case.
///
/// Refusals are CIMExceptions. Every operation but addNamespace() and hasNamespace() throws
/// CIM_ERR_INVALID_NAMESPACE for a namespace that does not exist.
class Schema {
public:
    using Namespace = Pegasus::CIMNamespaceName;
    using Name = Pegasus::CIMName;
    using ClassPointer = std::shared_ptr<const wire::ClassDefinition>;

    /// Makes the namespace if it does not exist yet.
    void addNamespace(const Namespace& nameSpace);

    bool hasNamespace(const Namespace& nameSpace) const;

    /// Throws CIM_ERR_INVALID_NAMESPACE unless the namespace exists.
    void requireNamespace(const Namespace& nameSpace) const;

    /// Declares a qualifier type. Declaring it again with the same type changes nothing, with
    /// another type is CIM_ERR_ALREADY_EXISTS.
    void addQualifier(const Namespace& nameSpace, const wire::QualifierDeclaration& declaration);

    /// The declaration of a qualifier type, or null.
    const wire::QualifierDeclaration* findQualifier(const Namespace& nameSpace,
                                                    const Name& name) const;

    /// Adds a class that holds its own elements only; those of its superclass are taken over.
    /// CIM_ERR_ALREADY_EXISTS for a class that is there, CIM_ERR_INVALID_SUPERCLASS for an unknown
    /// superclass, CIM_ERR_INVALID_PARAMETER where the class contradicts itself or its superclass.
    void addClass(const Namespace& nameSpace, const wire::ClassDefinition& definition);

    /// The class with the elements of its superclasses, or null.
    ClassPointer findClass(const Namespace& nameSpace, const Name& className) const;

    /// The class, or CIM_ERR_INVALID_CLASS with its name.
    ClassPointer requireClass(const Namespace& nameSpace, const Name& className) const;

    /// The direct subclasses in the order in which they were added, or all below the class, each
    /// before its own subclasses. A null name means the root of all hierarchies.
    std::vector<Name> subclasses(const Namespace& nameSpace, const Name& className,
                                 bool deepInheritance) const;

    /// Whether `className` is `ancestor` or inherits from it. False for unknown classes.
    bool isOrInherits(const Namespace& nameSpace, const Name& className,
                      const Name& ancestor) const;

private:
    struct NamespaceContent {
        std::map<Name, wire::QualifierDeclaration, NameOrder> qualifiers;
        std::map<Name, ClassPointer, NameOrder> classes;
        /// Direct subclasses by class; those without superclass under the null name.
        std::map<Name, std::vector<Name>, NameOrder> children;
    };

    const NamespaceContent& content(const Namespace& nameSpace) const;

    std::map<Namespace, NamespaceContent, NameOrder> namespaces_;
};

}  // namespace cimhost
