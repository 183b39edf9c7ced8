// SPDX-License-Identifier: MIT
// The record of a 'C:' line.
// A plain value: one thread at a time, unless it is only read.
#pragma once

#include <string>

/// The record of a 'C:' line: the power draw of a configuration.
/// A value is the unchanged text of the line, with its blanks. It is empty if the line does not
/// have it or if its end marker is missing.
class configuration {
public:
    /// Sets all fields from `line`, one line of the device list without its line end. Fields that
    /// the line does not have become empty. Never fails.
    void Initialize(std::string line);

    /// The maximum power draw in milliamperes, without the unit.
    std::string getPower() const { return power_; }

private:
    std::string power_;
};
