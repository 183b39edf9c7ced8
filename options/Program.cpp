// SPDX-License-Identifier: MIT
#include "options/Program.h"

#include <algorithm>

#include "options/Completion.h"

namespace options {
namespace {

constexpr bool notRepeatable = false;
constexpr bool standsAlone = true;

template <typename Named>
const Named* find(const std::vector<Named>& all, std::string_view name) {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [name](const Named& named) { return named.name == name; });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace

const Option* findOption(const Program& program, std::string_view name) {
    return find(program.options, name);
}

const Command* findCommand(const Program& program, std::string_view name) {
    return find(program.commands, name);
}

bool takes(const Command* command, const Option& option) {
    return command == nullptr || std::find(command->options.begin(), command->options.end(),
                                           option.name) != command->options.end();
}

std::vector<std::string> commandNames(const Program& program) {
    std::vector<std::string> names;
    for (const Command& command : program.commands) {
        names.push_back(command.name);
    }
    return names;
}

Option helpOption(const std::string& help) {
    return {"help", 'h', {}, help, notRepeatable, standsAlone};
}

Option versionOption() {
    return {"version", 'V', {}, "print the version", notRepeatable, standsAlone};
}

Argument shellArgument() {
    return {"SHELL", false, completedShells()};
}

Option completionOption() {
    return {"completion",    0,
            shellArgument(), "print the completion for SHELL: bash, zsh or fish",
            notRepeatable,   standsAlone};
}

}  // namespace options
