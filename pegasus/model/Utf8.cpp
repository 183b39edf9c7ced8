// SPDX-License-Identifier: MIT
#include "pegasus/model/Utf8.h"

#include <algorithm>

namespace Pegasus::Utf8 {

namespace {

using CodePoint = Uint32;

constexpr CodePoint replacement = 0xFFFD;
constexpr CodePoint firstBeyondBasicPlane = 0x10000;
constexpr CodePoint firstHighSurrogate = 0xD800;
constexpr CodePoint firstLowSurrogate = 0xDC00;
constexpr CodePoint lastLowSurrogate = 0xDFFF;

constexpr bool isHighSurrogate(CodePoint unit) {
    return unit >= firstHighSurrogate && unit < firstLowSurrogate;
}

constexpr bool isLowSurrogate(CodePoint unit) {
    return unit >= firstLowSurrogate && unit <= lastLowSurrogate;
}

constexpr bool isCharacter(CodePoint code) {
    return !(code >= firstHighSurrogate && code <= lastLowSurrogate) &&
           !(code >= 0xFFFE && code < firstBeyondBasicPlane);
}

/// The length that the first byte of a sequence announces, 0 if it is none.
constexpr std::size_t announcedLength(Uint8 lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2) {
        return 0;
    }
    if (lead < 0xE0) {
        return 2;
    }
    if (lead < 0xF0) {
        return 3;
    }
    return lead < 0xF5 ? 4 : 0;
}

struct Sequence {
    CodePoint code;
    std::size_t length;  // 0: not UTF-8
};

Sequence readSequence(const char* bytes, std::size_t size) {
    const auto lead = static_cast<Uint8>(bytes[0]);
    const std::size_t length = announcedLength(lead);
    if (length == 0 || length > size) {
        return {0, 0};
    }
    if (length == 1) {
        return {lead, 1};
    }
    CodePoint code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<Uint8>(bytes[i]);
        if ((byte & 0xC0U) != 0x80U) {
            return {0, 0};
        }
        code = code << 6U | (byte & 0x3FU);
    }
    const bool isOverlong =
        (length == 3 && code < 0x800) || (length == 4 && code < firstBeyondBasicPlane);
    if (isOverlong || code > 0x10FFFF) {
        return {0, 0};
    }
    return {code, length};
}

/// The code point that begins at `index`, which moves behind it.
CodePoint nextCodePoint(const Char16* units, std::size_t size, std::size_t& index) {
    const CodePoint unit = units[index++];
    if (isHighSurrogate(unit) && index < size && isLowSurrogate(units[index])) {
        const CodePoint low = units[index++];
        return firstBeyondBasicPlane + ((unit - firstHighSurrogate) << 10U) +
               (low - firstLowSurrogate);
    }
    return unit;
}

/// How many of the characters that stand first are ASCII. Most texts are nothing else, so eight are
/// looked at together.
template <class Unit>
std::size_t asciiPrefix(const Unit* units, std::size_t size) {
    constexpr std::size_t block = 8;
    constexpr unsigned notAscii = 0xFF80;
    std::size_t end = 0;
    for (unsigned bits = 0; size - end >= block; end += block) {
        for (std::size_t i = 0; i < block; ++i) {
            bits |= static_cast<Uint16>(units[end + i]);
        }
        if ((bits & notAscii) != 0) {
            break;
        }
    }
    while (end < size && (static_cast<Uint16>(units[end]) & notAscii) == 0) {
        ++end;
    }
    return end;
}

constexpr std::size_t encodedLength(CodePoint code) {
    if (code < 0x80) {
        return 1;
    }
    if (code < 0x800) {
        return 2;
    }
    return code < firstBeyondBasicPlane ? 3 : 4;
}

}  // namespace

Decoded decode(const char* bytes, std::size_t size, Char16* units) {
    std::size_t read = 0;
    std::size_t written = 0;
    while (read < size) {
        const std::size_t plain = asciiPrefix(bytes + read, size - read);
        std::copy_n(bytes + read, plain, units + written);
        read += plain;
        written += plain;
        if (read == size) {
            break;
        }
        const Sequence sequence = readSequence(bytes + read, size - read);
        if (sequence.length == 0) {
            break;
        }
        read += sequence.length;
        const CodePoint code = isCharacter(sequence.code) ? sequence.code : replacement;
        if (code < firstBeyondBasicPlane) {
            units[written++] = static_cast<Uint16>(code);
        } else {
            const CodePoint beyond = code - firstBeyondBasicPlane;
            units[written++] = static_cast<Uint16>(firstHighSurrogate + (beyond >> 10U));
            units[written++] = static_cast<Uint16>(firstLowSurrogate + (beyond & 0x3FFU));
        }
    }
    return {read, written};
}

std::size_t encodedSize(const Char16* units, std::size_t size) {
    std::size_t total = asciiPrefix(units, size);
    for (std::size_t i = total; i < size;) {
        total += encodedLength(nextCodePoint(units, size, i));
    }
    return total;
}

char* encode(const Char16* units, std::size_t size, char* bytes) {
    const std::size_t plain = asciiPrefix(units, size);
    bytes = std::copy_n(units, plain, bytes);
    for (std::size_t i = plain; i < size;) {
        const CodePoint code = nextCodePoint(units, size, i);
        const std::size_t length = encodedLength(code);
        if (length == 1) {
            *bytes++ = static_cast<char>(code);
            continue;
        }
        // As many leading ones as there are bytes, then the bits of the code, six in each further
        // byte.
        const CodePoint mark = 0xF00U >> length & 0xFFU;
        std::size_t shift = 6 * (length - 1);
        *bytes++ = static_cast<char>(mark | code >> shift);
        while (shift != 0) {
            shift -= 6;
            *bytes++ = static_cast<char>(0x80U | (code >> shift & 0x3FU));
        }
    }
    return bytes;
}

}  // namespace Pegasus::Utf8
