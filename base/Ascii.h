// SPDX-License-Identifier: MIT
// The ASCII characters' kinds and cases, whatever the process's locale is.
//
// A character may be a char, a UTF-16 code unit or a code point. Whatever is not ASCII (a byte of a
// UTF-8 sequence, for example) is of none of these kinds and has no case.
// Functions without state; any thread may call them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace base {

constexpr bool isAscii(char32_t character) {
    return character < 0x80;
}

constexpr bool isDigit(char32_t character) {
    return character >= '0' && character <= '9';
}

constexpr bool isUpperCase(char32_t character) {
    return character >= 'A' && character <= 'Z';
}

constexpr bool isLowerCase(char32_t character) {
    return character >= 'a' && character <= 'z';
}

constexpr bool isLetter(char32_t character) {
    return isUpperCase(character) || isLowerCase(character);
}

/// How many of the characters (of one or two bytes each) that stand first are ASCII. Most texts are
/// nothing else, so as many as fit a word are looked at together.
template <typename Character>
std::size_t asciiPrefix(const Character* text, std::size_t size) {
    static_assert(std::is_trivially_copyable_v<Character> && sizeof(Character) <= 2);
    constexpr std::uint64_t notAscii =
        sizeof(Character) == 1 ? 0x8080808080808080U : 0xFF80FF80FF80FF80U;
    constexpr std::size_t block = sizeof notAscii / sizeof(Character);
    std::size_t end = 0;
    for (; size - end >= block; end += block) {
        std::uint64_t characters = 0;
        std::memcpy(&characters, text + end, sizeof characters);
        if ((characters & notAscii) != 0) {
            break;
        }
    }
    while (end < size && isAscii(text[end])) {
        ++end;
    }
    return end;
}

/// The character in lower case if it is one of A to Z, else unchanged.
template <typename Character>
constexpr Character toLower(Character character) {
    return isUpperCase(character) ? static_cast<Character>(character + ('a' - 'A')) : character;
}

/// The text with A to Z in lower case.
inline std::string toLower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return toLower(c); });
    return text;
}

/// What digitValue() returns for what is no hexadecimal digit: more than any digit.
constexpr unsigned notADigit = 16;

/// The value of a decimal or hexadecimal digit (of either case), notADigit for anything else.
constexpr unsigned digitValue(char32_t character) {
    if (isDigit(character)) {
        return character - U'0';
    }
    const char32_t letter = toLower(character);
    return letter >= 'a' && letter <= 'f' ? letter - U'a' + 10 : notADigit;
}

/// The hexadecimal digits by their values.
constexpr std::string_view lowerHexDigits = "0123456789abcdef";
constexpr std::string_view upperHexDigits = "0123456789ABCDEF";

/// Whether the text is made of decimal digits alone, or empty.
inline bool isAllDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return isDigit(c); });
}

/// Whether two texts are the same apart from the case of A to Z.
inline bool equalIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return toLower(a) == toLower(b); });
}

}  // namespace base
