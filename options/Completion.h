// SPDX-License-Identifier: MIT
// Scripts with which shells complete the command line of a program: its commands, its options, and
// file names and fixed words after those that take them.
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <vector>

#include "options/Program.h"

namespace options {

/// The shells that there are scripts for.
std::vector<std::string> completedShells();

/// The script for a shell. Throws UsageError if there is none for that shell.
std::string completionScript(const Program& program, const std::string& shell);

std::string bashCompletion(const Program& program);
std::string zshCompletion(const Program& program);
std::string fishCompletion(const Program& program);

}  // namespace options
