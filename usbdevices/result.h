// SPDX-License-Identifier: MIT
// The reader of the kernel's USB device list.
// One thread at a time; each caller makes its own.
#pragma once

#include <memory>
#include <queue>
#include <string_view>

#include "usbdevices/UsbDevice.h"

/// Reads the kernel's USB device list and hands its devices out as a queue, in the list's order.
class result {
public:
    /// Reads the kernel's list, see ZORVA_DEVICE_LIST_PATH, and returns all devices read so far: a second call
    /// appends the devices again behind those of the first.
    ///
    /// Writes the line "test code for usb host controller " to standard output first, and
    /// "could not open usb device file " and "could not read file " there where that happens. There
    /// is no other sign of a failure: what cannot be read counts as an empty list.
    ///
    /// 1. The list is read once, at most 8192 bytes; the rest of a longer one is not seen.
    /// 2. The text ends at its first zero byte, and each line at its line feed: what stands behind
    ///    the last line feed is not processed.
    /// 3. As many lines are processed as there are line feeds, the very first character not counted.
    ///    So the last line of a list that begins with an empty line is not processed.
    /// 4. The first letter of a line says which record it goes to: T, S, D, P, I or C. Other lines
    ///    are ignored.
    /// 5. The first line that begins with "E" after one that begins with "T" closes a device. Lines
    ///    of that device which come later (further interfaces) spill into the next one, whose own
    ///    lines overwrite them where they are of the same kind.
    /// 6. A device that no "E" line closes never reaches the queue: the next one overwrites it, or
    ///    the text ends.
    std::queue<UsbDevice> GetUsbDeviceInfomation();

private:
    /// Appends the devices of `text`, a whole device list, to the queue (steps 2 to 6 above).
    void appendDevices(std::string_view text);
    /// Hands `line` to the record of the current device that its first letter names.
    void fillCurrent(char letter, std::string_view line);

    // Nothing counts with these; they belong to the layout that users of the class know.
    [[maybe_unused]] int controllers_ = 0;
    [[maybe_unused]] int hubs_ = 0;
    [[maybe_unused]] int ports_ = 0;
    std::queue<UsbDevice> devices_;
    std::unique_ptr<UsbDevice> current_;
};
