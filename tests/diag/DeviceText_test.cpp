// SPDX-License-Identifier: MIT
#include "diag/DeviceText.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/ObjectModelText.h"

namespace Pegasus {
namespace {

std::vector<unsigned> unitsOf(const String& text) {
    std::vector<unsigned> units;
    for (Uint32 i = 0; i < text.size(); ++i) {
        units.push_back(static_cast<Uint16>(text[i]));
    }
    return units;
}

std::vector<unsigned> unitsFrom(const std::string& bytes) {
    return unitsOf(textFromBytes(bytes));
}

using Units = std::vector<unsigned>;

bool fitsXml10(unsigned character) {
    return character == 0x9 || character == 0xA || character == 0xD ||
           (character >= 0x20 && character <= 0xD7FF) ||
           (character >= 0xE000 && character <= 0xFFFD) ||
           (character >= 0x10000 && character <= 0x10FFFF);
}

Units encoded(unsigned character) {
    if (!fitsXml10(character)) {
        return {0xFFFD};
    }
    if (character > 0xFFFF) {
        return {0xD800 + ((character - 0x10000) >> 10), 0xDC00 + ((character - 0x10000) & 0x3FF)};
    }
    return {character};
}

std::string utf8(unsigned character) {
    std::string bytes;
    const auto add = [&bytes](unsigned byte) { bytes += static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | (character >> 6));
        add(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        add(0xE0 | (character >> 12));
        add(0x80 | ((character >> 6) & 0x3F));
        add(0x80 | (character & 0x3F));
    } else {
        add(0xF0 | (character >> 18));
        add(0x80 | ((character >> 12) & 0x3F));
        add(0x80 | ((character >> 6) & 0x3F));
        add(0x80 | (character & 0x3F));
    }
    return bytes;
}

TEST(DeviceText, PlainAsciiStaysAsItIs) {
    EXPECT_EQ(text(textFromBytes("USB OHCI Root Hub")), "USB OHCI Root Hub");
    EXPECT_EQ(text(textFromBytes("")), "");
    EXPECT_EQ(text(textFromBytes("  blanks  ")), "  blanks  ");
}

TEST(DeviceText, EveryCharacterInUtf8IsThatCharacter) {
    for (unsigned character = 0; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF) {
            continue;
        }
        ASSERT_EQ(unitsFrom(utf8(character)), encoded(character)) << std::hex << character;
    }
}

TEST(DeviceText, EveryLoneByteIsItsWindows1252Character) {
    const Units windows1252 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                               0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        const Units expected = {'a', byte < 0xA0 ? windows1252[byte - 0x80] : byte, 'b'};
        EXPECT_EQ(unitsFrom(std::string("a") + static_cast<char>(byte) + "b"), expected)
            << std::hex << byte;
    }
}

TEST(DeviceText, RegisteredSignOfOldKernelsIsRead) {
    EXPECT_EQ(text(textFromBytes("Microsoft IntelliMouse\xAE Optical")),
              "Microsoft IntelliMouse\xC2\xAE Optical");
}

TEST(DeviceText, ProtocolNameInWindows1252IsRead) {
    EXPECT_EQ(text(textFromBytes("also known as \x93Hayes\x99 compatible\x94")),
              "also known as \xE2\x80\x9CHayes\xE2\x84\xA2 compatible\xE2\x80\x9D");
}

TEST(DeviceText, CharacterCutInTheMiddleIsReadByteByByte) {
    EXPECT_EQ(unitsFrom("\xE2\x82"), (Units{0xE2, 0x201A}));
    EXPECT_EQ(unitsFrom("\xC3"), (Units{0xC3}));
    EXPECT_EQ(unitsFrom("\xF0\x9F\x98"), (Units{0xF0, 0x0178, 0x02DC}));
    EXPECT_EQ(unitsFrom("\xE2\x82|"), (Units{0xE2, 0x201A, '|'}));
}

TEST(DeviceText, IllFormedSequencesAreReadByteByByte) {
    EXPECT_EQ(unitsFrom("\xC0\x80"), (Units{0xC0, 0x20AC}));                          // overlong
    EXPECT_EQ(unitsFrom("\xC1\xBF"), (Units{0xC1, 0xBF}));                            // overlong
    EXPECT_EQ(unitsFrom("\xE0\x9F\xBF"), (Units{0xE0, 0x0178, 0xBF}));                // overlong
    EXPECT_EQ(unitsFrom("\xF0\x8F\xBF\xBF"), (Units{0xF0, 0x8F, 0xBF, 0xBF}));        // overlong
    EXPECT_EQ(unitsFrom("\xED\xA0\x80"), (Units{0xED, 0xA0, 0x20AC}));                // surrogate
    EXPECT_EQ(unitsFrom("\xF4\x90\x80\x80"), (Units{0xF4, 0x90, 0x20AC, 0x20AC}));    // too large
    EXPECT_EQ(unitsFrom("\xF5\x80\x80\x80"), (Units{0xF5, 0x20AC, 0x20AC, 0x20AC}));  // too large
    EXPECT_EQ(unitsFrom("\xE2(\xA1"), (Units{0xE2, '(', 0xA1}));  // not a continuation
}

TEST(DeviceText, WellFormedSequenceAfterABadByteIsFound) {
    EXPECT_EQ(unitsFrom("\xE2\xC3\xA9"), (Units{0xE2, 0xE9}));
    EXPECT_EQ(unitsFrom("\xF0\xE2\x82\xAC"), (Units{0xF0, 0x20AC}));
}

TEST(DeviceText, ControlCharactersExceptTabAndLineEndsBecomeReplacements) {
    for (unsigned byte = 0; byte < 0x20; ++byte) {
        const bool stays = byte == '\t' || byte == '\n' || byte == '\r';
        EXPECT_EQ(unitsFrom(std::string(1, static_cast<char>(byte))),
                  (Units{stays ? byte : 0xFFFD}))
            << byte;
    }
    EXPECT_EQ(unitsFrom("\x7F"), (Units{0x7F}));
}

TEST(DeviceText, NoncharactersOfThePlaneBecomeReplacements) {
    EXPECT_EQ(unitsFrom("\xEF\xBF\xBE"), (Units{0xFFFD}));
    EXPECT_EQ(unitsFrom("\xEF\xBF\xBF"), (Units{0xFFFD}));
    EXPECT_EQ(unitsFrom("\xEF\xBF\xBD"), (Units{0xFFFD}));
}

TEST(DeviceText, AnyBytesGiveTextThatXmlCanCarry) {
    std::mt19937 random(20261120);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (int i = 0; i < 12; ++i) {
            bytes += static_cast<char>(byte(random));
        }
        const String converted = textFromBytes(bytes);
        for (Uint32 i = 0; i < converted.size(); ++i) {
            const unsigned unit = static_cast<Uint16>(converted[i]);
            if (unit >= 0xD800 && unit <= 0xDBFF) {
                const unsigned low = static_cast<Uint16>(converted[++i]);
                ASSERT_TRUE(low >= 0xDC00 && low <= 0xDFFF);
            } else {
                ASSERT_TRUE(fitsXml10(unit)) << unit;
            }
        }
    }
}

}  // namespace
}  // namespace Pegasus
