// SPDX-License-Identifier: MIT
// The provider's debug log and the current time as CIM writes it.
#pragma once

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Debug log and clock of the provider.
class ZORVA_DiagUtils {
public:
    ZORVA_DiagUtils() = default;
    virtual ~ZORVA_DiagUtils();

    /// Appends the message to the debug log exactly as it stands: callers supply their own leading
    /// blanks and line ends.
    ///
    /// The log's name is fixed when the library is built (CMake variable ZORVA_LOG_FILE; an empty
    /// one turns the log off). A log that cannot be written is passed over in silence. Any thread
    /// may call this; a line written in several calls may be split by another thread's text.
    static void DEBUG_PRINT(String message);

    /// The current local time with its offset from UTC.
    static CIMDateTime getCurrentDateTime();
};

}  // namespace Pegasus
