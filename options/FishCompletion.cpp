// SPDX-License-Identifier: MIT
#include "base/Parts.h"
#include "options/Completion.h"
#include "options/CompletionParts.h"

namespace options {
namespace {

std::string fishQuoted(const std::string& text) {
    return "'" + escaped(text, "\\'") + "'";
}

/// The beginning of a line that offers something while `condition` holds; empty: always.
std::string offer(const Program& program, const std::string& condition) {
    return "complete -c " + program.name +
           (condition.empty() ? "" : " -n " + fishQuoted(condition));
}

/// How an argument is completed: -F offers files, -a words.
std::string offered(const Argument& argument) {
    std::string text = argument.isFile ? " -F" : "";
    if (!argument.words.empty()) {
        text += " -a " + fishQuoted(base::joined(argument.words, " "));
    }
    return text;
}

/// The option may stand before any command, and after those that take it.
std::string conditionOf(const Program& program, const Option& option) {
    std::vector<std::string> others;
    for (const Command& command : program.commands) {
        if (!takes(&command, option)) {
            others.push_back(command.name);
        }
    }
    return others.empty() ? "" : "not __fish_seen_subcommand_from " + base::joined(others, " ");
}

std::string optionLine(const Program& program, const Option& option, const std::string& condition) {
    std::string text = offer(program, condition);
    if (option.letter != 0) {
        text += std::string(" -s ") + option.letter;
    }
    text += " -l " + option.name;
    if (option.argument.has_value()) {
        text += (option.argument->isFile ? " -r" : " -x") + offered(*option.argument);
    }
    return text + " -d " + fishQuoted(option.help) + "\n";
}

std::string commandLines(const Program& program) {
    std::string text;
    const std::string all = base::joined(commandNames(program), " ");
    for (const Command& command : program.commands) {
        text += offer(program, "not __fish_seen_subcommand_from " + all) + " -a " + command.name +
                " -d " + fishQuoted(command.summary) + "\n";
        for (const Argument& operand : command.operands) {
            text += offer(program, "__fish_seen_subcommand_from " + command.name) +
                    offered(operand) + "\n";
        }
    }
    return text;
}

/// After the operands of the program itself another command line stands.
std::string otherProgramsLine(const Program& program) {
    const std::string count = std::to_string(program.operands.size());
    return offer(program,
                 "test (count (string match -v -- \"-*\" (commandline -opc))) -gt " + count) +
           " -x -a '(__fish_complete_subcommand --fcs-skip=" +
           std::to_string(program.operands.size() + 1) + ")'\n";
}

}  // namespace

std::string fishCompletion(const Program& program) {
    // No file names but where they are asked for.
    std::string text = "# Completion of " + program.name +
                       " for fish, which the program prints itself.\n" + offer(program, "") +
                       " -f\n" + commandLines(program);
    const std::string inOperands =
        program.runsProgram ? "test (count (string match -v -- \"-*\" (commandline -opc))) -le " +
                                  std::to_string(program.operands.size())
                            : "";
    for (const Option& option : program.options) {
        text += optionLine(program, option,
                           program.runsProgram ? inOperands : conditionOf(program, option));
    }
    for (const Argument& operand : program.operands) {
        text += offer(program, inOperands) + offered(operand) + "\n";
    }
    return text + (program.runsProgram ? otherProgramsLine(program) : "");
}

}  // namespace options
