// SPDX-License-Identifier: MIT
// The record of a 'P:' line: the vendor and product identifiers, hexadecimal as in the list.
// Plain value; not shared between threads.
#pragma once

#include <string>

/// The record of a 'P:' line: the vendor and product identifiers, hexadecimal as in the list.
/// Every value is the text of the line as it stands, blanks included; a value that the line does
/// not hold, or whose end marker is missing, is empty.
class product {
public:
    /// Fills every field from `line`, one line of the device list without its line end. Fields that
    /// the line does not hold become empty. Never fails.
    void Initialize(std::string line);

    /// The vendor identifier.
    std::string getVendor() const { return vendor_; }
    /// The product identifier.
    std::string getProduct() const { return product_; }
    /// The revision of the device.
    std::string getRevision() const { return revision_; }

private:
    std::string vendor_;
    std::string product_;
    std::string revision_;
};
