// SPDX-License-Identifier: MIT
#include "base/ControlCharacters.h"

#include "base/Utf8.h"

namespace base {

std::string withoutControls(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Utf8Sequence sequence = readUtf8(text.data(), text.size());
        const std::size_t length = sequence.length > 0 ? sequence.length : 1;
        if (sequence.length == 0 || isControl(sequence.code)) {
            appendUtf8(result, replacementCharacter);
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return result;
}

}  // namespace base
