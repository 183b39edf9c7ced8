// SPDX-License-Identifier: MIT
// The two locks by which whoever serves the provider library keeps requests apart.
#pragma once

#include "servers/serving/TimedMutex.h"

namespace serving {

/// The locks of one loaded library; every provider object made from it shares them.
///
/// 1. A method holds `method` for its whole length, so methods never overlap.
/// 2. Every request holds `table` while it is inside the library, so no two threads touch the
///    library's tables at once.
/// 3. While a request is inside a call back into the server it gives `table` back: such a call may
///    lead to the library again, on this thread or another. These calls only read, so they need
///    `table` but never `method`, and cannot wait for the request that caused them.
/// 4. Nobody waits for ever for a request that does not leave the library, neither to enter it nor to
///    take `table` again after a call back; see ServedProvider.
struct ProviderLocks {
    TimedMutex method;
    TimedMutex table;
};

}  // namespace serving
