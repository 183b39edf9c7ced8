// SPDX-License-Identifier: MIT
#include "servers/cimhost/operations/Dispatcher.h"

#include <exception>
#include <set>
#include <utility>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/OperationContext.h>

#include "servers/cimhost/operations/MethodParameters.h"
#include "servers/cimhost/schema/ClassFilter.h"
#include "servers/serving/AssociationQuery.h"

namespace cimhost {

using Pegasus::Array;
using Pegasus::CIMException;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMNamespaceName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMPropertyList;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint32;

namespace {

bool namesClass(const CIMObjectPath& path) {
    return path.getKeyBindings().size() == 0;
}

void requireInstance(const CIMObjectPath& path) {
    if (namesClass(path)) {
        throw CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED,
                           "only the names of what is associated with a class are offered");
    }
}

void filterProperties(CIMInstance& instance, const ElementOptions& options,
                      const CIMPropertyList& propertyList) {
    instance.instanceFilter(options.includeQualifiers, options.includeClassOrigin, propertyList);
}

/// The names of the class' properties, of those in the list where it is not null.
CIMPropertyList propertiesOf(const wire::ClassDefinition& definition, const CIMPropertyList& list) {
    Array<CIMName> names;
    for (const wire::PropertyDefinition& property : definition.properties) {
        if (list.isNull() || list.contains(property.name)) {
            names.append(property.name);
        }
    }
    return CIMPropertyList(names);
}

/// Joins what the sources of several classes deliver. "Not supported" counts only if no source
/// answered.
template <class Object, class Source>
Array<Object> joined(const std::vector<CIMName>& classes, Source source) {
    Array<Object> result;
    bool answered = false;
    std::exception_ptr notSupported;
    for (const CIMName& className : classes) {
        try {
            result.appendArray(source(className));
            answered = true;
        } catch (const CIMException& refusal) {
            if (refusal.getCode() != Pegasus::CIM_ERR_NOT_SUPPORTED) {
                throw;
            }
            notSupported = std::current_exception();
        }
    }
    if (!answered && notSupported) {
        std::rethrow_exception(notSupported);
    }
    return result;
}

}  // namespace

Dispatcher::Dispatcher(const Schema& schema, Repository& repository, const ProviderRoutes& routes,
                       String hostName)
    : schema_(schema), repository_(repository), routes_(routes), hostName_(std::move(hostName)) {}

CIMObjectPath Dispatcher::providerPath(const Namespace& nameSpace,
                                       const CIMObjectPath& path) const {
    return CIMObjectPath(hostName_, nameSpace, path.getClassName(), path.getKeyBindings());
}

CIMObjectPath Dispatcher::classPath(const Namespace& nameSpace, const CIMName& className) const {
    return CIMObjectPath(hostName_, nameSpace, className);
}

CIMObjectPath Dispatcher::fullPath(const Namespace& nameSpace, const CIMObjectPath& path) const {
    CIMObjectPath full = path;
    if (full.getHost().size() == 0) {
        full.setHost(hostName_);
    }
    if (full.getNameSpace().isNull()) {
        full.setNameSpace(nameSpace);
    }
    return full;
}

std::vector<CIMName> Dispatcher::withSubclasses(const Namespace& nameSpace,
                                                const CIMName& className) const {
    std::vector<CIMName> classes = schema_.subclasses(nameSpace, className, true);
    classes.insert(classes.begin(), className);
    return classes;
}

CIMInstance Dispatcher::fetch(const Namespace& nameSpace, const CIMObjectPath& path) {
    schema_.requireClass(nameSpace, path.getClassName());
    if (auto* const provider = routes_.instanceProvider(nameSpace, path.getClassName())) {
        return provider->getInstance(Pegasus::OperationContext(), providerPath(nameSpace, path));
    }
    return repository_.getInstance(nameSpace, path);
}

Array<CIMInstance> Dispatcher::instancesOf(const Namespace& nameSpace, const CIMName& className) {
    if (auto* const provider = routes_.instanceProvider(nameSpace, className)) {
        return provider->enumerateInstances(Pegasus::OperationContext(),
                                            classPath(nameSpace, className));
    }
    return repository_.enumerateInstances(nameSpace, className);
}

Array<CIMObjectPath> Dispatcher::namesOf(const Namespace& nameSpace, const CIMName& className) {
    if (auto* const provider = routes_.instanceProvider(nameSpace, className)) {
        return provider->enumerateInstanceNames(Pegasus::OperationContext(),
                                                classPath(nameSpace, className));
    }
    return repository_.enumerateInstanceNames(nameSpace, className);
}

