// SPDX-License-Identifier: MIT
// The interface of a provider of methods.
#pragma once

#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Provider/CIMBaseProvider.h>
#include <Pegasus/Provider/ResponseHandler.h>

namespace Pegasus {
inline namespace provider_interface {

/// A provider of extrinsic methods.
class CIMMethodProvider : public virtual CIMBaseProvider {
public:
    /// Invokes a method of the object `ref`. Appends the out-parameters to the array and delivers
    /// the return value, if there is one, through the handler. Rejects a request by an exception.
    /// Called on any thread; the server does not let methods overlap.
    virtual void invokeMethod(const OperationContext& context, const CIMObjectPath& ref,
                              const String& methodName, const Array<CIMParamValue>& inParameters,
                              Array<CIMParamValue>& outParameters,
                              ResponseHandler<CIMValue>& handler) = 0;
};

}  // namespace provider_interface
}  // namespace Pegasus
