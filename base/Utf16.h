// SPDX-License-Identifier: MIT
// UTF-16, and texts between it and UTF-8.
//
// A code unit may be a char16_t or a class that converts from and to std::uint16_t. Half a surrogate
// pair is the code point of its number, which generalized UTF-8 can write.
// Functions without state; any thread may call them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "base/Ascii.h"
#include "base/Utf8.h"

namespace base {

/// The code point that the units up to `end`, one at least, begin with; `next` moves after it.
template <typename Unit>
constexpr char32_t readUtf16(const Unit*& next, const Unit* end) {
    const char32_t unit = static_cast<std::uint16_t>(*next++);
    if (unit < 0xD800 || unit > 0xDBFF || next == end) {
        return unit;
    }
    const char32_t second = static_cast<std::uint16_t>(*next);
    if (second < 0xDC00 || second > 0xDFFF) {
        return unit;
    }
    ++next;
    return 0x10000 + ((unit - 0xD800) << 10U) + (second - 0xDC00);
}

/// Writes a code point, with two units at most, and returns the end of what it wrote.
template <typename Unit>
constexpr Unit* writeUtf16(char32_t code, Unit* to) {
    if (code < 0x10000) {
        *to++ = static_cast<std::uint16_t>(code);
        return to;
    }
    const char32_t beyond = code - 0x10000;
    *to++ = static_cast<std::uint16_t>(0xD800 + (beyond >> 10U));
    *to++ = static_cast<std::uint16_t>(0xDC00 + (beyond & 0x3FFU));
    return to;
}

/// How far a conversion from UTF-8 came.
struct Utf8Converted {
    std::size_t bytesRead;  ///< fewer than all: no sequence begins there
    std::size_t unitsWritten;
};

/// Converts `size` bytes of generalized UTF-8; `units` has room for as many units. Code points that
/// are not ASCII are written as what `convert`, from char32_t to char32_t, makes of them.
template <typename Unit, typename Convert>
Utf8Converted utf8ToUtf16(const char* bytes, std::size_t size, Unit* units, Convert convert) {
    std::size_t read = 0;
    Unit* to = units;
    while (true) {
        const std::size_t plain = asciiPrefix(bytes + read, size - read);
        to = std::copy_n(bytes + read, plain, to);
        read += plain;
        if (read == size) {
            break;
        }
        const Utf8Sequence sequence = readGeneralizedUtf8(bytes + read, size - read);
        if (sequence.length == 0) {
            break;
        }
        read += sequence.length;
        to = writeUtf16(convert(sequence.code), to);
    }
    return {read, static_cast<std::size_t>(to - units)};
}

/// The bytes that utf16ToUtf8() writes.
template <typename Unit>
std::size_t utf8Size(const Unit* units, std::size_t size) {
    std::size_t total = asciiPrefix(units, size);
    const Unit* const end = units + size;
    for (units += total; units != end;) {
        total += utf8Length(readUtf16(units, end));
    }
    return total;
}

/// Converts `size` units to generalized UTF-8 and returns the end of what it wrote.
template <typename Unit>
char* utf16ToUtf8(const Unit* units, std::size_t size, char* to) {
    const std::size_t plain = asciiPrefix(units, size);
    const Unit* const end = units + size;
    to = std::copy_n(units, plain, to);
    for (units += plain; units != end;) {
        to = writeUtf8(readUtf16(units, end), to);
    }
    return to;
}

}  // namespace base
