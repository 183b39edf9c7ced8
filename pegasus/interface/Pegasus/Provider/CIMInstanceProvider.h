// SPDX-License-Identifier: MIT
// The interface of a provider of instances.
#pragma once

#include <Pegasus/Provider/CIMBaseProvider.h>
#include <Pegasus/Provider/ResponseHandler.h>

namespace Pegasus {
inline namespace provider_interface {

/// A provider of instances.
///
/// Every operation answers through its handler and rejects a request by an exception. Called on any
/// thread; the server lets operations overlap only while they call back into it.
class CIMInstanceProvider : public virtual CIMBaseProvider {
public:
    /// Delivers the instance that the path designates.
    virtual void getInstance(const OperationContext& context, const CIMObjectPath& ref,
                             Uint32 flags, const CIMPropertyList& propertyList,
                             ResponseHandler<CIMInstance>& handler) = 0;

    /// Delivers all instances of the path's class.
    virtual void enumerateInstances(const OperationContext& context, const CIMObjectPath& ref,
                                    Uint32 flags, const CIMPropertyList& propertyList,
                                    ResponseHandler<CIMInstance>& handler) = 0;

    /// Delivers the paths of all instances of the path's class.
    virtual void enumerateInstanceNames(const OperationContext& context, const CIMObjectPath& ref,
                                        ResponseHandler<CIMObjectPath>& handler) = 0;

    /// Replaces the properties of an instance.
    virtual void modifyInstance(const OperationContext& context, const CIMObjectPath& ref,
                                const CIMInstance& instance, Uint32 flags,
                                const CIMPropertyList& propertyList,
                                ResponseHandler<void>& handler) = 0;

    /// Creates an instance and delivers its path.
    virtual void createInstance(const OperationContext& context, const CIMObjectPath& ref,
                                const CIMInstance& instance,
                                ResponseHandler<CIMObjectPath>& handler) = 0;

    /// Deletes an instance.
    virtual void deleteInstance(const OperationContext& context, const CIMObjectPath& ref,
                                ResponseHandler<void>& handler) = 0;
};

}  // namespace provider_interface
}  // namespace Pegasus
