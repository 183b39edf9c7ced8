// SPDX-License-Identifier: MIT
// The record of a 'D:' line.
// A plain value: one thread at a time, unless it is only read.
#pragma once

#include <string>

/// The record of a 'D:' line: fields of the device descriptor.
/// A value is the unchanged text of the line, with its blanks. It is empty if the line does not
/// have it or if its end marker is missing.
class descriptor {
public:
    /// Sets all fields from `line`, one line of the device list without its line end. Fields that
    /// the line does not have become empty. Never fails.
    void Initialize(std::string line);

    /// The version of USB that the device complies with.
    std::string getVersion() const { return version_; }
    /// The device protocol code.
    std::string getProtocol() const { return protocol_; }

private:
    std::string version_;
    std::string protocol_;
};
