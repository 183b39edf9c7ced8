// SPDX-License-Identifier: MIT
#include "servers/cimhost/repository/Repository.h"

#include <utility>
#include <vector>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

#include "servers/cimhost/repository/InstanceForms.h"
#include "servers/serving/PathForms.h"

namespace cimhost {

using Pegasus::CIMException;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMNamespaceName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint32;

const Repository::Extent* Repository::findExtent(const CIMNamespaceName& nameSpace,
                                                 const CIMName& className) const {
    const auto extents = namespaces_.find(nameSpace);
    if (extents == namespaces_.end()) {
        return nullptr;
    }
    const auto extent = extents->second.find(className);
    return extent == extents->second.end() ? nullptr : &extent->second;
}

const CIMInstance& Repository::require(const CIMNamespaceName& nameSpace,
                                       const CIMObjectPath& path) const {
    const Extent* const extent = findExtent(nameSpace, path.getClassName());
    if (extent != nullptr) {
        const auto found = extent->byIdentity.find(instanceIdentity(path));
        if (found != extent->byIdentity.end()) {
            return *found->second;
        }
    }
    throw CIMException(Pegasus::CIM_ERR_NOT_FOUND, serving::withoutLocation(path).toString());
}

CIMObjectPath Repository::createInstance(const CIMNamespaceName& nameSpace,
                                         const CIMInstance& instance) {
    const auto definition = schema_.requireClass(nameSpace, instance.getClassName());
    CIMInstance complete = completeInstance(*definition, instance.clone(), nameSpace);
    CIMObjectPath path = complete.getPath();
    std::string identity = instanceIdentity(path);

    const base::ExclusiveLock lock(mutex_);
    Extent& extent = namespaces_[nameSpace][definition->name];
    if (extent.byIdentity.find(identity) != extent.byIdentity.end()) {
        throw CIMException(Pegasus::CIM_ERR_ALREADY_EXISTS, path.toString());
    }
    if (instanceCount_ >= maximumInstances) {
        throw CIMException(Pegasus::CIM_ERR_SERVER_LIMITS_EXCEEDED,
                           "the repository holds as many instances as it may");
    }
    const auto position = extent.instances.insert(extent.instances.end(), std::move(complete));
    extent.byIdentity.emplace(std::move(identity), position);
    ++instanceCount_;
    return path;
}

CIMInstance Repository::getInstance(const CIMNamespaceName& nameSpace,
                                    const CIMObjectPath& path) const {
    schema_.requireClass(nameSpace, path.getClassName());
    const base::SharedLock lock(mutex_);
    return require(nameSpace, path).clone();
}

void Repository::modifyInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& path,
                                const CIMInstance& changes,
                                const Pegasus::CIMPropertyList& propertyList) {
    const auto definition = schema_.requireClass(nameSpace, path.getClassName());
    const CIMInstance given = changes.clone();

    const base::ExclusiveLock lock(mutex_);
    CIMInstance stored = require(nameSpace, path);
    std::vector<std::pair<Uint32, CIMValue>> accepted;
    for (Uint32 index = 0; index < given.getPropertyCount(); ++index) {
        const Pegasus::CIMConstProperty property = given.getProperty(index);
        if (!propertyList.isNull() && !propertyList.contains(property.getName())) {
            continue;
        }
        const wire::PropertyDefinition* const declared =
            definition->findProperty(property.getName());
        if (declared == nullptr) {
            throw CIMException(Pegasus::CIM_ERR_NO_SUCH_PROPERTY, property.getName().getString());
        }
        const Uint32 position = stored.findProperty(declared->name);
        CIMValue value = storedValue(*declared, property.getValue(), nameSpace);
        if (declared->isKey() && !(value == stored.getProperty(position).getValue())) {
            throw CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED,
                               String("the key ") + declared->name.getString() +
                                   " of an instance cannot be changed");
        }
        accepted.emplace_back(position, std::move(value));
    }
    for (const auto& [position, value] : accepted) {
        Pegasus::CIMProperty property = stored.getProperty(position);
        property.setValue(value);
        property.setPropagated(false);
    }
}

void Repository::deleteInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& path) {
    schema_.requireClass(nameSpace, path.getClassName());
    const base::ExclusiveLock lock(mutex_);
    require(nameSpace, path);
    Extent& extent = namespaces_[nameSpace][path.getClassName()];
    const auto found = extent.byIdentity.find(instanceIdentity(path));
    extent.instances.erase(found->second);
    extent.byIdentity.erase(found);
    --instanceCount_;
}

Pegasus::Array<CIMInstance> Repository::enumerateInstances(const CIMNamespaceName& nameSpace,
                                                           const CIMName& className) const {
    schema_.requireClass(nameSpace, className);
    Pegasus::Array<CIMInstance> result;
    const base::SharedLock lock(mutex_);
    if (const Extent* const extent = findExtent(nameSpace, className); extent != nullptr) {
        for (const CIMInstance& instance : extent->instances) {
            result.append(instance.clone());
        }
    }
    return result;
}

Pegasus::Array<CIMObjectPath> Repository::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                                 const CIMName& className) const {
    schema_.requireClass(nameSpace, className);
    Pegasus::Array<CIMObjectPath> result;
    const base::SharedLock lock(mutex_);
    if (const Extent* const extent = findExtent(nameSpace, className); extent != nullptr) {
        for (const CIMInstance& instance : extent->instances) {
            result.append(instance.getPath());
        }
    }
    return result;
}

}  // namespace cimhost
