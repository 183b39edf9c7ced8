// SPDX-License-Identifier: MIT
// What the completions for the different shells are made from.
//
// Functions without state that never fail; any thread may call them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "options/Program.h"

namespace options {

/// "--server", and "-s" if it has a letter.
std::vector<std::string> spellings(const Option& option);

/// Each spelling of each option that `isWanted`.
std::vector<std::string> spellings(const Program& program,
                                   const std::function<bool(const Option&)>& isWanted);

/// `text` with each "-" replaced by "_": a part of a variable's or function's name.
std::string asIdentifier(std::string text);

/// `text` in one line, with a backslash before each of the characters in `special`.
std::string escaped(const std::string& text, const std::string& special);

}  // namespace options
