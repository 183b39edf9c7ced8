// SPDX-License-Identifier: MIT
// The provider's debug log and clock.
#pragma once

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Debug log and clock of the provider. All operations may be called from any thread.
class ZORVA_DiagUtils {
public:
    ZORVA_DiagUtils() = default;
    virtual ~ZORVA_DiagUtils();

    /// Appends the message to the debug log unchanged: callers supply leading blanks and line ends,
    /// and have logValue() look through what clients and devices sent.
    ///
    /// The name of the log is fixed when the library is built (CMake variable ZORVA_LOG_FILE; an
    /// empty name turns the log off). Failures to write are ignored. The text of another thread may
    /// come between two calls.
    static void DEBUG_PRINT(String message);

    /// The current local time with its offset from UTC.
    static CIMDateTime getCurrentDateTime();
};

}  // namespace Pegasus
