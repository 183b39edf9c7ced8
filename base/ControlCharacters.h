// SPDX-License-Identifier: MIT
// Text of devices and servers on its way to a terminal.
#pragma once

#include <string>
#include <string_view>

namespace base {

/// Whether a code point is a control character: C0, DEL or C1. Any thread may call it.
constexpr bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

/// `text` with each control character (C0, DEL, C1) replaced by U+FFFD, so that a device's name
/// can neither move the cursor nor break a line; likewise each byte that is no UTF-8, some of which
/// are control characters to some terminals. Any thread may call it.
std::string withoutControls(std::string_view text);

}  // namespace base
