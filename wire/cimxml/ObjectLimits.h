// SPDX-License-Identifier: MIT
// How large the objects in a message may be. An object at a limit is taken, one beyond it is refused.
//
// The text of a path doubles its quotation marks and backslashes with each reference that the path
// is nested in, so that the size of the request alone does not bound it.
#pragma once

#include <Pegasus/Common/Config.h>

namespace wire {

constexpr Pegasus::Uint32 maximumReferenceDepth = 8;  ///< of references in each other's keys
constexpr Pegasus::Uint32 maximumKeyLength = 4096;  ///< of a key that is no reference; UTF-16 units
constexpr Pegasus::Uint32 maximumPathLength = 8192;  ///< of a path written as text; UTF-16 units
constexpr Pegasus::Uint32 maximumProperties = 256;   ///< of an instance, and in a list of names

}  // namespace wire
