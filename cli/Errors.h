// SPDX-License-Identifier: MIT
// What the parts of usbhcdiag throw, beside options::UsageError. main() alone catches, writes the
// message and picks the exit status.
#pragma once

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace usbhcdiag {

/// Something could not be done; the message names the file, URL or element at fault and says what
/// to do about it.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// There was no device list to read; the message says what was found instead and how to present
/// one.
class NothingRead : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Why the last system call of this thread failed, in the system's words.
inline std::string systemReason() {
    return std::strerror(errno);
}

}  // namespace usbhcdiag
