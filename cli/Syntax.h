// SPDX-License-Identifier: MIT
// The commands and options of usbhcdiag: the one table that the parser accepts and the help prints.
#pragma once

#include <string_view>
#include <vector>

namespace usbhcdiag {

enum class Command { run, tests, elements, results, clear, mof };

enum class Option { server, credentials, element, devices, json, help, version };

struct OptionSyntax {
    Option option;
    const char* name;      ///< without the dashes
    char shortName;        ///< 0: none
    const char* argument;  ///< what the help calls the argument; null: takes none
    const char* help;
};

struct CommandSyntax {
    Command command;
    const char* name;
    const char* summary;          ///< one line of the list of commands
    const char* description;      ///< paragraphs of the command's own help
    const char* examples;         ///< lines of the command's own help
    std::vector<Option> options;  ///< those that it takes, besides help and version
};

/// Every option, in the order of the help.
const std::vector<OptionSyntax>& optionTable();

/// Every command, in the order of the help.
const std::vector<CommandSyntax>& commandTable();

const OptionSyntax& syntaxOf(Option option);
const CommandSyntax& syntaxOf(Command command);

/// The command of that name, or null.
const CommandSyntax* findCommand(std::string_view name);

}  // namespace usbhcdiag
