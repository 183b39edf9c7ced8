// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include <getopt.h>

#include <algorithm>

#include "cli/Errors.h"

namespace usbhcdiag {
namespace {

// A value of getopt_long for an option that has no letter of its own, or for any.
constexpr int firstOptionValue = 256;

/// What getopt_long found, before it is known whether it fits the command.
struct Found {
    std::vector<std::pair<Option, std::string>> options;
    std::vector<std::string> operands;
};

std::string withDashes(Option option) {
    return std::string("--") + syntaxOf(option).name;
}

std::string asWritten(const char* word, int shortOption) {
    if (shortOption != 0 && shortOption < firstOptionValue) {
        return std::string("-") + static_cast<char>(shortOption);
    }
    return word;
}

Found scan(const std::vector<std::string>& words) {
    std::vector<std::string> copies;
    copies.reserve(words.size() + 1);
    copies.emplace_back("usbhcdiag");
    copies.insert(copies.end(), words.begin(), words.end());
    std::vector<char*> arguments;
    arguments.reserve(copies.size() + 1);
    for (std::string& copy : copies) {
        arguments.push_back(copy.data());
    }
    arguments.push_back(nullptr);

    std::string letters = ":";
    std::vector<option> longOptions;
    for (const OptionSyntax& syntax : optionTable()) {
        const int takesArgument = syntax.argument != nullptr ? required_argument : no_argument;
        longOptions.push_back({syntax.name, takesArgument, nullptr,
                               firstOptionValue + static_cast<int>(syntax.option)});
        if (syntax.shortName != 0) {
            letters += syntax.shortName;
            letters += takesArgument == required_argument ? ":" : "";
        }
    }
    longOptions.push_back({nullptr, 0, nullptr, 0});

    Found found;
    const int count = static_cast<int>(copies.size());
    optind = 0;  // glibc: start anew
    opterr = 0;
    for (;;) {
        const int value =
            getopt_long(count, arguments.data(), letters.c_str(), longOptions.data(), nullptr);
        if (value == -1) {
            break;
        }
        if (value == '?' || value == ':') {
            const std::string word = asWritten(arguments[static_cast<size_t>(optind) - 1], optopt);
            if (value == ':') {
                throw UsageError("option " + word + " needs an argument");
            }
            if (optopt >= firstOptionValue) {
                throw UsageError("option " + word + " takes no argument");
            }
            throw UsageError("there is no option " + word);
        }
        const auto& table = optionTable();
        const auto syntax =
            std::find_if(table.begin(), table.end(), [value](const OptionSyntax& candidate) {
                return value == candidate.shortName ||
                       value == firstOptionValue + static_cast<int>(candidate.option);
            });
        found.options.emplace_back(syntax->option, optarg != nullptr ? optarg : "");
    }
    for (int i = optind; i < count; ++i) {
        found.operands.emplace_back(arguments[static_cast<size_t>(i)]);
    }
    return found;
}

const CommandSyntax& commandNamed(const std::string& name) {
    const CommandSyntax* syntax = findCommand(name);
    if (syntax == nullptr) {
        throw UsageError("there is no command \"" + name + "\"");
    }
    return *syntax;
}

bool has(const Found& found, Option option) {
    return std::any_of(found.options.begin(), found.options.end(),
                       [option](const auto& entry) { return entry.first == option; });
}

HelpRequest helpRequest(std::vector<std::string> operands) {
    if (!operands.empty() && operands.front() == "help") {
        operands.erase(operands.begin());
    }
    if (operands.empty()) {
        return {};
    }
    return {commandNamed(operands.front()).command};
}

void store(Invocation& invocation, Option option, const std::string& argument) {
    const auto keep = [&](std::optional<std::string>& field) {
        if (field.has_value()) {
            throw UsageError("option " + withDashes(option) + " is given twice");
        }
        if (argument.empty()) {
            throw UsageError("the argument of " + withDashes(option) + " is empty");
        }
        field = argument;
    };
    switch (option) {
        case Option::server:
            keep(invocation.server);
            break;
        case Option::credentials:
            keep(invocation.credentials);
            break;
        case Option::element:
            keep(invocation.element);
            break;
        case Option::devices:
            keep(invocation.devices);
            break;
        case Option::json:
            invocation.json = true;
            break;
        case Option::help:
        case Option::version:
            break;
    }
}

void checkCombination(const Invocation& invocation) {
    if (invocation.server.has_value() && invocation.devices.has_value()) {
        throw UsageError(
            "--devices shows a list to a private server only; the server of --server reads its own "
            "machine's list");
    }
    if (invocation.credentials.has_value() && !invocation.server.has_value()) {
        throw UsageError("--credentials is for the server of --server, which is missing");
    }
}

}  // namespace

Request readCommandLine(const std::vector<std::string>& words) {
    const Found found = scan(words);
    if (has(found, Option::help) || (!found.operands.empty() && found.operands.front() == "help")) {
        return helpRequest(found.operands);
    }
    if (has(found, Option::version)) {
        return VersionRequest{};
    }
    if (found.operands.empty()) {
        throw UsageError("which command?");
    }
    const CommandSyntax& syntax = commandNamed(found.operands.front());
    if (found.operands.size() > 1) {
        throw UsageError("`" + std::string(syntax.name) + "` does not take \"" + found.operands[1] +
                         "\"");
    }
    Invocation invocation;
    invocation.command = syntax.command;
    for (const auto& [option, argument] : found.options) {
        if (std::find(syntax.options.begin(), syntax.options.end(), option) ==
            syntax.options.end()) {
            throw UsageError("`" + std::string(syntax.name) + "` does not take " +
                             withDashes(option));
        }
        store(invocation, option, argument);
    }
    checkCombination(invocation);
    return invocation;
}

}  // namespace usbhcdiag
