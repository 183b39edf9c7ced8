// SPDX-License-Identifier: MIT
// The reader of the kernel's USB device list.
#pragma once

#include <memory>
#include <queue>
#include <string_view>

#include "usbdevices/UsbDevice.h"

/// Reads the kernel's USB device list and returns its devices as a queue, in the order of the list.
/// Each caller makes its own reader, which is used by one thread at a time.
class result {
public:
    /// Reads the kernel's list (CMake variable ZORVA_DEVICE_LIST_PATH) and returns all devices that
    /// this reader has read: a second call appends its devices to those of the first.
    ///
    /// Writes the line "test code for usb host controller " to standard output, and after it
    /// "could not open usb device file " and "could not read file " if that happens. Failures are
    /// not reported otherwise: a list that cannot be read counts as empty.
    ///
    /// 1. The list is read once, at most 8192 bytes; the rest of a longer list is ignored.
    /// 2. The text ends at its first zero byte, and each line at its line feed: text after the last
    ///    line feed is not processed.
    /// 3. As many lines are processed as there are line feeds, not counting the first character of
    ///    the text. So the last line of a list that begins with an empty line is not processed.
    /// 4. The first letter of a line selects its record: T, S, D, P, I or C. Other lines are
    ///    ignored.
    /// 5. The first line that begins with "E" after one that begins with "T" completes a device.
    ///    Later lines of that device (further interfaces) go to the next one, whose own lines of
    ///    the same kind overwrite them.
    /// 6. A device without an "E" line is not added to the queue: the next one overwrites it, or
    ///    the text ends.
    std::queue<UsbDevice> GetUsbDeviceInfomation();

private:
    /// Appends the devices of `text`, a whole device list, to the queue (steps 2 to 6).
    void appendDevices(std::string_view text);
    /// Sets the record of the current device that `letter` selects.
    void fillCurrent(char letter, std::string_view line);

    // Unused; kept because the layout of this class is fixed.
    [[maybe_unused]] int controllers_ = 0;
    [[maybe_unused]] int hubs_ = 0;
    [[maybe_unused]] int ports_ = 0;
    std::queue<UsbDevice> devices_;
    std::unique_ptr<UsbDevice> current_;
};
