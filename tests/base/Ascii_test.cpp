// SPDX-License-Identifier: MIT
#include "base/Ascii.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

namespace base {

namespace {

/// A class around a code unit, as object models have it.
class Unit {
public:
    explicit constexpr Unit(int unit) : unit_(static_cast<std::uint16_t>(unit)) {}
    constexpr operator std::uint16_t() const { return unit_; }  // NOLINT: implicit by intention

private:
    std::uint16_t unit_;
};

std::string charactersThatAre(bool (*kind)(char32_t)) {
    std::string characters;
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        if (kind(character)) {
            characters += character;
        }
    }
    return characters;
}

constexpr const char* upperCase = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr const char* lowerCase = "abcdefghijklmnopqrstuvwxyz";

TEST(Ascii, knowsTheKindOfEachByte) {
    EXPECT_EQ(charactersThatAre(isDigit), "0123456789");
    EXPECT_EQ(charactersThatAre(isUpperCase), upperCase);
    EXPECT_EQ(charactersThatAre(isLowerCase), lowerCase);
    EXPECT_EQ(charactersThatAre(isLetter), std::string(upperCase) + lowerCase);
    const std::string ascii = charactersThatAre(isAscii);
    ASSERT_EQ(ascii.size(), 128U);
    EXPECT_EQ(ascii.front(), '\0');
    EXPECT_EQ(ascii.back(), '\x7F');
}

TEST(Ascii, takesCodeUnitsAndCodePointsThatOnlyEndLikeAscii) {
    EXPECT_TRUE(isDigit(Unit('7')));
    EXPECT_TRUE(isLetter(u'z'));
    for (const int beyond : {0x0137, 0xFF37, 0x8037}) {
        EXPECT_FALSE(isDigit(Unit(beyond))) << std::hex << beyond;
        EXPECT_FALSE(isAscii(Unit(beyond))) << std::hex << beyond;
    }
    EXPECT_FALSE(isLetter(U'\U00010041'));
    EXPECT_EQ(digitValue(U'\U00010041'), notADigit);
}

// ASCII is looked at in blocks, so others have to be found at every place in and between them.
TEST(Ascii, findsTheFirstCharacterThatIsNotAscii) {
    for (std::size_t at = 0; at <= 20; ++at) {
        for (const int other : {0x80, 0xFF}) {
            std::string bytes(20, '\x7F');
            bytes.insert(at, 1, static_cast<char>(other));
            EXPECT_EQ(asciiPrefix(bytes.data(), bytes.size()), at);
            EXPECT_EQ(asciiPrefix(bytes.data(), at), at);
        }
        for (const int other : {0x0080, 0x0100, 0x8000, 0xFFFF}) {
            std::vector<Unit> units(20, Unit('\x7F'));
            units.insert(units.begin() + static_cast<std::ptrdiff_t>(at), Unit(other));
            EXPECT_EQ(asciiPrefix(units.data(), units.size()), at);
            EXPECT_EQ(asciiPrefix(units.data(), at), at);
        }
    }
}

TEST(Ascii, lowersLettersAlone) {
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const bool isUpper = std::string_view(upperCase).find(character) != std::string::npos;
        const char expected = isUpper ? static_cast<char>(byte + 32) : character;
        EXPECT_EQ(toLower(character), expected) << byte;
    }
    EXPECT_EQ(toLower(Unit('A')), Unit('a'));
    EXPECT_EQ(toLower(Unit(0x0141)), Unit(0x0141)) << "ends like A, but is another letter";
    EXPECT_EQ(toLower(std::string("AZ az [@`{ \xC3\x89")), "az az [@`{ \xC3\x89");
    EXPECT_EQ(toLower(std::string()), "");
}

TEST(Ascii, givesTheValueOfEachDigit) {
    const std::string_view digits = "0123456789abcdef";
    const std::string_view capitals = "0123456789ABCDEF";
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const auto value =
            std::min({digits.find(character), capitals.find(character), std::size_t{notADigit}});
        EXPECT_EQ(digitValue(character), value) << byte;
    }
    EXPECT_EQ(digitValue(Unit('F')), 15U);
    EXPECT_EQ(digitValue(Unit(0x0146)), notADigit) << "ends like F";
}

TEST(Ascii, comparesWithoutCase) {
    EXPECT_TRUE(equalIgnoringCase("utf-8", "UTF-8"));
    EXPECT_TRUE(equalIgnoringCase("AZ", "az"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
    EXPECT_FALSE(equalIgnoringCase("utf-8", "utf-16"));
    EXPECT_FALSE(equalIgnoringCase("a", "ab"));
    EXPECT_FALSE(equalIgnoringCase("ab", "a"));
    EXPECT_FALSE(equalIgnoringCase("a[", "a{")) << "only letters have a case";
    EXPECT_FALSE(equalIgnoringCase("@", "`"));
    EXPECT_FALSE(equalIgnoringCase("\xC9", "\xE9")) << "only ASCII letters have a case";
}

TEST(Ascii, tellsTextsOfDigits) {
    EXPECT_TRUE(isAllDigits("0123456789"));
    EXPECT_TRUE(isAllDigits(""));
    for (const char* text : {"1a", "-1", " 1", "1.", "\xB2", "\u0661"}) {
        EXPECT_FALSE(isAllDigits(text)) << text;
    }
}

TEST(Ascii, listsHexadecimalDigitsByTheirValues) {
    for (unsigned value = 0; value < 16; ++value) {
        EXPECT_EQ(digitValue(lowerHexDigits[value]), value);
        EXPECT_EQ(digitValue(upperHexDigits[value]), value);
        EXPECT_EQ(toLower(upperHexDigits[value]), lowerHexDigits[value]);
    }
}

}  // namespace

}  // namespace base
