// SPDX-License-Identifier: MIT
// Answers the operations of the server from the provider library and from the repository.
#pragma once

#include <vector>

#include <Pegasus/Common/CIMObjectPath.h>

#include "servers/cimhost/operations/Operations.h"
#include "servers/cimhost/operations/ProviderRoutes.h"
#include "servers/cimhost/repository/Repository.h"
#include "servers/cimhost/schema/Schema.h"

namespace cimhost {

/// The operations as OpenPegasus was seen to answer them:
///
/// 1. A class with a provider is answered by that provider, every other class by the repository.
/// 2. Enumerating a class asks the source of each of its subclasses, too. The error of one source
///    fails the whole operation, except "not supported" where another source answered.
/// 3. LocalOnly takes nothing away from instances; the property list is applied here, whoever
///    delivered the instance; without DeepInheritance only the properties of the class asked for
///    remain.
/// 4. Associations are followed over every association class that has an end which the object's
///    class fits, by looking through its instances.
/// 5. A method needs a provider but no declaration: without provider it is "method not available",
///    undeclared it reaches the provider, which decides.
///
/// See Operations for errors and threads.
class Dispatcher : public Operations {
public:
    /// All three must outlive this object; `routes` may be filled until the first operation.
    /// `hostName` stands in the paths that providers see and that clients get from associations.
    Dispatcher(const Schema& schema, Repository& repository, const ProviderRoutes& routes,
               Pegasus::String hostName);

    Pegasus::CIMInstance getInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& instanceName,
                                     const ElementOptions& options) override;
    Pegasus::Array<Pegasus::CIMInstance> enumerateInstances(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
        bool deepInheritance, const ElementOptions& options) override;
    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className) override;
    Pegasus::CIMObjectPath createInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                          const Pegasus::CIMInstance& newInstance) override;
    void modifyInstance(const Pegasus::CIMNamespaceName& nameSpace,
                        const Pegasus::CIMInstance& modifiedInstance,
                        const Pegasus::CIMPropertyList& propertyList) override;
    void deleteInstance(const Pegasus::CIMNamespaceName& nameSpace,
                        const Pegasus::CIMObjectPath& instanceName) override;
    Pegasus::CIMValue getProperty(const Pegasus::CIMNamespaceName& nameSpace,
                                  const Pegasus::CIMObjectPath& instanceName,
                                  const Pegasus::CIMName& propertyName) override;
    wire::ClassDefinition getClass(const Pegasus::CIMNamespaceName& nameSpace,
                                   const Pegasus::CIMName& className,
                                   const ElementOptions& options) override;
    std::vector<wire::ClassDefinition> enumerateClasses(const Pegasus::CIMNamespaceName& nameSpace,
                                                        const Pegasus::CIMName& className,
                                                        bool deepInheritance,
                                                        const ElementOptions& options) override;
    std::vector<Pegasus::CIMName> enumerateClassNames(const Pegasus::CIMNamespaceName& nameSpace,
                                                      const Pegasus::CIMName& className,
                                                      bool deepInheritance) override;
    Pegasus::Array<Pegasus::CIMInstance> associators(const Pegasus::CIMNamespaceName& nameSpace,
                                                     const Pegasus::CIMObjectPath& objectName,
                                                     const AssociationFilter& filter,
                                                     const ElementOptions& options) override;
    Pegasus::Array<Pegasus::CIMObjectPath> associatorNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const AssociationFilter& filter) override;
    Pegasus::Array<Pegasus::CIMInstance> references(const Pegasus::CIMNamespaceName& nameSpace,
                                                    const Pegasus::CIMObjectPath& objectName,
                                                    const AssociationFilter& filter,
                                                    const ElementOptions& options) override;
    Pegasus::Array<Pegasus::CIMObjectPath> referenceNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const AssociationFilter& filter) override;
    wire::MethodResult invokeMethod(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const Pegasus::CIMName& methodName,
        const Pegasus::Array<Pegasus::CIMParamValue>& inParameters) override;

private:
    using Namespace = Pegasus::CIMNamespaceName;

    Pegasus::CIMInstance fetch(const Namespace& nameSpace, const Pegasus::CIMObjectPath& path);
    Pegasus::Array<Pegasus::CIMInstance> instancesOf(const Namespace& nameSpace,
                                                     const Pegasus::CIMName& className);
    Pegasus::Array<Pegasus::CIMObjectPath> namesOf(const Namespace& nameSpace,
                                                   const Pegasus::CIMName& className);
    std::vector<Pegasus::CIMName> withSubclasses(const Namespace& nameSpace,
                                                 const Pegasus::CIMName& className) const;
    std::vector<Schema::ClassPointer> associationClasses(const Namespace& nameSpace,
                                                         const Pegasus::CIMName& objectClass,
                                                         const Pegasus::CIMName& assocClass) const;
    Pegasus::Array<Pegasus::CIMInstance> referringInstances(
        const Namespace& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const AssociationFilter& filter);
    Pegasus::Array<Pegasus::CIMInstance> associationInstances(const Namespace& nameSpace,
                                                              const Pegasus::CIMName& objectClass,
                                                              const Pegasus::CIMName& assocClass);
    Pegasus::Array<Pegasus::CIMObjectPath> associatedClasses(const Namespace& nameSpace,
                                                             const Pegasus::CIMName& objectClass,
                                                             const AssociationFilter& filter) const;
    void requireFilterClass(const Namespace& nameSpace, const Pegasus::CIMName& className) const;
    Pegasus::CIMObjectPath providerPath(const Namespace& nameSpace,
                                        const Pegasus::CIMObjectPath& path) const;
    Pegasus::CIMObjectPath classPath(const Namespace& nameSpace,
                                     const Pegasus::CIMName& className) const;
    Pegasus::CIMObjectPath fullPath(const Namespace& nameSpace,
                                    const Pegasus::CIMObjectPath& path) const;

    const Schema& schema_;
    Repository& repository_;
    const ProviderRoutes& routes_;
    const Pegasus::String hostName_;
};

}  // namespace cimhost
