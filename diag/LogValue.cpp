// SPDX-License-Identifier: MIT
#include "diag/LogValue.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/Ascii.h"
#include "base/ControlCharacters.h"

namespace Pegasus {
namespace {

bool isControl(Char16 character) {
    return base::isControl(static_cast<Uint16>(character));
}

void appendEscaped(std::vector<Char16>& text, Uint16 code) {
    constexpr std::string_view digits = base::lowerHexDigits;
    for (const char part : {'\\', 'x', digits[code >> 4U], digits[code & 0xFU]}) {
        text.emplace_back(static_cast<Uint16>(part));
    }
}

}  // namespace

String logValue(const String& value) {
    const Char16* const begin = value.getChar16Data();
    const Char16* const end = begin + value.size();
    if (std::none_of(begin, end, isControl)) {
        return value;
    }
    std::vector<Char16> text;
    text.reserve(value.size());
    for (const Char16* character = begin; character != end; ++character) {
        if (isControl(*character)) {
            appendEscaped(text, *character);
        } else {
            text.push_back(*character);
        }
    }
    return String(text.data(), static_cast<Uint32>(text.size()));
}

}  // namespace Pegasus
