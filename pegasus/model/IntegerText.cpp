// SPDX-License-Identifier: MIT
#include "pegasus/model/IntegerText.h"

#include <limits>

namespace Pegasus {

namespace {

constexpr unsigned notADigit = 16;

constexpr unsigned digitOf(Uint16 unit) {
    if (unit >= '0' && unit <= '9') {
        return unit - unsigned{'0'};
    }
    if (unit >= 'a' && unit <= 'f') {
        return unit - unsigned{'a'} + 10;
    }
    if (unit >= 'A' && unit <= 'F') {
        return unit - unsigned{'A'} + 10;
    }
    return notADigit;
}

constexpr bool isX(Uint16 unit) {
    return unit == 'x' || unit == 'X';
}

std::optional<Uint64> parseDigits(const Char16* begin, const Char16* end, unsigned base) {
    if (begin == end) {
        return std::nullopt;
    }
    Uint64 number = 0;
    for (; begin != end; ++begin) {
        const unsigned digit = digitOf(*begin);
        if (digit >= base || number > (std::numeric_limits<Uint64>::max() - digit) / base) {
            return std::nullopt;
        }
        number = number * base + digit;
    }
    return number;
}

}  // namespace

std::optional<Integer> parseInteger(const String& text, Sign sign) {
    constexpr Uint64 lowest = Uint64{1} << 63U;
    const Char16* begin = text.getChar16Data();
    const Char16* const end = begin + text.size();
    bool isNegative = false;
    bool isHexadecimal = false;
    if (begin != end && (*begin == '-' || (*begin == '+' && sign == Sign::PlusOrMinus))) {
        isNegative = *begin == '-';
        ++begin;
    } else if (text.size() > 2 && begin[0] == '0' && isX(begin[1])) {
        isHexadecimal = true;
        begin += 2;
    }
    if (!isHexadecimal && end - begin > 1 && *begin == '0') {
        return std::nullopt;
    }
    const std::optional<Uint64> magnitude = parseDigits(begin, end, isHexadecimal ? 16 : 10);
    if (!magnitude || (isNegative && *magnitude > lowest)) {
        return std::nullopt;
    }
    return Integer{isNegative && *magnitude != 0, *magnitude};
}

}  // namespace Pegasus
