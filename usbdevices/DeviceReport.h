// SPDX-License-Identifier: MIT
// What the stand-alone driver prints of a device list.
// One thread at a time.
#pragma once

#include <ostream>
#include <queue>
#include <stdexcept>

#include "usbdevices/UsbDevice.h"

/// A device that cannot be reported because a field that must hold a number is empty. The text
/// names the device and the field.
class EmptyFieldError : public std::out_of_range {
public:
    using std::out_of_range::out_of_range;
};

/// Prints the root hubs of OHCI controllers, each behind a line with its level, and every device
/// one level below the last of them; below level 0 before the first. Walks `devices` once and
/// leaves it in its order.
///
/// Throws EmptyFieldError at the first device whose level is empty, or which is printed and whose
/// interface class, subclass or protocol code is. What was printed until then stays in `out`.
void printDeviceReport(std::ostream& out, std::queue<UsbDevice>& devices);
