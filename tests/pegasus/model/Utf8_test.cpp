// SPDX-License-Identifier: MIT
#include "pegasus/model/Utf8.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

using namespace Pegasus;

namespace {

std::string roundTrip(const std::string& bytes) {
    std::vector<Char16> units(bytes.size());
    const Utf8::Decoded decoded = Utf8::decode(bytes.data(), bytes.size(), units.data());
    std::string back(Utf8::encodedSize(units.data(), decoded.unitsWritten), '\0');
    const char* const end = Utf8::encode(units.data(), decoded.unitsWritten, back.data());
    EXPECT_EQ(end, back.data() + back.size());
    return back;
}

std::size_t bytesRead(const std::string& bytes) {
    std::vector<Char16> units(bytes.size());
    return Utf8::decode(bytes.data(), bytes.size(), units.data()).bytesRead;
}

TEST(Utf8, KeepsTheFirstAndTheLastCharacterOfEachLength) {
    for (const char* const bytes :
         {"\x01", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBD", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(roundTrip(bytes), bytes);
    }
}

// ASCII is looked at in blocks, so others have to be found at every place in and between them.
TEST(Utf8, KeepsACharacterAtAnyPlaceAmongAscii) {
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

TEST(Utf8, StopsAtAByteAtAnyPlaceAmongAscii) {
    for (std::size_t at = 0; at < 20; ++at) {
        std::string bytes(20, 'a');
        bytes[at] = '\x80';
        EXPECT_EQ(bytesRead(bytes), at);
    }
}

TEST(Utf8, ReplacesWhatIsNoCharacter) {
    for (const char* const bytes :
         {"\xED\xA0\x80", "\xED\xBF\xBF", "\xEF\xBF\xBE", "\xEF\xBF\xBF"}) {
        EXPECT_EQ(roundTrip(bytes), "\xEF\xBF\xBD");
    }
}

TEST(Utf8, StopsAtWhatIsNotUtf8) {
    for (const char* const bytes : {"ab\x80", "ab\xC1\xBF", "ab\xC2", "ab\xC2z", "ab\xE0\x9F\xBF",
                                    "ab\xE2\x82", "ab\xE2\x82z", "ab\xF0\x8F\xBF\xBF",
                                    "ab\xF4\x90\x80\x80", "ab\xF5\x80\x80\x80", "ab\xFF"}) {
        EXPECT_EQ(bytesRead(bytes), 2U) << bytes;
    }
}

TEST(Utf8, ReadsASequenceThatEndsWithTheText) {
    EXPECT_EQ(bytesRead("a\xF0\x9F\x98\x80"), 5U);
}

TEST(Utf8, WritesHalvesOfPairsByTheirNumber) {
    const Char16 reversed[] = {Char16(0xDE00), Char16(0xD83D)};
    std::string bytes(Utf8::encodedSize(reversed, 2), '\0');
    Utf8::encode(reversed, 2, bytes.data());
    EXPECT_EQ(bytes, "\xED\xB8\x80\xED\xA0\xBD");
}

}  // namespace
