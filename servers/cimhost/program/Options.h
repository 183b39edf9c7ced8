// SPDX-License-Identifier: MIT
// The command line of cimhost.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace cimhost {

/// A command line that makes no sense; the text says what is wrong with it.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the command line asks for.
struct Options {
    std::string address = "127.0.0.1";
    std::uint16_t port = 0;
    std::vector<std::string> mofFiles;       ///< empty: the installed ones
    std::optional<std::string> provider;     ///< absent: the installed library
    std::optional<std::string> devices;      ///< absent: the kernel's list
    std::optional<std::string> credentials;  ///< absent: everybody on this machine is let in
    bool help = false;
    bool version = false;
};

/// Reads the arguments behind the program's name. Throws UsageError.
Options parseOptions(const std::vector<std::string>& arguments);

/// What --help prints.
extern const char* const helpText;

}  // namespace cimhost
