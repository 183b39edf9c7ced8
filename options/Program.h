// SPDX-License-Identifier: MIT
// What the command line of a program looks like, as data: the parser, the help texts and the
// completions are made from it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace options {

/// The argument of an option, or an operand.
struct Argument {
    std::string name;                  ///< what help and messages call it, for example FILE
    bool isFile = false;               ///< shells offer file names
    std::vector<std::string> words{};  ///< shells offer these; others are for the program to reject
    bool isOptional = false;           ///< operands only
};

struct Option {
    std::string name;                    ///< without the dashes
    char letter = 0;                     ///< of the short form; 0: none
    std::optional<Argument> argument{};  ///< absent: the option takes none
    std::string help;                    ///< lines of the help, the last without a line feed
    bool isRepeatable = false;
    bool standsAlone = false;  ///< is answered whatever else the command line lacks: --help
};

struct Command {
    std::string name;
    std::string summary;               ///< one line of the list of commands
    std::string description;           ///< paragraphs of the command's own help
    std::string examples;              ///< lines of the command's own help
    std::vector<std::string> options;  ///< names of those that it takes, help among them
    std::vector<Argument> operands{};
};

struct Program {
    std::string name;
    std::string description;  ///< paragraphs of the help, before the lists
    std::string epilogue;     ///< paragraphs of the help, after the lists
    std::vector<Option> options;
    std::vector<Command> commands{};   ///< empty: the program does one thing
    std::vector<Argument> operands{};  ///< of a program without commands
    bool runsProgram = false;  ///< after the operands stands a command line, which is not read
};

/// The option of that name, or null.
const Option* findOption(const Program& program, std::string_view name);

/// The command of that name, or null.
const Command* findCommand(const Program& program, std::string_view name);

/// Whether `command` takes `option`; null stands for the program itself, which takes all.
bool takes(const Command* command, const Option& option);

/// The names of all commands.
std::vector<std::string> commandNames(const Program& program);

/// --help, -h, with its line of the help.
Option helpOption(const std::string& help);

/// --version, -V.
Option versionOption();

/// What completionScript() takes: a shell's name.
Argument shellArgument();

/// --completion SHELL, for programs without commands.
Option completionOption();

}  // namespace options
