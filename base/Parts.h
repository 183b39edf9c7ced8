// SPDX-License-Identifier: MIT
// Texts made of parts with something between them: "a, b, c".
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace base {

/// Appends `part`, after `separator` unless the text is empty.
inline void appendPart(std::string& text, std::string_view separator, std::string_view part) {
    if (!text.empty()) {
        text += separator;
    }
    text += part;
}

/// The parts with `separator` between them.
inline std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
    std::string text;
    for (const std::string& part : parts) {
        appendPart(text, separator, part);
    }
    return text;
}

}  // namespace base
