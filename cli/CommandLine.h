// SPDX-License-Identifier: MIT
// Reads the command line of usbhcdiag.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "cli/Syntax.h"

namespace usbhcdiag {

/// A command with its options.
struct Invocation {
    Command command = Command::run;
    std::optional<std::string> server;       ///< URL as given
    std::optional<std::string> credentials;  ///< file name
    std::optional<std::string> element;      ///< DeviceID
    std::optional<std::string> devices;      ///< file name
    bool json = false;
};

/// Help was asked for: on a command, or on all.
struct HelpRequest {
    std::optional<Command> command;
};

struct VersionRequest {};

using Request = std::variant<Invocation, HelpRequest, VersionRequest>;

/// Reads the words after the program's name. Options may stand before and after the command.
///
/// Throws UsageError, whose text names the word at fault. Main thread only: getopt_long has state
/// of its own.
Request readCommandLine(const std::vector<std::string>& words);

}  // namespace usbhcdiag
