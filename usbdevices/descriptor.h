// SPDX-License-Identifier: MIT
// The record of a 'D:' line: what is kept of the device descriptor.
// Plain value; not shared between threads.
#pragma once

#include <string>

/// The record of a 'D:' line: what is kept of the device descriptor.
/// Every value is the text of the line as it stands, blanks included; a value that the line does
/// not hold, or whose end marker is missing, is empty.
class descriptor {
public:
    /// Fills every field from `line`, one line of the device list without its line end. Fields that
    /// the line does not hold become empty. Never fails.
    void Initialize(std::string line);

    /// The version of the USB standard.
    std::string getVersion() const { return version_; }
    /// The device protocol code.
    std::string getProtocol() const { return protocol_; }

private:
    std::string version_;
    std::string protocol_;
};
