// SPDX-License-Identifier: MIT
// The CIM namespace in which the provider's classes live.
#pragma once

namespace Pegasus {

// A character array and no String: objects with static lifetime in several files need it while the
// library is being loaded, in whatever order the loader constructs them.
constexpr char PROVIDER_NAMESPACE[] = "root/kavex";

}  // namespace Pegasus
