// SPDX-License-Identifier: MIT
#include "servers/cimhost/repository/Repository.h"

#include <utility>
#include <vector>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

#include "servers/cimhost/repository/InstanceForms.h"
#include "servers/cimhost/repository/InstanceSize.h"
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

namespace {

[[noreturn]] void notFound(const CIMObjectPath& path) {
    throw CIMException(Pegasus::CIM_ERR_NOT_FOUND, serving::withoutLocation(path).toString());
}

/// A property and the value that it is to get.
struct Change {
    CIMName property;
    CIMValue value;
};

/// What is to be changed of `stored`; throws what modifyInstance() does.
std::vector<Change> acceptedChanges(const wire::ClassDefinition& definition,
                                    const CIMNamespaceName& nameSpace, const CIMInstance& stored,
                                    const CIMInstance& given,
                                    const Pegasus::CIMPropertyList& propertyList) {
    std::vector<Change> accepted;
    for (Uint32 index = 0; index < given.getPropertyCount(); ++index) {
        const Pegasus::CIMConstProperty property = given.getProperty(index);
        if (!propertyList.isNull() && !propertyList.contains(property.getName())) {
            continue;
        }
        const wire::PropertyDefinition* const declared =
            definition.findProperty(property.getName());
        if (declared == nullptr) {
            throw CIMException(Pegasus::CIM_ERR_NO_SUCH_PROPERTY, property.getName().getString());
        }
        CIMValue value = storedValue(*declared, property.getValue(), nameSpace);
        const Uint32 position = stored.findProperty(declared->name);
        if (declared->isKey() && !(value == stored.getProperty(position).getValue())) {
            throw CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED,
                               String("the key ") + declared->name.getString() +
                                   " of an instance cannot be changed");
        }
        accepted.push_back({declared->name, std::move(value)});
    }
    return accepted;
}

}  // namespace

const Repository::Extent* Repository::findExtent(const CIMNamespaceName& nameSpace,
                                                 const CIMName& className) const {
    const auto extents = namespaces_.find(nameSpace);
    if (extents == namespaces_.end()) {
        return nullptr;
    }
    const auto extent = extents->second.find(className);
    return extent == extents->second.end() ? nullptr : &extent->second;
}

void Repository::requireRoom(std::size_t moreBytes) const {
    if (bytes_ + moreBytes > maximumBytes) {
        constexpr std::size_t mebibyte = 1024UL * 1024;
        const std::string text = "the instances of the repository would take more than " +
                                 std::to_string(maximumBytes / mebibyte) + " MiB";
        throw CIMException(Pegasus::CIM_ERR_SERVER_LIMITS_EXCEEDED, String(text.c_str()));
    }
}

CIMObjectPath Repository::createInstance(const CIMNamespaceName& nameSpace,
                                         const CIMInstance& instance) {
    const auto definition = schema_.requireClass(nameSpace, instance.getClassName());
    CIMInstance complete = completeInstance(*definition, instance.clone(), nameSpace);
    CIMObjectPath path = complete.getPath();
    std::string identity = instanceIdentity(path);
    const std::size_t bytes = sizeOf(complete);
    const String text = path.toString();

    const base::ExclusiveLock lock(mutex_);
    Extent& extent = namespaces_[nameSpace][definition->name];
    if (extent.byIdentity.find(identity) != extent.byIdentity.end()) {
        throw CIMException(Pegasus::CIM_ERR_ALREADY_EXISTS, text);
    }
    if (instanceCount_ >= maximumInstances) {
        throw CIMException(Pegasus::CIM_ERR_SERVER_LIMITS_EXCEEDED,
                           "the repository holds as many instances as it may");
    }
    requireRoom(bytes);
    const auto position =
        extent.instances.insert(extent.instances.end(), {std::move(complete), bytes});
    extent.byIdentity.emplace(std::move(identity), position);
    ++instanceCount_;
    bytes_ += bytes;
    return path;
}

CIMInstance Repository::find(const CIMNamespaceName& nameSpace, const CIMName& className,
                             const std::string& identity) const {
    const base::SharedLock lock(mutex_);
    if (const Extent* const extent = findExtent(nameSpace, className)) {
        const auto found = extent->byIdentity.find(identity);
        if (found != extent->byIdentity.end()) {
            return found->second->instance;
        }
    }
    return CIMInstance();
}

