// SPDX-License-Identifier: MIT
#include "options/Help.h"

namespace options {
namespace {

constexpr size_t textColumn = 26;

/// `left` from column 3, `text` from `textColumn`, each further line of the text below the first.
std::string entry(const std::string& left, const std::string& text) {
    std::string result = "  " + left;
    result.append(result.size() < textColumn ? textColumn - result.size() : 1, ' ');
    for (const char character : text) {
        result += character;
        if (character == '\n') {
            result.append(textColumn, ' ');
        }
    }
    return result + "\n";
}

std::string optionEntry(const Option& option) {
    std::string left = option.letter == 0 ? "    " : std::string("-") + option.letter + ", ";
    left += "--" + option.name;
    if (option.argument.has_value()) {
        left += " " + option.argument->name;
    }
    return entry(left, option.help);
}

std::string synopsisOf(const std::vector<Argument>& operands) {
    std::string text;
    for (const Argument& operand : operands) {
        text += operand.isOptional ? " [" + operand.name + "]" : " " + operand.name;
    }
    return text;
}

}  // namespace

std::string programHelp(const Program& program) {
    std::string text = "Usage: " + program.name;
    text += program.commands.empty() ? "" : " COMMAND";
    text += " [OPTION]..." + synopsisOf(program.operands);
    text += program.runsProgram ? " [--] COMMAND [ARGUMENT]..." : "";
    text += "\n\n" + program.description;
    if (!program.commands.empty()) {
        text += "\nCommands (" + program.name + " COMMAND --help tells more):\n";
        for (const Command& command : program.commands) {
            text += entry(command.name, command.summary);
        }
    }
    text += "\nOptions:\n";
    for (const Option& option : program.options) {
        text += optionEntry(option);
    }
    return text + "\n" + program.epilogue;
}

std::string commandHelp(const Program& program, const Command& command) {
    std::string text = "Usage: " + program.name + " " + command.name + " [OPTION]...";
    text += synopsisOf(command.operands) + "\n\n" + command.description + "\nOptions:\n";
    for (const Option& option : program.options) {
        if (takes(&command, option)) {
            text += optionEntry(option);
        }
    }
    return text + "\nExamples:\n" + command.examples;
}

std::string versionText(const Program& program) {
    return program.name + " " ZORVA_VERSION "\n";
}

std::string usageComplaint(const Program& program, const std::string& what) {
    return program.name + ": " + what + "\nTry `" + program.name + " --help`.\n";
}

}  // namespace options
