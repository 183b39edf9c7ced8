// SPDX-License-Identifier: MIT
// Text of devices and servers on its way to a terminal.
#pragma once

#include <string>
#include <string_view>

namespace base {

/// `text` with each control character (C0, DEL, C1) replaced by U+FFFD, so that a device's name
/// can neither move the cursor nor break a line; likewise each byte that is no UTF-8, some of which
/// are control characters to some terminals. Any thread may call it.
std::string withoutControls(std::string_view text);

}  // namespace base
