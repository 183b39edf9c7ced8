// SPDX-License-Identifier: MIT
// The texts with which programs explain their command lines.
// Functions without state; any thread may call them.
#pragma once

#include <string>

#include "options/Program.h"

namespace options {

/// What `PROGRAM --help` prints.
std::string programHelp(const Program& program);

/// What `PROGRAM COMMAND --help` prints.
std::string commandHelp(const Program& program, const Command& command);

/// What `PROGRAM --version` prints.
std::string versionText(const Program& program);

/// What a program writes to standard error about wrong usage: what is wrong, and where help is.
std::string usageComplaint(const Program& program, const std::string& what);

}  // namespace options
