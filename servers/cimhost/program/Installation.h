// SPDX-License-Identifier: MIT
// Where the files lie that belong to this program.
#pragma once

#include <string>

namespace cimhost {

/// Files of the same build folder or installation as the running program. A plain value.
struct Installation {
    std::string mofFile;
    std::string providerLibrary;
};

/// Looks from the program's own folder, so that a build folder and a moved installation work alike.
/// A file that is nowhere is given where it should be installed; whoever opens it says so.
/// Any thread may call it.
Installation findInstallation();

}  // namespace cimhost
