// SPDX-License-Identifier: MIT
// Reads command lines, with the same habits for every program.
//
// `--option=value` and `--option value`, `-o value` and `-ovalue`; options before, between and after
// the operands; "--" ends the options. No abbreviations. An option given twice is rejected unless it
// is repeatable, and so is an empty argument or operand.
// Functions without state; any thread may call them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "options/Program.h"

namespace options {

/// What a command line says.
struct ParsedLine {
    const Command* command = nullptr;  ///< of the program; null: none was given
    /// Each option of the program with the arguments given to it, in their order; one that takes
    /// no argument has a text for each time it was given.
    std::map<std::string, std::vector<std::string>> options;
    /// Without the command. Those of a program that runs another end with its words.
    std::vector<std::string> operands;

    /// Whether the option was given. Throws std::out_of_range if the program has no such option.
    bool has(const std::string& option) const { return !options.at(option).empty(); }

    /// The argument of an option, if it was given; throws as has().
    std::optional<std::string> argument(const std::string& option) const;
};

/// Reads `words`, those after the program's name. The result points into `program`.
///
/// Throws UsageError. If an option that stands alone was given, neither operands that are missing
/// or too many nor options that do not fit the command are an error.
ParsedLine parse(const Program& program, const std::vector<std::string>& words);

}  // namespace options
