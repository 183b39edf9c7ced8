// SPDX-License-Identifier: MIT
#include "base/Parts.h"
#include "options/Completion.h"
#include "options/CompletionParts.h"

namespace options {
namespace {

std::string zshQuoted(const std::string& text) {
    std::string result = "'";
    for (const char character : text) {
        result += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return result + "'";
}

/// How _arguments is told what an argument is: ":MESSAGE:ACTION".
std::string argumentSpec(const Argument& argument) {
    std::string action = " ";  // nothing but the message
    if (argument.isFile) {
        action = "_files";
    } else if (!argument.words.empty()) {
        action = "(" + base::joined(argument.words, " ") + ")";
    }
    return ":" + argument.name + ":" + action;
}

/// What _arguments is told about an option, one text for each spelling.
std::string optionSpecs(const Option& option) {
    // Each spelling excludes itself and the other, unless the option is repeatable.
    const std::string before =
        option.isRepeatable ? "*" : "(" + base::joined(spellings(option), " ") + ")";
    std::string after = "[" + escaped(option.help, "[]\\:") + "]";
    if (option.argument.has_value()) {
        after += argumentSpec(*option.argument);
    }
    std::string text;
    for (const std::string& spelling : spellings(option)) {
        std::string spec = before + spelling;
        if (option.argument.has_value()) {
            spec += spelling.rfind("--", 0) == 0 ? "=" : "+";
        }
        text += "        " + zshQuoted(spec.append(after)) + "\n";
    }
    return text;
}

std::string variable(const Option& option) {
    return "option_" + asIdentifier(option.name);
}

/// One variable for each option, used for each command that takes it.
std::string optionVariables(const Program& program) {
    std::string text;
    for (const Option& option : program.options) {
        text += "    local -a " + variable(option) + "=(\n" + optionSpecs(option) + "    )\n";
    }
    return text;
}

/// The call of _arguments with the options that `command` takes.
std::string argumentsCall(const Program& program, const Command* command) {
    std::string text = "_arguments -C -s -S";
    for (const Option& option : program.options) {
        if (takes(command, option)) {
            text += " $" + variable(option);
        }
    }
    return text;
}

std::string operandSpecs(const std::vector<Argument>& operands) {
    std::string text;
    for (const Argument& operand : operands) {
        text += " " + zshQuoted((operand.isOptional ? ":" : "") + argumentSpec(operand));
    }
    return text;
}

std::string operandsBody(const Program& program) {
    return "    " + argumentsCall(program, nullptr) + operandSpecs(program.operands) +
           (program.runsProgram ? " '*:::COMMAND: _normal'\n" : "\n");
}

std::string commandsBody(const Program& program) {
    std::string text =
        "    local curcontext=$curcontext state state_descr line\n"
        "    typeset -A opt_args\n"
        "    local -a commands=(\n";
    for (const Command& command : program.commands) {
        text += "        " + zshQuoted(command.name + ":" + escaped(command.summary, "\\:")) + "\n";
    }
    text += "    )\n    " + argumentsCall(program, nullptr) +
            " '1:COMMAND:->command' '*::ARGUMENT:->argument' && return\n"
            "    case $state in\n"
            "        command) _describe -t commands command commands ;;\n"
            "        argument)\n"
            "            case $words[1] in\n";
    for (const Command& command : program.commands) {
        text += "                " + command.name + ") " + argumentsCall(program, &command) +
                operandSpecs(command.operands) + " ;;\n";
    }
    return text +
           "            esac\n"
           "            ;;\n"
           "    esac\n";
}

}  // namespace

std::string zshCompletion(const Program& program) {
    const std::string function = "_" + program.name;
    return "#compdef " + program.name + "\n# Completion of " + program.name +
           " for zsh, which the program prints itself.\n" + function + "() {\n" +
           optionVariables(program) +
           (program.commands.empty() ? operandsBody(program) : commandsBody(program)) +
           "}\n"
           "\n"
           "# Called where zsh loads it as the function, else to be made known.\n"
           "if [[ $funcstack[1] == " +
           function + " ]]; then\n    " + function + " \"$@\"\nelse\n    compdef " + function +
           " " + program.name + "\nfi\n";
}

}  // namespace options
