// SPDX-License-Identifier: MIT
#include "base/Utf8.h"

#include <array>

#include "base/Ascii.h"

namespace base {

void appendUtf8(std::string& text, char32_t code) {
    std::array<char, 4> bytes{};
    text.append(bytes.data(), writeUtf8(code, bytes.data()));
}

bool isUtf8(std::string_view text) {
    while (true) {
        text.remove_prefix(asciiPrefix(text.data(), text.size()));
        if (text.empty()) {
            return true;
        }
        const Utf8Sequence sequence = readUtf8(text.data(), text.size());
        if (sequence.length == 0 || isSurrogate(sequence.code)) {
            return false;
        }
        text.remove_prefix(sequence.length);
    }
}

}  // namespace base
