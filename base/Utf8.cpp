// SPDX-License-Identifier: MIT
#include "base/Utf8.h"

#include <array>

#include "base/Ascii.h"

namespace base {

void appendUtf8(std::string& text, char32_t code) {
    std::array<char, 4> bytes{};
    text.append(bytes.data(), writeUtf8(code, bytes.data()));
}

std::string_view utf8Prefix(std::string_view text, std::size_t longest) {
    if (text.size() <= longest) {
        return text;
    }
    while (longest > 0 && continuesUtf8(text[longest])) {
        --longest;
    }
    return text.substr(0, longest);
}

bool isUtf8(std::string_view text) {
    while (true) {
        text.remove_prefix(asciiPrefix(text.data(), text.size()));
        if (text.empty()) {
            return true;
        }
        const Utf8Sequence sequence = readUtf8(text.data(), text.size());
        if (sequence.length == 0) {
            return false;
        }
        text.remove_prefix(sequence.length);
    }
}

}  // namespace base
