// SPDX-License-Identifier: MIT
#include "diag/DeviceText.h"

#include <algorithm>
#include <array>
#include <vector>

namespace Pegasus {
namespace {

constexpr Uint32 REPLACEMENT_CHARACTER = 0xFFFD;

// Windows-1252 differs from Latin-1, whose numbers are Unicode's, in these bytes alone.
constexpr unsigned char FIRST_WINDOWS_1252_BYTE = 0x80;
constexpr std::array<Uint16, 32> WINDOWS_1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// A view on what is left of the bytes.
class Cursor {
public:
    explicit Cursor(const std::string& bytes)
        : next_(reinterpret_cast<const unsigned char*>(bytes.data())), end_(next_ + bytes.size()) {}

    bool atEnd() const { return next_ == end_; }

    // Takes the next character off, by rules 1 and 2.
    Uint32 take() {
        Uint32 character = 0;
        const int length = wellFormedSequence(character);
        if (length > 0) {
            next_ += length;
            return character;
        }
        const unsigned char byte = *next_++;
        const unsigned index = byte - FIRST_WINDOWS_1252_BYTE;
        return index < WINDOWS_1252.size() ? WINDOWS_1252[index] : byte;
    }

private:
    // Length of the well-formed UTF-8 sequence that comes next, and its character; 0 if none does.
    int wellFormedSequence(Uint32& character) const {
        const unsigned char first = *next_;
        if (first < 0x80) {
            character = first;
            return 1;
        }
        // The first continuation byte's range excludes long forms, surrogates and what lies beyond
        // U+10FFFF; all later ones have the full range.
        if (first >= 0xC2 && first <= 0xDF) {
            return sequence(2, first & 0x1FU, 0x80, 0xBF, character);
        }
        if (first >= 0xE0 && first <= 0xEF) {
            const int low = first == 0xE0 ? 0xA0 : 0x80;
            const int high = first == 0xED ? 0x9F : 0xBF;
            return sequence(3, first & 0x0FU, low, high, character);
        }
        if (first >= 0xF0 && first <= 0xF4) {
            const int low = first == 0xF0 ? 0x90 : 0x80;
            const int high = first == 0xF4 ? 0x8F : 0xBF;
            return sequence(4, first & 0x07U, low, high, character);
        }
        return 0;
    }

    int sequence(int length, Uint32 bits, int low, int high, Uint32& character) const {
        if (end_ - next_ < length) {
            return 0;
        }
        for (int i = 1; i < length; ++i) {
            const int byte = next_[i];
            if (byte < low || byte > high) {
                return 0;
            }
            low = 0x80;
            high = 0xBF;
            bits = (bits << 6U) | (static_cast<Uint32>(byte) & 0x3FU);
        }
        character = bits;
        return length;
    }

    const unsigned char* next_;
    const unsigned char* end_;
};

bool fitsXml(Uint32 character) {
    if (character < 0x20) {
        return character == '\t' || character == '\n' || character == '\r';
    }
    return character != 0xFFFE && character != 0xFFFF;
}

void append(std::vector<Char16>& text, Uint32 character) {
    if (character > 0xFFFF) {
        character -= 0x10000;
        text.emplace_back(static_cast<Uint16>(0xD800 + (character >> 10U)));
        text.emplace_back(static_cast<Uint16>(0xDC00 + (character & 0x3FFU)));
    } else {
        text.emplace_back(static_cast<Uint16>(character));
    }
}

bool isPlain(char byte) {
    return byte >= ' ' && byte <= '~';
}

}  // namespace

String textFromBytes(const std::string& bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), isPlain)) {
        return String(bytes.data(), static_cast<Uint32>(bytes.size()));
    }
    std::vector<Char16> text;
    text.reserve(bytes.size());
    for (Cursor cursor(bytes); !cursor.atEnd();) {
        const Uint32 character = cursor.take();
        append(text, fitsXml(character) ? character : REPLACEMENT_CHARACTER);
    }
    return String(text.data(), static_cast<Uint32>(text.size()));
}

}  // namespace Pegasus
