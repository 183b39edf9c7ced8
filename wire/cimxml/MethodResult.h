// SPDX-License-Identifier: MIT
// What a method call answers.
#pragma once

#include <optional>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>

namespace wire {

/// What a method call answers. A plain value; one thread at a time.
struct MethodResult {
    std::optional<Pegasus::CIMValue> returnValue;  ///< absent: the call completed without a value
    Pegasus::Array<Pegasus::CIMParamValue> outParameters;
};

}  // namespace wire
