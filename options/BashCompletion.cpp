// SPDX-License-Identifier: MIT
#include "base/Parts.h"
#include "options/Completion.h"
#include "options/CompletionParts.h"

namespace options {
namespace {

std::string longNames(const Program& program, const Command* command) {
    std::vector<std::string> names;
    for (const Option& option : program.options) {
        if (takes(command, option)) {
            names.push_back("--" + option.name);
        }
    }
    return base::joined(names, " ");
}

/// The variables that say what is offered.
std::string offers(const Program& program, const Command* command,
                   const std::vector<Argument>& operands) {
    std::string text = "options=\"" + longNames(program, command) + "\"";
    for (const Argument& operand : operands) {
        if (!operand.words.empty()) {
            text += " words=\"" + base::joined(operand.words, " ") + "\"";
        }
        text += operand.isFile ? " files=yes" : "";
    }
    return text;
}

std::string branch(const std::vector<std::string>& patterns, const std::string& action) {
    return patterns.empty() ? ""
                            : "        " + base::joined(patterns, " | ") + ") " + action + " ;;\n";
}

std::vector<std::string> withArgument(const Program& program) {
    return spellings(program, [](const Option& option) { return option.argument.has_value(); });
}

/// What stands after the words of the program itself is completed as a command line of its own.
std::string otherProgramsWords(const Program& program) {
    if (!program.runsProgram) {
        return "";
    }
    return "    local index operands=" + std::to_string(program.operands.size()) +
           "\n"
           "    for ((index = 1; index <= COMP_CWORD; ++index)); do\n"
           "        case ${COMP_WORDS[index]} in\n" +
           branch(withArgument(program), "((++index))") +
           "        -*) ;;\n"
           "        *) ((operands-- > 0)) || break ;;\n"
           "        esac\n"
           "    done\n"
           "    if ((operands < 0)); then\n"
           "        if declare -F _command_offset >/dev/null; then\n"
           "            _command_offset \"$index\"\n"
           "        elif ((index == COMP_CWORD)); then\n"
           "            mapfile -t COMPREPLY < <(compgen -c -- \"$current\")\n"
           "        else\n"
           "            compopt -o filenames 2>/dev/null\n"
           "            mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
           "        fi\n"
           "        return\n"
           "    fi\n"
           "\n";
}

/// The arguments of options.
std::string arguments(const Program& program) {
    std::string text =
        "    local options words files\n"
        "    case $previous in\n" +
        branch(spellings(program,
                         [](const Option& option) {
                             return option.argument.has_value() && option.argument->isFile;
                         }),
               "files=yes");
    for (const Option& option : program.options) {
        if (option.argument.has_value() && !option.argument->isFile) {
            const std::vector<std::string>& words = option.argument->words;
            text += branch(spellings(option),
                           words.empty() ? "return" : "words=\"" + base::joined(words, " ") + "\"");
        }
    }
    return text + "        *)\n";
}

std::string commandBranches(const Program& program) {
    std::string text =
        "            local word command index\n"
        "            for ((index = 1; index < COMP_CWORD; ++index)); do\n"
        "                word=${COMP_WORDS[index]}\n"
        "                case $word in\n"
        "        " +
        branch(withArgument(program), "((++index))") + "        " +
        branch(commandNames(program), "command=$word && break") +
        "                esac\n"
        "            done\n"
        "            case $command in\n";
    for (const Command& command : program.commands) {
        text += "        " + branch({command.name}, offers(program, &command, command.operands));
    }
    return text + "        " +
           branch({"*"}, offers(program, nullptr, {{"COMMAND", false, commandNames(program)}})) +
           "            esac\n";
}

}  // namespace

std::string bashCompletion(const Program& program) {
    const std::string function = "_" + asIdentifier(program.name);
    return "# Completion of " + program.name +
           " for bash, which the program prints itself.\n"
           "# shellcheck shell=bash\n" +
           function +
           "() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
           "    COMPREPLY=()\n"
           "    # The \"=\" of --option=argument is a word of its own.\n"
           "    if [[ $current == = ]]; then\n"
           "        current=\n"
           "    elif [[ $previous == = ]]; then\n"
           "        previous=${COMP_WORDS[COMP_CWORD - 2]}\n"
           "    fi\n"
           "\n" +
           otherProgramsWords(program) + arguments(program) +
           (program.commands.empty()
                ? "            " + offers(program, nullptr, program.operands) + "\n"
                : commandBranches(program)) +
           "            ;;\n"
           "    esac\n"
           "\n"
           "    if [[ $files ]]; then\n"
           "        compopt -o filenames 2>/dev/null\n"
           "        mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
           "    fi\n"
           "    if [[ $current == -* || -z $words$files ]]; then\n"
           "        words=$options\n"
           "    fi\n"
           "    mapfile -t -O \"${#COMPREPLY[@]}\" COMPREPLY < <(compgen -W \"$words\" -- "
           "\"$current\")\n"
           "}\n"
           "\n"
           "complete -F " +
           function + " " + program.name + "\n";
}

}  // namespace options
