// SPDX-License-Identifier: MIT
// For targets that read the device list at its real path.
#pragma once

#include <algorithm>
#include <string_view>

#include "tests/support/PrivateDeviceList.h"

/// Enters the private view of the device list, but in a process that only starts others to reduce a corpus: they
/// would try to enter it once more inside.
inline void enterPrivateView(int argumentCount, char** arguments) {
    const bool onlyStartsOthers =
        std::any_of(arguments, arguments + argumentCount,
                    [](std::string_view argument) { return argument == "-merge=1"; });
    if (!onlyStartsOthers) {
        PrivateDeviceList::enterOrExit();
    }
}