CIMInstance Dispatcher::getInstance(const CIMNamespaceName& nameSpace,
                                    const CIMObjectPath& instanceName,
                                    const ElementOptions& options) {
    CIMInstance instance = fetch(nameSpace, instanceName);
    filterProperties(instance, options, options.propertyList);
    return instance;
}

Array<CIMInstance> Dispatcher::enumerateInstances(const CIMNamespaceName& nameSpace,
                                                  const CIMName& className, bool deepInheritance,
                                                  const ElementOptions& options) {
    const auto definition = schema_.requireClass(nameSpace, className);
    const CIMPropertyList wanted =
        deepInheritance ? options.propertyList : propertiesOf(*definition, options.propertyList);
    Array<CIMInstance> instances =
        joined<CIMInstance>(withSubclasses(nameSpace, className),
                            [&](const CIMName& name) { return instancesOf(nameSpace, name); });
    for (Uint32 index = 0; index < instances.size(); ++index) {
        filterProperties(instances[index], options, wanted);
    }
    return instances;
}

Array<CIMObjectPath> Dispatcher::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                        const CIMName& className) {
    schema_.requireClass(nameSpace, className);
    return joined<CIMObjectPath>(withSubclasses(nameSpace, className),
                                 [&](const CIMName& name) { return namesOf(nameSpace, name); });
}

CIMObjectPath Dispatcher::createInstance(const CIMNamespaceName& nameSpace,
                                         const CIMInstance& newInstance) {
    const CIMName& className = newInstance.getClassName();
    schema_.requireClass(nameSpace, className);
    if (auto* const provider = routes_.instanceProvider(nameSpace, className)) {
        return provider->createInstance(Pegasus::OperationContext(),
                                        classPath(nameSpace, className), newInstance);
    }
    return repository_.createInstance(nameSpace, newInstance);
}

void Dispatcher::modifyInstance(const CIMNamespaceName& nameSpace,
                                const CIMInstance& modifiedInstance,
                                const CIMPropertyList& propertyList) {
    const CIMObjectPath& path = modifiedInstance.getPath();
    schema_.requireClass(nameSpace, path.getClassName());
    if (auto* const provider = routes_.instanceProvider(nameSpace, path.getClassName())) {
        provider->modifyInstance(Pegasus::OperationContext(), providerPath(nameSpace, path),
                                 modifiedInstance, propertyList);
        return;
    }
    repository_.modifyInstance(nameSpace, path, modifiedInstance, propertyList);
}

void Dispatcher::deleteInstance(const CIMNamespaceName& nameSpace,
                                const CIMObjectPath& instanceName) {
    schema_.requireClass(nameSpace, instanceName.getClassName());
    if (auto* const provider = routes_.instanceProvider(nameSpace, instanceName.getClassName())) {
        provider->deleteInstance(Pegasus::OperationContext(),
                                 providerPath(nameSpace, instanceName));
        return;
    }
    repository_.deleteInstance(nameSpace, instanceName);
}

CIMValue Dispatcher::getProperty(const CIMNamespaceName& nameSpace,
                                 const CIMObjectPath& instanceName, const CIMName& propertyName) {
    const CIMInstance instance = fetch(nameSpace, instanceName);
    const Uint32 position = instance.findProperty(propertyName);
    if (position == PEG_NOT_FOUND) {
        throw CIMException(Pegasus::CIM_ERR_NO_SUCH_PROPERTY, propertyName.getString());
    }
    return instance.getProperty(position).getValue();
}

wire::ClassDefinition Dispatcher::getClass(const CIMNamespaceName& nameSpace,
                                           const CIMName& className,
                                           const ElementOptions& options) {
    const auto definition = schema_.findClass(nameSpace, className);
    if (definition == nullptr) {
        throw CIMException(Pegasus::CIM_ERR_NOT_FOUND, className.getString());
    }
    return filteredClass(*definition, options.localOnly, options.includeQualifiers,
                         options.includeClassOrigin, options.propertyList);
}

std::vector<wire::ClassDefinition> Dispatcher::enumerateClasses(const CIMNamespaceName& nameSpace,
                                                                const CIMName& className,
                                                                bool deepInheritance,
                                                                const ElementOptions& options) {
    std::vector<wire::ClassDefinition> classes;
    for (const CIMName& name : enumerateClassNames(nameSpace, className, deepInheritance)) {
        classes.push_back(filteredClass(*schema_.requireClass(nameSpace, name), options.localOnly,
                                        options.includeQualifiers, options.includeClassOrigin,
                                        CIMPropertyList()));
    }
    return classes;
}

