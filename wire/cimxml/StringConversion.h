// SPDX-License-Identifier: MIT
// Between the object model's strings and UTF-8, which documents, header fields and people get.
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>

#include <Pegasus/Common/String.h>

#include "base/Utf8.h"

namespace wire {

/// What stands for a code point that XML has no character for (half a surrogate pair, U+FFFE and
/// U+FFFF): U+FFFD; any other is itself.
constexpr char32_t carriedCharacter(char32_t code) {
    const bool isCharacter = !base::isSurrogate(code) && code != 0xFFFE && code != 0xFFFF;
    return isCharacter ? code : base::replacementCharacter;
}

/// UTF-8 of a string, in which carriedCharacter() stands for each code point.
std::string toUtf8(const Pegasus::String& text);

/// A string of UTF-8. Throws XmlError (notWellFormed) for bytes that are not UTF-8.
Pegasus::String fromUtf8(std::string_view utf8);

}  // namespace wire
