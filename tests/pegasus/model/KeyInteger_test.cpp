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
    EXPECT_EQ(read("0", Sign::MinusOnly), "0");
    EXPECT_EQ(read("10", Sign::MinusOnly), "10");
    EXPECT_EQ(read("-7", Sign::MinusOnly), "-7");
    EXPECT_EQ(read("-0", Sign::MinusOnly), "0");
    EXPECT_EQ(read("0x1fA", Sign::MinusOnly), "506");
    EXPECT_EQ(read("0X0009", Sign::MinusOnly), "9");
}

TEST(KeyInteger, ReadsAPlusWhereItIsAllowed) {
    EXPECT_EQ(read("+7", Sign::MinusOnly), "nothing");
    EXPECT_EQ(read("+7", Sign::PlusOrMinus), "7");
}

TEST(KeyInteger, ReadsUpToTheLimits) {
    EXPECT_EQ(read("18446744073709551615", Sign::MinusOnly), "18446744073709551615");
    EXPECT_EQ(read("18446744073709551616", Sign::MinusOnly), "nothing");
    EXPECT_EQ(read("0xFFFFFFFFFFFFFFFF", Sign::MinusOnly), "18446744073709551615");
    EXPECT_EQ(read("0x10000000000000000", Sign::MinusOnly), "nothing");
    EXPECT_EQ(read("-9223372036854775808", Sign::MinusOnly), "-9223372036854775808");
    EXPECT_EQ(read("-9223372036854775809", Sign::MinusOnly), "nothing");
}

TEST(KeyInteger, RefusesEverythingElse) {
    for (const char* const text : {"", "-", "+", "00", "01", "-01", "1.0", "1e3", "101b", "0x",
                                   "0xg", "-0x1", " 1", "1 ", "1-", "a", "\xC3\xA9"}) {
        EXPECT_EQ(read(text, Sign::PlusOrMinus), "nothing") << text;
    }
}

}  // namespace
