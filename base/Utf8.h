// SPDX-License-Identifier: MIT
// UTF-8: one code point at a time, and whether a text is well formed.
//
// A sequence is the shortest form of a code point up to U+10FFFF other than a surrogate. Generalized
// UTF-8, which some programs write, has sequences for surrogates, too.
// Functions without state; any thread may call them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

/// Stands for what cannot be shown or carried.
constexpr char32_t replacementCharacter = 0xFFFD;

constexpr char32_t lastCodePoint = 0x10FFFF;

constexpr bool isSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

/// Whether a byte is one of a sequence other than its first.
constexpr bool continuesUtf8(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// A code point and the number of bytes that write it; no bytes if there is no sequence.
struct Utf8Sequence {
    char32_t code;
    std::size_t length;
};

/// The sequence of generalized UTF-8 that the bytes, one at least, begin with.
constexpr Utf8Sequence readGeneralizedUtf8(const char* bytes, std::size_t size) {
    constexpr Utf8Sequence none{0, 0};
    const auto lead = static_cast<unsigned char>(bytes[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    // Two bytes from 0xC0 or 0xC1 on would be longer forms of ASCII.
    if (lead < 0xC2 || lead > 0xF4) {
        return none;
    }
    const std::size_t length = 2U + (lead >= 0xE0 ? 1U : 0U) + (lead >= 0xF0 ? 1U : 0U);
    if (length > size) {
        return none;
    }
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (!continuesUtf8(bytes[i])) {
            return none;
        }
        code = code << 6U | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
    }
    const bool isOverlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    return isOverlong || code > lastCodePoint ? none : Utf8Sequence{code, length};
}

/// The same for UTF-8: none for a surrogate.
constexpr Utf8Sequence readUtf8(const char* bytes, std::size_t size) {
    const Utf8Sequence sequence = readGeneralizedUtf8(bytes, size);
    return isSurrogate(sequence.code) ? Utf8Sequence{0, 0} : sequence;
}

/// The bytes that writeUtf8() writes.
constexpr std::size_t utf8Length(char32_t code) {
    if (code < 0x80) {
        return 1;
    }
    if (code < 0x800) {
        return 2;
    }
    return code < 0x10000 ? 3 : 4;
}

/// Writes a code point, a surrogate as generalized UTF-8, with four bytes at most; returns the end of
/// what it wrote.
constexpr char* writeUtf8(char32_t code, char* to) {
    const std::size_t length = utf8Length(code);
    if (length == 1) {
        *to++ = static_cast<char>(code);
        return to;
    }
    // As many leading ones as there are bytes, then the bits of the code, six in each further byte.
    const char32_t mark = 0xF00U >> length & 0xFFU;
    std::size_t shift = 6 * (length - 1);
    *to++ = static_cast<char>(mark | code >> shift);
    while (shift != 0) {
        shift -= 6;
        *to++ = static_cast<char>(0x80U | (code >> shift & 0x3FU));
    }
    return to;
}

void appendUtf8(std::string& text, char32_t code);

/// The beginning of a well-formed text, `longest` bytes or so many fewer that no sequence is cut.
std::string_view utf8Prefix(std::string_view text, std::size_t longest);

/// Whether all of `text` is well formed.
bool isUtf8(std::string_view text);

}  // namespace base
