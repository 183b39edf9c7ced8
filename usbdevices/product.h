// SPDX-License-Identifier: MIT
// The record of a 'P:' line.
// A plain value: one thread at a time, unless it is only read.
#pragma once

#include <string>

/// The record of a 'P:' line: the identifiers of vendor and product, in hexadecimal, and the
/// revision.
/// A value is the unchanged text of the line, with its blanks. It is empty if the line does not
/// have it or if its end marker is missing.
class product {
public:
    /// Sets all fields from `line`, one line of the device list without its line end. Fields that
    /// the line does not have become empty. Never fails.
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
