// SPDX-License-Identifier: MIT
#include "base/Utf16.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace base {

namespace {

/// A class around a code unit, as object models have it.
class Unit {
public:
    constexpr Unit() = default;
    constexpr Unit(std::uint16_t unit) : unit_(unit) {}         // NOLINT: implicit by intention
    constexpr operator std::uint16_t() const { return unit_; }  // NOLINT: implicit by intention

private:
    std::uint16_t unit_ = 0;
};

constexpr char32_t unchanged(char32_t code) {
    return code;
}

std::string roundTrip(const std::string& bytes) {
    std::vector<Unit> units(bytes.size());
    const Utf8Converted converted =
        utf8ToUtf16(bytes.data(), bytes.size(), units.data(), unchanged);
    std::string back(utf8Size(units.data(), converted.unitsWritten), '\0');
    const char* const end = utf16ToUtf8(units.data(), converted.unitsWritten, back.data());
    EXPECT_EQ(end, back.data() + back.size());
    return back;
}

std::size_t bytesRead(const std::string& bytes) {
    std::vector<Unit> units(bytes.size());
    return utf8ToUtf16(bytes.data(), bytes.size(), units.data(), unchanged).bytesRead;
}

std::u16string utf16Of(const std::string& bytes) {
    std::u16string units(bytes.size(), u'\0');
    const Utf8Converted converted =
        utf8ToUtf16(bytes.data(), bytes.size(), units.data(), unchanged);
    EXPECT_EQ(converted.bytesRead, bytes.size());
    units.resize(converted.unitsWritten);
    return units;
}

std::string utf8Of(const std::u16string& units) {
    std::string bytes(utf8Size(units.data(), units.size()), '\0');
    const char* const end = utf16ToUtf8(units.data(), units.size(), bytes.data());
    EXPECT_EQ(end, bytes.data() + bytes.size());
    return bytes;
}

TEST(Utf16, writesAndReadsBackEveryCodePoint) {
    for (char32_t code = 0; code <= lastCodePoint; ++code) {
        std::array<char16_t, 3> units{u'x', u'x', u'x'};
        const char16_t* const end = writeUtf16(code, units.data());
        ASSERT_EQ(end - units.data(), code < 0x10000 ? 1 : 2) << std::hex << std::uint32_t{code};
        ASSERT_EQ(*end, u'x');
        const char16_t* next = units.data();
        ASSERT_EQ(readUtf16(next, units.data() + units.size()), code);
        ASSERT_EQ(next, end);
    }
    std::array<Unit, 2> units;
    writeUtf16(lastCodePoint, units.data());
    EXPECT_EQ(units[0], 0xDBFF);
    EXPECT_EQ(units[1], 0xDFFF);
}

TEST(Utf16, readsHalvesOfPairsByTheirNumber) {
    for (const std::u16string& units : {std::u16string{0xD800},
                                        {0xDBFF, 0xD800},
                                        {0xD800, 0xDBFF},
                                        {0xD800, 0xE000},
                                        {0xDBFF, u'a'},
                                        {0xDC00, 0xDC00},
                                        {0xDFFF, 0xD800},
                                        {0xDFFF}}) {
        const char16_t* next = units.data();
        EXPECT_EQ(readUtf16(next, units.data() + units.size()), units[0]);
        EXPECT_EQ(next, units.data() + 1);
    }
    const std::u16string cutOff = u"\U0001F600";
    const char16_t* next = cutOff.data();
    EXPECT_EQ(readUtf16(next, cutOff.data() + 1), 0xD83D) << "the second half is not looked at";
}

TEST(Utf16, keepsTheFirstAndTheLastCharacterOfEachLength) {
    for (const char* const bytes :
         {"\x01", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(roundTrip(bytes), bytes);
    }
}

// ASCII is looked at in blocks, so others have to be found at every place in and between them.
TEST(Utf16, keepsACharacterAtAnyPlaceAmongAscii) {
    const std::string ascii = "0123456789ABCDEFGHI";
    for (std::size_t at = 0; at <= ascii.size(); ++at) {
        for (const char* const character : {"\xC2\x80", "\xEF\xBF\xBD", "\xF4\x8F\xBF\xBF"}) {
            std::string bytes = ascii;
            bytes.insert(at, character);
            EXPECT_EQ(roundTrip(bytes), bytes);
            EXPECT_EQ(roundTrip(bytes.substr(at) + ascii), bytes.substr(at) + ascii);
        }
    }
}

TEST(Utf16, stopsAtAByteAtAnyPlaceAmongAscii) {
    for (std::size_t at = 0; at < 20; ++at) {
        std::string bytes(20, 'a');
        bytes[at] = '\x80';
        EXPECT_EQ(bytesRead(bytes), at);
    }
}

TEST(Utf16, stopsAtWhatIsNotUtf8) {
    for (const char* const bytes : {"ab\x80", "ab\xC1\xBF", "ab\xC2", "ab\xC2z", "ab\xE0\x9F\xBF",
                                    "ab\xE2\x82", "ab\xE2\x82z", "ab\xF0\x8F\xBF\xBF",
                                    "ab\xF4\x90\x80\x80", "ab\xF5\x80\x80\x80", "ab\xFF"}) {
        EXPECT_EQ(bytesRead(bytes), 2U) << bytes;
    }
    EXPECT_EQ(bytesRead(""), 0U);
    EXPECT_EQ(bytesRead("a\xF0\x9F\x98\x80"), 5U) << "a sequence that ends with the text";
}

TEST(Utf16, asksWhatBecomesOfEachCodePointButAscii) {
    const std::string bytes = "a\u20ac\xED\xA0\x80\U0010FFFFb";
    std::vector<char32_t> asked;
    std::u16string units(bytes.size(), u'\0');
    const Utf8Converted converted =
        utf8ToUtf16(bytes.data(), bytes.size(), units.data(), [&](char32_t code) {
            asked.push_back(code);
            return asked.size() == 2 ? U'\U0001F600' : U'-';
        });
    EXPECT_EQ(asked, (std::vector<char32_t>{0x20AC, 0xD800, 0x10FFFF}));
    EXPECT_EQ(converted.bytesRead, bytes.size());
    EXPECT_EQ(units.substr(0, converted.unitsWritten), u"a-\U0001F600-b");
}

TEST(Utf16, convertsSurrogatesByTheirNumber) {
    EXPECT_EQ(utf16Of("\xED\xA0\xBD\xED\xB8\x80"), u"\U0001F600") << "two sequences are a pair";
    EXPECT_EQ(utf8Of({0xDE00, 0xD83D}), "\xED\xB8\x80\xED\xA0\xBD") << "no pair that way round";
    EXPECT_EQ(utf8Of({u'a', 0xD83D}), "a\xED\xA0\xBD");
    EXPECT_EQ(utf8Of({}), "");
}

}  // namespace

}  // namespace base
