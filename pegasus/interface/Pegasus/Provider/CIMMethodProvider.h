// SPDX-License-Identifier: MIT
// The extrinsic methods that a server routes to a provider.
#pragma once

#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Provider/CIMBaseProvider.h>
#include <Pegasus/Provider/ResponseHandler.h>

namespace Pegasus {
inline namespace provider_interface {

/// A provider of methods.
class CIMMethodProvider : public virtual CIMBaseProvider {
public:
    /// Invokes a method of the object: appends out-parameters to the array and delivers the return
    /// value, if the method has one, through the handler. The server promises that methods never
    /// overlap.
    virtual void invokeMethod(const OperationContext& context, const CIMObjectPath& ref,
                              const String& methodName, const Array<CIMParamValue>& inParameters,
                              Array<CIMParamValue>& outParameters,
                              ResponseHandler<CIMValue>& handler) = 0;
};

}  // namespace provider_interface
}  // namespace Pegasus