std::vector<CIMName> Dispatcher::enumerateClassNames(const CIMNamespaceName& nameSpace,
                                                     const CIMName& className,
                                                     bool deepInheritance) {
    if (!className.isNull()) {
        schema_.requireClass(nameSpace, className);
    }
    return schema_.subclasses(nameSpace, className, deepInheritance);
}

void Dispatcher::requireFilterClass(const Namespace& nameSpace, const CIMName& className) const {
    if (!className.isNull() && schema_.findClass(nameSpace, className) == nullptr) {
        throw CIMException(Pegasus::CIM_ERR_INVALID_PARAMETER, className.getString());
    }
}

/// The association classes that are `assocClass` or inherit from it (every one where it is null)
/// and have an end at which an object of the class may stand.
std::vector<Schema::ClassPointer> Dispatcher::associationClasses(const Namespace& nameSpace,
                                                                 const CIMName& objectClass,
                                                                 const CIMName& assocClass) const {
    schema_.requireNamespace(nameSpace);
    requireFilterClass(nameSpace, objectClass);
    requireFilterClass(nameSpace, assocClass);
    std::vector<CIMName> names = schema_.subclasses(nameSpace, assocClass, true);
    if (!assocClass.isNull()) {
        names.insert(names.begin(), assocClass);
    }
    std::vector<Schema::ClassPointer> found;
    for (const CIMName& name : names) {
        Schema::ClassPointer definition = schema_.requireClass(nameSpace, name);
        bool fits = false;
        for (const wire::PropertyDefinition& end : definition->properties) {
            fits = fits || (end.type == Pegasus::CIMTYPE_REFERENCE &&
                            schema_.isOrInherits(nameSpace, objectClass, end.referenceClass));
        }
        if (fits) {
            found.push_back(std::move(definition));
        }
    }
    return found;
}

/// All instances of the association classes that may refer to the object.
Array<CIMInstance> Dispatcher::associationInstances(const Namespace& nameSpace,
                                                    const CIMName& objectClass,
                                                    const CIMName& assocClass) {
    std::vector<CIMName> names;
    for (const auto& association : associationClasses(nameSpace, objectClass, assocClass)) {
        names.push_back(association->name);
    }
    return joined<CIMInstance>(names,
                               [&](const CIMName& name) { return instancesOf(nameSpace, name); });
}

/// What the association classes declare at the other end of an object of the class.
Array<CIMObjectPath> Dispatcher::associatedClasses(const Namespace& nameSpace,
                                                   const CIMName& objectClass,
                                                   const AssociationFilter& filter) const {
    std::set<CIMName, NameOrder> names;
    for (const auto& association : associationClasses(nameSpace, objectClass, filter.assocClass)) {
        for (const wire::PropertyDefinition& near : association->properties) {
            if (near.type != Pegasus::CIMTYPE_REFERENCE ||
                !serving::roleFits(filter.role, near.name) ||
                !schema_.isOrInherits(nameSpace, objectClass, near.referenceClass)) {
                continue;
            }
            for (const wire::PropertyDefinition& far : association->properties) {
                if (&far != &near && far.type == Pegasus::CIMTYPE_REFERENCE &&
                    serving::roleFits(filter.resultRole, far.name) &&
                    (filter.resultClass.isNull() ||
                     schema_.isOrInherits(nameSpace, far.referenceClass, filter.resultClass))) {
                    names.insert(far.referenceClass);
                }
            }
        }
    }
    Array<CIMObjectPath> paths;
    for (const CIMName& name : names) {
        paths.append(classPath(nameSpace, name));
    }
    return paths;
}

