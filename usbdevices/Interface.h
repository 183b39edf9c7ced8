// SPDX-License-Identifier: MIT
// The record of an 'I:' line.
// A plain value: one thread at a time, unless it is only read.
#pragma once

#include <string>

/// The record of an 'I:' line: one interface of the device.
/// A value is the unchanged text of the line, with its blanks. It is empty if the line does not
/// have it or if its end marker is missing.
class Interface {
public:
    /// Sets all fields from `line`, one line of the device list without its line end. Fields that
    /// the line does not have become empty. Never fails.
    void Initialize(std::string line);

    /// The name of the driver, "(none)" if the interface has none.
    std::string getDriver() const { return driver_; }
    /// The class code, hexadecimal.
    std::string getClass() const { return class_; }
    /// The subclass code, hexadecimal.
    std::string getSubClass() const { return subClass_; }
    /// The interface number.
    std::string getInterface() const { return interface_; }
    /// The protocol code, hexadecimal.
    std::string getProtocol() const { return protocol_; }

private:
    std::string driver_;
    std::string class_;
    std::string subClass_;
    std::string interface_;
    std::string protocol_;
};
