// SPDX-License-Identifier: MIT
// Text on its way to people: what a terminal may get, and how wide it is. All text is UTF-8.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>

#include "base/ControlCharacters.h"

namespace usbhcdiag {

using base::withoutControls;

/// withoutControls() for text of several lines: line feeds stay.
std::string linesWithoutControls(std::string_view text);

/// `text` with each line feed replaced by U+FFFD: one line stays one line.
std::string withoutLineFeeds(std::string_view text);

/// The columns that `text` takes on a terminal.
size_t displayWidth(std::string_view text);

}  // namespace usbhcdiag