Array<CIMObjectPath> Dispatcher::associatorNames(const CIMNamespaceName& nameSpace,
                                                 const CIMObjectPath& objectName,
                                                 const AssociationFilter& filter) {
    schema_.requireNamespace(nameSpace);
    if (!filter.resultClass.isNull()) {
        // Another status than for an unknown association class, as OpenPegasus has it.
        static_cast<void>(schema_.requireClass(nameSpace, filter.resultClass));
    }
    if (namesClass(objectName)) {
        return associatedClasses(nameSpace, objectName.getClassName(), filter);
    }
    serving::AssociationQuery query;
    query.object = objectName;
    query.role = filter.role;
    query.resultRole = filter.resultRole;
    if (!filter.resultClass.isNull()) {
        query.isResultClass = [&](const CIMName& className) {
            return schema_.isOrInherits(nameSpace, className, filter.resultClass);
        };
    }
    const Array<CIMObjectPath> found = serving::associatedPaths(
        associationInstances(nameSpace, objectName.getClassName(), filter.assocClass), query);
    Array<CIMObjectPath> paths;
    for (Uint32 index = 0; index < found.size(); ++index) {
        paths.append(fullPath(nameSpace, found[index]));
    }
    return paths;
}

Array<CIMInstance> Dispatcher::associators(const CIMNamespaceName& nameSpace,
                                           const CIMObjectPath& objectName,
                                           const AssociationFilter& filter,
                                           const ElementOptions& options) {
    requireInstance(objectName);
    const Array<CIMObjectPath> names = associatorNames(nameSpace, objectName, filter);
    Array<CIMInstance> instances;
    for (Uint32 index = 0; index < names.size(); ++index) {
        try {
            CIMInstance instance = fetch(names[index].getNameSpace(), names[index]);
            filterProperties(instance, options, options.propertyList);
            instance.setPath(names[index]);
            instances.append(instance);
        } catch (const CIMException& refusal) {
            // An association may refer to an object that has gone in the meantime.
            if (refusal.getCode() != Pegasus::CIM_ERR_NOT_FOUND) {
                throw;
            }
        }
    }
    return instances;
}

Array<CIMInstance> Dispatcher::referringInstances(const Namespace& nameSpace,
                                                  const CIMObjectPath& objectName,
                                                  const AssociationFilter& filter) {
    serving::AssociationQuery query;
    query.object = objectName;
    query.role = filter.role;
    return serving::referringInstances(
        associationInstances(nameSpace, objectName.getClassName(), filter.resultClass), query);
}

Array<CIMObjectPath> Dispatcher::referenceNames(const CIMNamespaceName& nameSpace,
                                                const CIMObjectPath& objectName,
                                                const AssociationFilter& filter) {
    Array<CIMObjectPath> paths;
    if (namesClass(objectName)) {
        for (const auto& association :
             associationClasses(nameSpace, objectName.getClassName(), filter.resultClass)) {
            paths.append(classPath(nameSpace, association->name));
        }
        return paths;
    }
    const Array<CIMInstance> found = referringInstances(nameSpace, objectName, filter);
    for (Uint32 index = 0; index < found.size(); ++index) {
        paths.append(fullPath(nameSpace, found[index].getPath()));
    }
    return paths;
}

Array<CIMInstance> Dispatcher::references(const CIMNamespaceName& nameSpace,
                                          const CIMObjectPath& objectName,
                                          const AssociationFilter& filter,
                                          const ElementOptions& options) {
    requireInstance(objectName);
    Array<CIMInstance> found = referringInstances(nameSpace, objectName, filter);
    for (Uint32 index = 0; index < found.size(); ++index) {
        found[index].setPath(fullPath(nameSpace, found[index].getPath()));
        filterProperties(found[index], options, options.propertyList);
    }
    return found;
}

wire::MethodResult Dispatcher::invokeMethod(const CIMNamespaceName& nameSpace,
                                            const CIMObjectPath& objectName,
                                            const CIMName& methodName,
                                            const Array<Pegasus::CIMParamValue>& inParameters) {
    const CIMName& className = objectName.getClassName();
    const auto definition = schema_.findClass(nameSpace, className);
    if (definition == nullptr) {
        throw CIMException(Pegasus::CIM_ERR_NOT_FOUND, className.getString());
    }
    auto* const provider = routes_.methodProvider(nameSpace, className);
    if (provider == nullptr) {
        throw CIMException(Pegasus::CIM_ERR_METHOD_NOT_AVAILABLE, methodName.getString());
    }
    const wire::MethodDefinition* const method = definition->findMethod(methodName);
    const serving::MethodAnswer answer = provider->invokeMethod(
        Pegasus::OperationContext(), providerPath(nameSpace, objectName), methodName.getString(),
        method == nullptr ? inParameters : typedParameters(*method, inParameters));
    wire::MethodResult result;
    if (answer.hasValue) {
        result.returnValue = answer.value;
    }
    result.outParameters = answer.outParameters;
    return result;
}

}  // namespace cimhost
