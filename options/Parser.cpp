// SPDX-License-Identifier: MIT
// The only file that includes CLI11, which takes seconds to compile.
#include "options/Parser.h"

#include <algorithm>

#include <CLI/CLI.hpp>

#include "options/UsageError.h"

namespace options {
namespace {

bool looksLikeOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-';
}

/// CLI11 would take the next word for an empty argument after "=", and accepts an argument for an
/// option that takes none.
void checkArgumentsAfterEquals(const Program& program, const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        if (word == "--" || (program.runsProgram && !looksLikeOption(word))) {
            return;
        }
        const size_t equals = word.find('=');
        if (word.rfind("--", 0) != 0 || equals == std::string::npos) {
            continue;
        }
        const std::string name = word.substr(0, equals);
        const Option* option = findOption(program, name.substr(2));
        if (option != nullptr && !option->argument.has_value()) {
            throw UsageError("option " + word + " takes no argument");
        }
        if (option != nullptr && equals + 1 == word.size()) {
            throw UsageError("the argument of " + name + " is empty");
        }
    }
}

/// What CLI11 makes of the words.
struct Scan {
    std::map<std::string, std::vector<std::string>> options;
    std::vector<std::string> operands;
    std::vector<std::string> rest;  ///< with "--" and what looks like an option, but is none
};

/// Commands are left in the rest, and not CLI11's subcommands: options may stand before them, too.
Scan scan(const Program& program, const std::vector<std::string>& words) {
    CLI::App app;
    app.set_help_flag();  // help is one of the program's own options
    app.allow_extras();
    app.prefix_command(program.runsProgram);
    std::map<std::string, const CLI::Option*> options;
    for (const Option& option : program.options) {
        const std::string names =
            (option.letter == 0 ? "" : std::string("-") + option.letter + ",") + "--" + option.name;
        options[option.name] =
            (option.argument.has_value() ? app.add_option(names) : app.add_flag(names))->take_all();
    }
    std::vector<const CLI::Option*> operands;
    for (const Argument& operand : program.operands) {
        operands.push_back(app.add_option(operand.name));
    }

    std::vector<std::string> reversed(words.rbegin(), words.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ArgumentMismatch&) {
        throw UsageError("option " + words.back() + " needs an argument");
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what());
    }

    Scan result;
    for (const auto& [name, option] : options) {
        result.options[name] = option->results();
    }
    for (const CLI::Option* operand : operands) {
        const std::vector<std::string> given = operand->results();
        result.operands.insert(result.operands.end(), given.begin(), given.end());
    }
    result.rest = app.remaining();
    return result;
}

void checkOptions(const Program& program, const ParsedLine& line) {
    for (const Option& option : program.options) {
        const std::vector<std::string>& given = line.options.at(option.name);
        if (given.size() > 1 && !option.isRepeatable) {
            throw UsageError("option --" + option.name + " is given twice");
        }
        if (std::find(given.begin(), given.end(), "") != given.end()) {
            throw UsageError("the argument of --" + option.name + " is empty");
        }
    }
}

/// The operands in `rest`. The words of another program's command line are taken as they are.
std::vector<std::string> operandsIn(const Program& program, const std::vector<std::string>& rest) {
    std::vector<std::string> operands;
    bool optionsEnded = false;
    for (const std::string& word : rest) {
        const bool isRead = !program.runsProgram || operands.empty();
        if (isRead && !optionsEnded && word == "--") {
            optionsEnded = true;
        } else if (isRead && !optionsEnded && looksLikeOption(word)) {
            throw UsageError("there is no option " + word);
        } else {
            operands.push_back(word);
        }
    }
    return operands;
}

const Command* takeCommand(const Program& program, std::vector<std::string>& operands) {
    if (program.commands.empty() || operands.empty()) {
        return nullptr;
    }
    const Command* command = findCommand(program, operands.front());
    if (command == nullptr) {
        throw UsageError("there is no command \"" + operands.front() + "\"");
    }
    operands.erase(operands.begin());
    return command;
}

void checkOperands(const std::string& taker, const std::vector<Argument>& known,
                   const std::vector<std::string>& given) {
    for (size_t i = 0; i < known.size(); ++i) {
        if (i >= given.size() && !known[i].isOptional) {
            throw UsageError("`" + taker + "` needs " + known[i].name);
        }
        if (i < given.size() && given[i].empty()) {
            throw UsageError("the argument " + known[i].name + " is empty");
        }
    }
}

/// Whether everything that was given fits together, and is all that is needed.
void checkLine(const Program& program, const ParsedLine& line) {
    if (!program.commands.empty() && line.command == nullptr) {
        throw UsageError("which command?");
    }
    const std::string& taker = line.command == nullptr ? program.name : line.command->name;
    for (const Option& option : program.options) {
        if (line.has(option.name) && !takes(line.command, option)) {
            throw UsageError("`" + taker + "` does not take --" + option.name);
        }
    }
    std::vector<Argument> operands =
        line.command == nullptr ? program.operands : line.command->operands;
    if (program.runsProgram) {
        operands.push_back({"COMMAND"});
    } else if (line.operands.size() > operands.size()) {
        throw UsageError("`" + taker + "` does not take \"" + line.operands[operands.size()] +
                         "\"");
    }
    checkOperands(taker, operands, line.operands);
}

bool standsAlone(const Program& program, const ParsedLine& line) {
    return std::any_of(program.options.begin(), program.options.end(), [&](const Option& option) {
        return option.standsAlone && line.has(option.name);
    });
}

}  // namespace

std::optional<std::string> ParsedLine::argument(const std::string& option) const {
    const std::vector<std::string>& given = options.at(option);
    return given.empty() ? std::nullopt : std::optional(given.front());
}

ParsedLine parse(const Program& program, const std::vector<std::string>& words) {
    checkArgumentsAfterEquals(program, words);
    Scan found = scan(program, words);
    ParsedLine line;
    line.options = std::move(found.options);
    checkOptions(program, line);
    line.operands = operandsIn(program, found.rest);
    line.command = takeCommand(program, line.operands);
    line.operands.insert(line.operands.begin(), found.operands.begin(), found.operands.end());
    if (!standsAlone(program, line)) {
        checkLine(program, line);
    }
    return line;
}

}  // namespace options
