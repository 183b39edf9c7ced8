// SPDX-License-Identifier: MIT
// The record of a 'C:' line: the power draw of a configuration.
// Plain value; not shared between threads.
#pragma once

#include <string>

/// The record of a 'C:' line: the power draw of a configuration.
/// Every value is the text of the line as it stands, blanks included; a value that the line does
/// not hold, or whose end marker is missing, is empty.
class configuration {
public:
    /// Fills every field from `line`, one line of the device list without its line end. Fields that
    /// the line does not hold become empty. Never fails.
    void Initialize(std::string line);

    /// The maximum power draw in milliamperes, without the unit.
    std::string getPower() const { return power_; }

private:
    std::string power_;
};
