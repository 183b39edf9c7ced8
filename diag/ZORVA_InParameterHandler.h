// SPDX-License-Identifier: MIT
// Reads the in-parameters of a method call.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {

/// The in-parameters of one method call, by name. One thread at a time.
class ZORVA_InParameterHandler {
public:
    /// No parameters.
    ZORVA_InParameterHandler() = default;
    explicit ZORVA_InParameterHandler(Array<CIMParamValue> inParameters);
    virtual ~ZORVA_InParameterHandler();

    /// The value of the first parameter of that name, ignoring case. If there is none, the Uint32
    /// return_code::absentParameter, which is no reference.
    CIMValue getInParameterValue(String name);

    /// Whether the value is a reference, null or not. False for an array of references.
    Boolean isParamTypeReference(CIMValue value);

    /// Fetches the instance that the reference designates, with one call to the server in the
    /// namespace that the reference names.
    ///
    /// Returns a null instance if the value is null or no reference, without a call to the server,
    /// and if the server throws any exception of the object model. Other exceptions propagate.
    CIMInstance getInParameterInstance(CIMOMHandle handle, CIMValue reference);

private:
    Array<CIMParamValue> inParameters_;
};

}  // namespace Pegasus
