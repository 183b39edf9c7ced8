// SPDX-License-Identifier: MIT
// The record of an 'I:' line: one interface of the device.
// Plain value; not shared between threads.
#pragma once

#include <string>

/// The record of an 'I:' line: one interface of the device.
/// Every value is the text of the line as it stands, blanks included; a value that the line does
/// not hold, or whose end marker is missing, is empty.
class Interface {
public:
    /// Fills every field from `line`, one line of the device list without its line end. Fields that
    /// the line does not hold become empty. Never fails.
    void Initialize(std::string line);

    /// The name of the driver, "(none)" where the kernel has none.
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
