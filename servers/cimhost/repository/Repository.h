// SPDX-License-Identifier: MIT
// The instances that no provider serves, in memory.
#pragma once

#include <list>
#include <map>
#include <string>
#include <unordered_map>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include "base/ThreadSafety.h"
#include "servers/cimhost/schema/NameOrder.h"
#include "servers/cimhost/schema/Schema.h"

namespace cimhost {

/// Instances of the classes of a schema, kept as long as the process lives.
///
/// Any number of threads may call any operation; instances handed out are the caller's own.
/// Refusals are CIMExceptions as OpenPegasus answers them: CIM_ERR_INVALID_NAMESPACE and
/// CIM_ERR_INVALID_CLASS with the name, CIM_ERR_NOT_FOUND and CIM_ERR_ALREADY_EXISTS with the path.
/// What a request's paths take to be read, compared or written is done without the lock, and so is
/// the copying of instances, so that it holds up nobody else.
class Repository {
public:
    /// Instances of all classes together; one more is CIM_ERR_SERVER_LIMITS_EXCEEDED.
    static constexpr std::size_t maximumInstances = 10000;

    /// Bytes of all instances together, as sizeOf() counts them; likewise.
    static constexpr std::size_t maximumBytes = 32UL * 1024 * 1024;

    /// The schema must outlive the repository and not change while the repository is used by
    /// several threads.
    explicit Repository(const Schema& schema) : schema_(schema) {}

    /// Stores a new instance, completed with its class' defaults (see completeInstance), and
    /// returns its name.
    Pegasus::CIMObjectPath createInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                          const Pegasus::CIMInstance& instance);

    /// The instance of exactly that class and those keys.
    Pegasus::CIMInstance getInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& path) const;

    /// Changes the properties given, or those of them in the list where it is not null. Nothing is
    /// changed if one of them is refused: CIM_ERR_NO_SUCH_PROPERTY, CIM_ERR_FAILED "type mismatch",
    /// CIM_ERR_NOT_SUPPORTED for another value of a key, CIM_ERR_SERVER_LIMITS_EXCEEDED for too much.
    void modifyInstance(const Pegasus::CIMNamespaceName& nameSpace,
                        const Pegasus::CIMObjectPath& path, const Pegasus::CIMInstance& changes,
                        const Pegasus::CIMPropertyList& propertyList);

    void deleteInstance(const Pegasus::CIMNamespaceName& nameSpace,
                        const Pegasus::CIMObjectPath& path);

    /// The instances of exactly that class, in the order of their making, each with its path.
    Pegasus::Array<Pegasus::CIMInstance> enumerateInstances(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className) const;

    /// Their names.
    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className) const;

private:
    struct Stored {
        // Never changed, only replaced: it is cloned without the lock.
        Pegasus::CIMInstance instance;
        std::size_t bytes;
    };
    using Instances = std::list<Stored>;

    /// The instances of one class in one namespace.
    struct Extent {
        Instances instances;
        std::unordered_map<std::string, Instances::iterator> byIdentity;
    };
    using Extents = std::map<Pegasus::CIMName, Extent, NameOrder>;

    /// The stored instance itself, not to be changed; a null handle if there is none.
    Pegasus::CIMInstance find(const Pegasus::CIMNamespaceName& nameSpace,
                              const Pegasus::CIMName& className, const std::string& identity) const;

    /// Null where there are no instances of the class.
    const Extent* findExtent(const Pegasus::CIMNamespaceName& nameSpace,
                             const Pegasus::CIMName& className) const ZORVA_REQUIRES_SHARED(mutex_);
    void requireRoom(std::size_t moreBytes) const ZORVA_REQUIRES_SHARED(mutex_);

    const Schema& schema_;
    mutable base::SharedMutex mutex_;
    std::map<Pegasus::CIMNamespaceName, Extents, NameOrder> namespaces_ ZORVA_GUARDED_BY(mutex_);
    std::size_t instanceCount_ ZORVA_GUARDED_BY(mutex_) = 0;
    std::size_t bytes_ ZORVA_GUARDED_BY(mutex_) = 0;
};

}  // namespace cimhost
