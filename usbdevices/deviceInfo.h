// SPDX-License-Identifier: MIT
// The record of the 'S:' lines.
// A plain value: one thread at a time, unless it is only read.
#pragma once

#include <string>

/// The record of the 'S:' lines of a device: its strings, and the type of host controller that the
/// product name of a root hub tells. A value is the rest of its line, with its blanks.
class deviceInfo {
public:
    /// Reads one more 'S:' line, without its line end. A device has one such line per string, so
    /// only the fields that `line` names are set. Never fails.
    ///
    /// The words "Product", "SerialNumber" and "Manufacturer" are searched independently, anywhere
    /// in the line and in exactly that case; then the keys "product=" etc. in any case. So a
    /// manufacturer called "Product" makes the product name empty.
    void Initialize(std::string line);

    /// Sets the host controller type: "OHCI" if `line` contains that in any case, otherwise "UHCI"
    /// if it contains that, otherwise "Unknown". Called for every line with "Product".
    void setUsbHost(std::string line);

    /// The product name.
    std::string getproduct() const { return product_; }
    /// The serial number. For a root hub, the address of its host controller.
    std::string getserial() const { return serial_; }
    /// The manufacturer.
    std::string getmanufacturer() const { return manufacturer_; }
    /// The host controller type: "OHCI", "UHCI" or "Unknown"; empty before the first product line.
    std::string getUsbHost() const { return usbHost_; }

private:
    std::string product_;
    std::string serial_;
    std::string manufacturer_;
    std::string usbHost_;
};
