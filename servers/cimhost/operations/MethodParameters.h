// SPDX-License-Identifier: MIT
// Types for the parameters of a method that came without.
//
// Functions without state; any thread may call them.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMParamValue.h>

#include "wire/cimxml/ClassDefinition.h"

namespace cimhost {

/// The parameters with those that are not typed converted to what the method declares. A parameter
/// that came typed, and one whose name the method does not have, stay as they are.
///
/// Throws CIMException as OpenPegasus does: CIM_ERR_INVALID_PARAMETER "Malformed TYPE value" for
/// text that is no value of the declared type, CIM_ERR_TYPE_MISMATCH with the parameter's name for
/// an array in place of a single value or the other way round, or for a reference in place of a
/// value.
Pegasus::Array<Pegasus::CIMParamValue> typedParameters(
    const wire::MethodDefinition& method, const Pegasus::Array<Pegasus::CIMParamValue>& parameters);

}  // namespace cimhost
