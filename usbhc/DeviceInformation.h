// SPDX-License-Identifier: MIT
// Makes the report lines of a device.
#pragma once

#include <functional>

#include <Pegasus/Common/String.h>

#include "usbdevices/UsbDevice.h"

namespace Pegasus {

/// Calls `useLine` with each line of the device's block in the report, in order.
///
/// 1. A line is a label, padded with blanks to 30 characters, and the value in the list, converted
///    by textFromBytes().
/// 2. Class, subclass and protocol are given by name. The value is empty for a class or subclass
///    without a name or without a code; the line of a protocol without a name is left out. A device
///    without a class code has neither a subclass nor a protocol.
/// 3. The last line of the block is ten blanks.
///
/// Exceptions of `useLine` propagate. Any thread may call it; the device is used by one thread at a
/// time.
void forEachReportLine(const UsbDevice& device, const std::function<void(String)>& useLine);

}  // namespace Pegasus
