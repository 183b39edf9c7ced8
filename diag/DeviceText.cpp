// SPDX-License-Identifier: MIT
#include "diag/DeviceText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "base/Utf16.h"
#include "base/Utf8.h"

namespace Pegasus {
namespace {

// Windows-1252 differs only in these bytes from Latin-1, whose codes are those of Unicode.
constexpr unsigned char firstWindows1252Byte = 0x80;
constexpr std::array<Uint16, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Removes the next character from the bytes and returns it, by rules 1 and 2.
char32_t takeCharacter(std::string_view& bytes) {
    const base::Utf8Sequence sequence = base::readUtf8(bytes.data(), bytes.size());
    if (sequence.length > 0) {
        bytes.remove_prefix(sequence.length);
        return sequence.code;
    }
    const auto byte = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    const unsigned index = byte - firstWindows1252Byte;
    return index < windows1252.size() ? windows1252[index] : byte;
}

bool fitsXml(char32_t character) {
    if (character < 0x20) {
        return character == '\t' || character == '\n' || character == '\r';
    }
    return character != 0xFFFE && character != 0xFFFF;
}

bool isPlain(char byte) {
    return byte >= ' ' && byte <= '~';
}

}  // namespace

String textFromBytes(const std::string& bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), isPlain)) {
        return String(bytes.data(), static_cast<Uint32>(bytes.size()));
    }
    // No character takes more code units than bytes.
    std::vector<Char16> text(bytes.size());
    Char16* end = text.data();
    for (std::string_view rest = bytes; !rest.empty();) {
        const char32_t character = takeCharacter(rest);
        end = base::writeUtf16(fitsXml(character) ? character : base::replacementCharacter, end);
    }
    return String(text.data(), static_cast<Uint32>(end - text.data()));
}

}  // namespace Pegasus
