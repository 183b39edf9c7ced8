// SPDX-License-Identifier: MIT
// Reads the command line of usbhcdiag.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "cli/DeviceFilter.h"
#include "options/Program.h"

namespace usbhcdiag {

/// The commands that ask a server.
enum class Command { run, tests, elements, results, clear, mof };

/// Such a command with its options.
struct Invocation {
    Command command = Command::run;
    std::optional<std::string> server;       ///< URL as given
    std::optional<std::string> credentials;  ///< file name
    std::optional<std::string> cacert;       ///< file name
    std::optional<std::string> cert;         ///< file name
    std::optional<std::string> key;          ///< file name
    std::optional<std::string> proxy;        ///< URL as given
    std::optional<std::chrono::seconds> timeout;
    bool insecure = false;
    std::optional<std::string> element;  ///< DeviceID
    std::optional<std::string> devices;  ///< file name
    bool json = false;
};

/// The devices of a list were asked for.
struct DevicesRequest {
    std::optional<std::string> file;  ///< name as given; none: this machine's
    DeviceFilter filter;
    bool tree = false;
    bool json = false;
};

/// A list to keep or to send was asked for.
struct RecordRequest {
    std::optional<std::string> file;    ///< name as given; none: this machine's
    std::optional<std::string> output;  ///< name of the file to write; none: standard output
    bool redact = false;
};

/// The differences between two lists were asked for.
struct DiffRequest {
    std::string before;                ///< name as given
    std::optional<std::string> after;  ///< likewise; none: this machine's
    bool json = false;
};

/// Help was asked for: on a command of program(), or on all (null).
struct HelpRequest {
    const options::Command* command = nullptr;
};

struct VersionRequest {};

/// A completion was asked for: the shell as given.
struct CompletionRequest {
    std::string shell;
};

/// What a command line asks for.
using CommandLine = std::variant<Invocation, DevicesRequest, RecordRequest, DiffRequest,
                                 HelpRequest, VersionRequest, CompletionRequest>;

/// Reads the words after the program's name. Options may stand before and after the command.
///
/// Throws options::UsageError, whose text names the word at fault. Any thread may call it.
CommandLine readCommandLine(const std::vector<std::string>& words);

}  // namespace usbhcdiag
