// SPDX-License-Identifier: MIT
#include "options/Completion.h"

#include <array>

#include "base/Parts.h"
#include "options/UsageError.h"

namespace options {
namespace {

struct Shell {
    const char* name;
    std::string (*completion)(const Program&);
};

constexpr std::array<Shell, 3> shells = {
    {{"bash", bashCompletion}, {"zsh", zshCompletion}, {"fish", fishCompletion}}};

}  // namespace

std::vector<std::string> completedShells() {
    std::vector<std::string> names;
    names.reserve(shells.size());
    for (const Shell& shell : shells) {
        names.emplace_back(shell.name);
    }
    return names;
}

std::string completionScript(const Program& program, const std::string& shell) {
    for (const Shell& known : shells) {
        if (shell == known.name) {
            return known.completion(program);
        }
    }
    throw UsageError("there is no completion for \"" + shell + "\", only for " +
                     base::joined(completedShells(), ", "));
}

}  // namespace options
