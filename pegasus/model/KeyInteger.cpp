// SPDX-License-Identifier: MIT
#include "pegasus/model/KeyInteger.h"

#include "base/Integers.h"

namespace Pegasus {

std::optional<KeyInteger> parseKeyInteger(const String& text, Sign sign) {
    constexpr Uint64 lowest = Uint64{1} << 63U;
    const Char16* begin = text.getChar16Data();
    const Char16* const end = begin + text.size();
    if (base::isHexadecimal(begin, end)) {
        const std::optional<Uint64> number = base::parseDigits<Uint64>(begin + 2, end, 16);
        return number ? std::optional(KeyInteger{false, *number}) : std::nullopt;
    }
    const bool isNegative = begin != end && *begin == '-';
    if (isNegative || (begin != end && *begin == '+' && sign == Sign::plusOrMinus)) {
        ++begin;
    }
    if (end - begin > 1 && *begin == '0') {
        return std::nullopt;
    }
    const std::optional<Uint64> magnitude = base::parseDigits<Uint64>(begin, end);
    if (!magnitude || (isNegative && *magnitude > lowest)) {
        return std::nullopt;
    }
    return KeyInteger{isNegative && *magnitude != 0, *magnitude};
}

}  // namespace Pegasus
