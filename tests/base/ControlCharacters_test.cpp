// SPDX-License-Identifier: MIT
#include "base/ControlCharacters.h"

#include <string_view>

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(WithoutControls, replacesEveryControlCharacter) {
    EXPECT_EQ(withoutControls("a\x1B[31mb\tc\r\n\x7F"), "a\uFFFD[31mb\uFFFDc\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(withoutControls("\u0080x\u009B31m\u009F"), "\uFFFDx\uFFFD31m\uFFFD");
    EXPECT_EQ(withoutControls(std::string_view("\0", 1)), "\uFFFD");
}

TEST(WithoutControls, keepsEverythingElse) {
    EXPECT_EQ(withoutControls("  M\u00FCller\u00A0\u00AE \u65E5 \U0001F50C"),
              "  M\u00FCller\u00A0\u00AE \u65E5 \U0001F50C");
}

TEST(WithoutControls, replacesWhatIsNotUtf8) {
    EXPECT_EQ(withoutControls("cut \xC2"), "cut \uFFFD");
    EXPECT_EQ(withoutControls("\x9B"
                              "31m"),
              "\uFFFD31m")
        << "a control character to an 8-bit terminal";
}

TEST(WithoutControls, replacesEachByteOfWhatIsNoCharacter) {
    EXPECT_EQ(withoutControls(""), "");
    EXPECT_EQ(withoutControls("\u00A0\u0800\uD7FF\uE000\U00010000\U0010FFFF ~"),
              "\u00A0\u0800\uD7FF\uE000\U00010000\U0010FFFF ~");
    for (const std::string_view none :
         {"\x1F", "\x7F", "\xC2\x80", "\xC2\x9F", "\x80", "\xBF", "\xC2", "\xFF"}) {
        EXPECT_EQ(withoutControls(none), "\uFFFD") << none;
    }
    for (const std::string_view none : {"\xC0\x9B", "\xC1\xBF", "\xE6\x97", "\xF5\x80"}) {
        EXPECT_EQ(withoutControls(none), "\uFFFD\uFFFD") << none;
    }
    for (const std::string_view none : {"\xE0\x82\x9B", "\xED\xA0\x80", "\xF0\x9F\x92"}) {
        EXPECT_EQ(withoutControls(none), "\uFFFD\uFFFD\uFFFD") << none;
    }
    EXPECT_EQ(withoutControls("\xF0\x8F\xBF\xBF"), "\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(withoutControls("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(withoutControls("\xE6\x97x"), "\uFFFD\uFFFDx");
    EXPECT_EQ(withoutControls(std::string_view("\0", 1)), "\uFFFD");
}

}  // namespace
}  // namespace base
