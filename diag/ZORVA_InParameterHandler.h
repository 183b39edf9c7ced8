// SPDX-License-Identifier: MIT
// Reading the in-parameters of an invoked method.
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

    /// The value of the first parameter of that name, ignoring case; the Uint32
    /// ReturnCode::ABSENT_PARAMETER, which is no reference, if there is none.
    CIMValue getInParameterValue(String name);

    /// Whether the value is of the type reference, null or not. An array of references is not.
    Boolean isParamTypeReference(CIMValue value);

    /// The instance that the reference designates, fetched from the server by one call in the
    /// namespace that the reference names.
    ///
    /// A null instance where the value is null (the server is not asked then) or no reference, and
    /// where the server refuses with any exception of the object model.
    CIMInstance getInParameterInstance(CIMOMHandle handle, CIMValue reference);

private:
    Array<CIMParamValue> inParameters_;
};

}  // namespace Pegasus
