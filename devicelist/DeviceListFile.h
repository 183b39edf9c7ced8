// SPDX-License-Identifier: MIT
// Files that hold a device list.
#pragma once

#include <stdexcept>
#include <string>

namespace devicelist {

/// Why a file was not read; the text is the reason alone, without the file's name.
class DeviceListFileError : public std::runtime_error {
public:
    DeviceListFileError(bool isMissing, const std::string& reason)
        : std::runtime_error(reason), isMissing_(isMissing) {}

    /// Whether there is no such file.
    bool isMissing() const { return isMissing_; }

private:
    bool isMissing_;
};

/// The whole content of the file, a kernel's list or a recorded one, maximumListSize bytes at most.
///
/// It never waits: a FIFO is refused and not touched, since its content is for somebody else.
/// Throws DeviceListFileError. Any thread may call it.
std::string readDeviceListFile(const std::string& path);

/// The same of regular files alone: of a pipe or a terminal it would take what the provider is to
/// read.
std::string readRegularDeviceListFile(const std::string& path);

/// What the open file `descriptor` holds from its position on. Waits where the file does.
std::string readOpenDeviceList(int descriptor);

}  // namespace devicelist
