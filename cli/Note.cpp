// SPDX-License-Identifier: MIT
#include "cli/Note.h"

#include <iostream>

#include "cli/TerminalText.h"

namespace usbhcdiag {

void note(std::string_view text) {
    const std::size_t end = text.find_last_not_of('\n') + 1;
    std::cerr << "usbhcdiag: " << linesWithoutControls(text.substr(0, end)) << "\n";
}

}  // namespace usbhcdiag
