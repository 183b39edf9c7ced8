// SPDX-License-Identifier: MIT
// The CIM namespace of the provider's classes.
#pragma once

namespace Pegasus {

// A character array, not a String: static objects in several files use it while the library is
// loaded, in an order that nothing fixes.
constexpr char providerNamespace[] = "root/kavex";

}  // namespace Pegasus