CIMInstance Repository::getInstance(const CIMNamespaceName& nameSpace,
                                    const CIMObjectPath& path) const {
    schema_.requireClass(nameSpace, path.getClassName());
    const std::string identity = instanceIdentity(path);
    const CIMInstance stored = find(nameSpace, path.getClassName(), identity);
    if (stored.isUninitialized()) {
        notFound(path);
    }
    return stored.clone();
}

void Repository::modifyInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& path,
                                const CIMInstance& changes,
                                const Pegasus::CIMPropertyList& propertyList) {
    const auto definition = schema_.requireClass(nameSpace, path.getClassName());
    // The keys of an instance of that identity never change, so that a copy tells enough.
    const std::vector<Change> accepted = acceptedChanges(
        *definition, nameSpace, getInstance(nameSpace, path), changes.clone(), propertyList);
    std::size_t bytesOfNew = 0;
    for (const Change& change : accepted) {
        bytesOfNew += sizeOf(change.value);
    }
    const std::string identity = instanceIdentity(path);
    {
        const base::ExclusiveLock lock(mutex_);
        const Extent& extent = namespaces_[nameSpace][path.getClassName()];
        const auto found = extent.byIdentity.find(identity);
        if (found != extent.byIdentity.end()) {
            Stored& stored = *found->second;
            CIMInstance changed = stored.instance.clone();
            std::vector<Pegasus::CIMProperty> properties;
            std::size_t bytesOfOld = 0;
            for (const Change& change : accepted) {
                properties.push_back(changed.getProperty(changed.findProperty(change.property)));
                bytesOfOld += sizeOf(properties.back().getValue());
            }
            if (bytesOfNew > bytesOfOld) {
                requireRoom(bytesOfNew - bytesOfOld);
            }
            for (std::size_t i = 0; i < accepted.size(); ++i) {
                properties[i].setValue(accepted[i].value);
                properties[i].setPropagated(false);
            }
            stored.instance = std::move(changed);
            stored.bytes += bytesOfNew - bytesOfOld;
            bytes_ += bytesOfNew - bytesOfOld;
            return;
        }
    }
    notFound(path);
}

void Repository::deleteInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& path) {
    schema_.requireClass(nameSpace, path.getClassName());
    const std::string identity = instanceIdentity(path);
    {
        const base::ExclusiveLock lock(mutex_);
        Extent& extent = namespaces_[nameSpace][path.getClassName()];
        const auto found = extent.byIdentity.find(identity);
        if (found != extent.byIdentity.end()) {
            bytes_ -= found->second->bytes;
            --instanceCount_;
            extent.instances.erase(found->second);
            extent.byIdentity.erase(found);
            return;
        }
    }
    notFound(path);
}

Pegasus::Array<CIMInstance> Repository::enumerateInstances(const CIMNamespaceName& nameSpace,
                                                           const CIMName& className) const {
    schema_.requireClass(nameSpace, className);
    std::vector<CIMInstance> found;
    {
        const base::SharedLock lock(mutex_);
        if (const Extent* const extent = findExtent(nameSpace, className); extent != nullptr) {
            found.reserve(extent->instances.size());
            for (const Stored& stored : extent->instances) {
                found.push_back(stored.instance);
            }
        }
    }
    Pegasus::Array<CIMInstance> result;
    result.reserveCapacity(static_cast<Uint32>(found.size()));
    for (const CIMInstance& stored : found) {
        result.append(stored.clone());
    }
    return result;
}

Pegasus::Array<CIMObjectPath> Repository::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                                 const CIMName& className) const {
    schema_.requireClass(nameSpace, className);
    Pegasus::Array<CIMObjectPath> result;
    const base::SharedLock lock(mutex_);
    if (const Extent* const extent = findExtent(nameSpace, className); extent != nullptr) {
        for (const Stored& stored : extent->instances) {
            result.append(stored.instance.getPath());
        }
    }
    return result;
}

}  // namespace cimhost
