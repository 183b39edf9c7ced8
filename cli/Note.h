// SPDX-License-Identifier: MIT
// What the command says beside its output.
#pragma once

#include <string_view>

namespace usbhcdiag {

/// Writes "usbhcdiag: ", the text and one line feed to standard error. Lines of the text stay lines;
/// other control characters, whoever they come from, are replaced. Main thread only.
void note(std::string_view text);

}  // namespace usbhcdiag
