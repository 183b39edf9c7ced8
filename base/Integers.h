// SPDX-License-Identifier: MIT
// Integers from text.
//
// The whole text must be the number: no white space, no separators. Nothing is returned for a text
// that is none, and for a number beyond the range of the type wanted.
// Functions without state; any thread may call them.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

#include "base/Ascii.h"

namespace base {

/// The number that the characters up to `end` write with the digits of a radix from 2 to 16 (letters
/// of either case): at least one digit, no sign, as many leading zeros as there are. The characters
/// may be of any type that Ascii.h takes.
template <typename Unsigned = std::uint64_t, typename Character>
constexpr std::optional<Unsigned> parseDigits(const Character* begin, const Character* end,
                                              unsigned radix = 10) {
    static_assert(std::is_unsigned_v<Unsigned>);
    constexpr std::uint64_t largest = std::numeric_limits<Unsigned>::max();
    std::uint64_t number = 0;
    for (const Character* next = begin; next != end; ++next) {
        const unsigned digit = digitValue(*next);
        if (digit >= radix || number > (largest - digit) / radix) {
            return std::nullopt;
        }
        number = number * radix + digit;
    }
    return begin == end ? std::nullopt : std::optional<Unsigned>(static_cast<Unsigned>(number));
}

template <typename Unsigned = std::uint64_t>
constexpr std::optional<Unsigned> parseDigits(std::string_view text, unsigned radix = 10) {
    return parseDigits<Unsigned>(text.data(), text.data() + text.size(), radix);
}

/// Whether "0x" or "0X" and something more is what the characters up to `end` are.
template <typename Character>
constexpr bool isHexadecimal(const Character* begin, const Character* end) {
    return end - begin > 2 && begin[0] == '0' && toLower(begin[1]) == 'x';
}

constexpr bool isHexadecimal(std::string_view text) {
    return isHexadecimal(text.data(), text.data() + text.size());
}

/// A decimal number, or a hexadecimal one after "0x", with an optional sign before either. Types
/// without a sign take "-0".
template <typename Integer>
constexpr std::optional<Integer> parseInteger(std::string_view text) {
    static_assert(std::is_integral_v<Integer>);
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    const std::optional<std::uint64_t> magnitude =
        isHexadecimal(text) ? parseDigits(text.substr(2), 16) : parseDigits(text);
    constexpr std::uint64_t largest = std::numeric_limits<Integer>::max();
    constexpr std::uint64_t mostNegative = std::is_signed_v<Integer> ? largest + 1 : 0;
    if (!magnitude || *magnitude > (isNegative ? mostNegative : largest)) {
        return std::nullopt;
    }
    return static_cast<Integer>(isNegative ? 0 - *magnitude : *magnitude);
}

}  // namespace base
