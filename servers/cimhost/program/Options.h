// SPDX-License-Identifier: MIT
// The command line of cimhost.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "options/Program.h"

namespace cimhost {

/// What the command line asks for.
struct Options {
    std::string address = "127.0.0.1";
    std::uint16_t port = 0;
    std::vector<std::string> mofFiles;       ///< empty: the installed ones
    std::optional<std::string> provider;     ///< absent: the installed library
    std::optional<std::string> devices;      ///< absent: the kernel's list
    std::optional<std::string> credentials;  ///< absent: this user and root are let in
    bool open = false;                       ///< every user of this machine is let in
    bool help = false;
    bool version = false;
    std::optional<std::string> completion;  ///< a shell: its completion is to be printed
};

/// The options as data: what the parser accepts, and help and completion are made from.
const options::Program& program();

/// Reads the arguments after the program's name. Throws options::UsageError. Any thread may call it.
Options parseOptions(const std::vector<std::string>& arguments);

}  // namespace cimhost
