// SPDX-License-Identifier: MIT
// What the device information test reports of a device.
#pragma once

#include <functional>

#include <Pegasus/Common/String.h>

#include "usbdevices/UsbDevice.h"

namespace Pegasus {

/// Hands the block of one device to `writeLine`, line by line.
///
/// 1. A line is its label, padded with blanks to 30 characters, and its value as the list has it,
///    made text by textFromBytes().
/// 2. Class, subclass and protocol are named by their codes. A class or subclass that has no name,
///    or no code, has an empty value; a protocol line without a name is left out. A device without
///    a class code has neither a subclass nor a protocol.
/// 3. A line of ten blanks ends the block.
///
/// Exceptions of `writeLine` pass. One thread at a time.
void reportDevice(const UsbDevice& device, const std::function<void(String)>& writeLine);

}  // namespace Pegasus
