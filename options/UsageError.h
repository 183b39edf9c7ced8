// SPDX-License-Identifier: MIT
// A command line that makes no sense.
#pragma once

#include <stdexcept>

namespace options {

/// The message names the word at fault. Programs write it with usageComplaint() and end with
/// exitUsage.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The exit status of every program for wrong usage.
constexpr int exitUsage = 2;

}  // namespace options
