// SPDX-License-Identifier: MIT
// The provider interface's name for one key of an object path.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

namespace Pegasus {
inline namespace provider_interface {

using KeyBinding = CIMKeyBinding;

}  // namespace provider_interface
}  // namespace Pegasus
