// SPDX-License-Identifier: MIT
// The record of the 'S:' lines: the device's strings, and the kind of host controller they name.
// Plain value; not shared between threads.
#pragma once

#include <string>

/// The record of the 'S:' lines of a device: its strings, and the kind of host controller that a
/// root hub's product name tells. Values run to the end of their line, blanks included.
class deviceInfo {
public:
    /// Takes one more 'S:' line, without its line end. A device has one such line per string, so
    /// only the fields that `line` names change. Never fails.
    ///
    /// The words "Product", "SerialNumber" and "Manufacturer" are looked for anywhere in the line,
    /// each for itself and in exactly that case; the keys behind them in any case. So a
    /// manufacturer called "Product" makes the product name empty.
    void Initialize(std::string line);

    /// Sets the host controller type: "OHCI" if `line` holds that name in any case, else "UHCI" if
    /// it holds that one, else "Unknown". Every product line calls it.
    void setUsbHost(std::string line);

    /// The product name.
    std::string getproduct() const { return product_; }
    /// The serial number; of a root hub the address of its host controller.
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
