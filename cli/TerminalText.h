// SPDX-License-Identifier: MIT
// Text on its way to people: what a terminal may get, and how wide it is. All text is UTF-8.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>

namespace usbhcdiag {

/// `text` with each control character (C0, DEL, C1) replaced by U+FFFD, so that a device's name
/// can neither move the cursor nor break a line; likewise each byte that is no UTF-8, some of which
/// are control characters to some terminals.
std::string withoutControls(std::string_view text);

/// The same for text of several lines: line feeds stay.
std::string linesWithoutControls(std::string_view text);

/// `text` with each line feed replaced by U+FFFD: one line stays one line.
std::string withoutLineFeeds(std::string_view text);

/// The columns that `text` takes on a terminal.
size_t displayWidth(std::string_view text);

}  // namespace usbhcdiag
