// SPDX-License-Identifier: MIT
// The name of CIMKeyBinding in the provider interface.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

namespace Pegasus {
inline namespace provider_interface {

/// One key of an object path.
using KeyBinding = CIMKeyBinding;

}  // namespace provider_interface
}  // namespace Pegasus
