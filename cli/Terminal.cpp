// SPDX-License-Identifier: MIT
#include "cli/Terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace usbhcdiag {

bool isTerminal(int fd) {
    return ::isatty(fd) == 1;
}

bool mayColour(int fd) {
    const char* noColour = std::getenv("NO_COLOR");
    if (noColour != nullptr && *noColour != '\0') {
        return false;
    }
    const char* terminal = std::getenv("TERM");
    return terminal != nullptr && std::string_view(terminal) != "dumb" && isTerminal(fd);
}

}  // namespace usbhcdiag
