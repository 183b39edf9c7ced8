// SPDX-License-Identifier: MIT
// Apart from its users: whoever links to the library may bring a name of its own.
#include "diag/DebugLogFile.h"

namespace Pegasus {

const char* const debugLogName = ZORVA_LOG_FILE;

}  // namespace Pegasus
