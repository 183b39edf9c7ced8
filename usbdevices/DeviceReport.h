// SPDX-License-Identifier: MIT
// The report of the stand-alone driver.
#pragma once

#include <ostream>
#include <queue>
#include <stdexcept>

#include "usbdevices/UsbDevice.h"

/// A device cannot be reported because a field that must be a number is empty. The text names the
/// device and the field.
class EmptyFieldError : public std::out_of_range {
public:
    using std::out_of_range::out_of_range;
};

/// Prints the root hubs of OHCI controllers, each after a line with its level, and every device one
/// level below the last of them, or below level 0 before the first. `devices` is rotated once, so
/// it is in its former order when the function returns.
///
/// Throws EmptyFieldError at the first device whose level is empty, or which is printed and whose
/// interface class, subclass or protocol code is empty. What was printed before stays in `out`.
/// Any thread may call it; `out`, the queue and its devices are used by one thread at a time.
void printDeviceReport(std::ostream& out, std::queue<UsbDevice>& devices);
