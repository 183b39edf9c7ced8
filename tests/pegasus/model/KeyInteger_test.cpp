// SPDX-License-Identifier: MIT
#include "pegasus/model/KeyInteger.h"

#include <string>

#include <gtest/gtest.h>

using namespace Pegasus;

namespace {

std::string read(const char* text, Sign sign) {
    const auto integer = parseKeyInteger(text, sign);
    return integer ? (integer->isNegative ? "-" : "") + std::to_string(integer->magnitude)
                   : "nothing";
}

TEST(KeyInteger, ReadsDecimalAndHexadecimal) {
    EXPECT_EQ(read("0", Sign::minusOnly), "0");
    EXPECT_EQ(read("10", Sign::minusOnly), "10");
    EXPECT_EQ(read("-7", Sign::minusOnly), "-7");
    EXPECT_EQ(read("-0", Sign::minusOnly), "0");
    EXPECT_EQ(read("0x1fA", Sign::minusOnly), "506");
    EXPECT_EQ(read("0X0009", Sign::minusOnly), "9");
}

TEST(KeyInteger, ReadsAPlusSignIfAllowed) {
    EXPECT_EQ(read("+7", Sign::minusOnly), "nothing");
    EXPECT_EQ(read("+7", Sign::plusOrMinus), "7");
}

TEST(KeyInteger, ReadsUpToTheLimits) {
    EXPECT_EQ(read("18446744073709551615", Sign::minusOnly), "18446744073709551615");
    EXPECT_EQ(read("18446744073709551616", Sign::minusOnly), "nothing");
    EXPECT_EQ(read("0xFFFFFFFFFFFFFFFF", Sign::minusOnly), "18446744073709551615");
    EXPECT_EQ(read("0x10000000000000000", Sign::minusOnly), "nothing");
    EXPECT_EQ(read("-9223372036854775808", Sign::minusOnly), "-9223372036854775808");
    EXPECT_EQ(read("-9223372036854775809", Sign::minusOnly), "nothing");
}

TEST(KeyInteger, RejectsEverythingElse) {
    for (const char* const text : {"", "-", "+", "00", "01", "-01", "1.0", "1e3", "101b", "0x",
                                   "0xg", "-0x1", " 1", "1 ", "1-", "a", "\xC3\xA9"}) {
        EXPECT_EQ(read(text, Sign::plusOrMinus), "nothing") << text;
    }
}

}  // namespace
