// SPDX-License-Identifier: MIT
// The help texts of usbhcdiag, made from the tables of commands and options.
#pragma once

#include <string>

#include "cli/Syntax.h"

namespace usbhcdiag {

/// What `usbhcdiag --help` prints.
std::string generalHelp();

/// What `usbhcdiag COMMAND --help` prints.
std::string commandHelp(const CommandSyntax& syntax);

/// What `usbhcdiag --version` prints.
std::string versionText();

}  // namespace usbhcdiag
