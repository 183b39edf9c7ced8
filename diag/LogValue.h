// SPDX-License-Identifier: MIT
// Values of clients and devices inside texts of the debug log.
#pragma once

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Makes a value from a client or a device fit into a line of the debug log: each control character
/// (U+0000 to U+001F, U+007F to U+009F) becomes `\xHH`, its number in two lower-case digits, so that
/// no value can forge a line or reach the terminal of whoever reads the log. All else stays.
///
/// Never fails. Any thread may call it.
String logValue(const String& value);

}  // namespace Pegasus
