// SPDX-License-Identifier: MIT
#include "base/Integers.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace base {

namespace {

using std::nullopt;

constexpr std::int64_t lowest64 = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest64 = std::numeric_limits<std::int64_t>::max();
constexpr std::uint64_t largest64 = std::numeric_limits<std::uint64_t>::max();

TEST(ParseDigits, readsEachRadix) {
    EXPECT_EQ(parseDigits("0"), 0U);
    EXPECT_EQ(parseDigits("9876543210"), 9876543210U);
    EXPECT_EQ(parseDigits("101", 2), 5U);
    EXPECT_EQ(parseDigits("17", 8), 15U);
    EXPECT_EQ(parseDigits("0123456789abcdef", 16), 0x0123456789ABCDEFU);
    EXPECT_EQ(parseDigits("ABCDEF", 16), 0xABCDEFU);
}

TEST(ParseDigits, rejectsDigitsOfALargerRadix) {
    EXPECT_EQ(parseDigits("2", 2), nullopt);
    EXPECT_EQ(parseDigits("8", 8), nullopt);
    EXPECT_EQ(parseDigits("a"), nullopt);
    EXPECT_EQ(parseDigits("1A"), nullopt);
    EXPECT_EQ(parseDigits("g", 16), nullopt);
}

TEST(ParseDigits, rejectsAllButDigits) {
    for (const char* text : {"", " ", "+1", "-1", "-0", " 1", "1 ", "1\n", "0x1", "1.", "1e1",
                             "1'0", "1\xC2\xA0", "\xEF\xBC\x91"}) {
        EXPECT_EQ(parseDigits(text), nullopt) << '"' << text << '"';
        EXPECT_EQ(parseDigits<std::uint8_t>(text), nullopt) << '"' << text << '"';
    }
    EXPECT_EQ(parseDigits(std::string_view("1\0", 2)), nullopt);
    EXPECT_EQ(parseDigits(std::string_view()), nullopt);
}

TEST(ParseDigits, skipsLeadingZeros) {
    EXPECT_EQ(parseDigits("00"), 0U);
    EXPECT_EQ(parseDigits(std::string(100, '0') + "7"), 7U);
    EXPECT_EQ(parseDigits<std::uint8_t>("0000255"), 255U);
    EXPECT_EQ(parseDigits(std::string(70, '0') + "1", 2), 1U);
}

TEST(ParseDigits, endsAtTheLimitOfEachType) {
    EXPECT_EQ(parseDigits("18446744073709551615"), largest64);
    EXPECT_EQ(parseDigits("18446744073709551616"), nullopt);
    EXPECT_EQ(parseDigits("18446744073709551620"), nullopt) << "one digit before the last too much";
    EXPECT_EQ(parseDigits("184467440737095516150"), nullopt);
    EXPECT_EQ(parseDigits("FFFFFFFFFFFFFFFF", 16), largest64);
    EXPECT_EQ(parseDigits("10000000000000000", 16), nullopt);
    EXPECT_EQ(parseDigits("1777777777777777777777", 8), largest64);
    EXPECT_EQ(parseDigits("2000000000000000000000", 8), nullopt);
    EXPECT_EQ(parseDigits(std::string(64, '1'), 2), largest64);
    EXPECT_EQ(parseDigits("1" + std::string(64, '0'), 2), nullopt);
    EXPECT_EQ(parseDigits<std::uint32_t>("4294967295"), 4294967295U);
    EXPECT_EQ(parseDigits<std::uint32_t>("4294967296"), nullopt);
    EXPECT_EQ(parseDigits<std::uint16_t>("65535"), 65535U);
    EXPECT_EQ(parseDigits<std::uint16_t>("65536"), nullopt);
    EXPECT_EQ(parseDigits<std::uint16_t>("65540"), nullopt);
    EXPECT_EQ(parseDigits<std::uint8_t>("255"), 255U);
    EXPECT_EQ(parseDigits<std::uint8_t>("256"), nullopt);
    EXPECT_EQ(parseDigits<std::uint8_t>("1000"), nullopt);
}

TEST(ParseDigits, readsCodeUnits) {
    const std::u16string_view text = u"1f\u0131";
    EXPECT_EQ(parseDigits(text.data(), text.data() + 2, 16), 31U);
    EXPECT_EQ(parseDigits(text.data(), text.data() + 1, 16), 1U);
    EXPECT_EQ(parseDigits(text.data(), text.data(), 16), nullopt);
    EXPECT_EQ(parseDigits(text.data() + 2, text.data() + text.size()), nullopt)
        << "a letter that ends like 1";
}

TEST(IsHexadecimal, wantsSomethingAfterThePrefix) {
    for (const char* text : {"0x1", "0X1", "0xZ", "0x 1"}) {
        EXPECT_TRUE(isHexadecimal(text)) << text;
    }
    for (const char* text : {"", "0", "0x", "0X", "x1", "1x1", "00x1", "-0x1", "0b1"}) {
        EXPECT_FALSE(isHexadecimal(text)) << text;
    }
    const std::u16string_view units = u"0x1";
    EXPECT_TRUE(isHexadecimal(units.data(), units.data() + 3));
    EXPECT_FALSE(isHexadecimal(units.data(), units.data() + 2));
}

TEST(ParseInteger, readsSignsAndBothRadices) {
    for (const char* text : {"31", "+31", "031", "0x1f", "0X1F", "+0x1f", "0x001F"}) {
        EXPECT_EQ(parseInteger<int>(text), 31) << text;
        EXPECT_EQ(parseInteger<std::uint64_t>(text), 31U) << text;
    }
    EXPECT_EQ(parseInteger<int>("-31"), -31);
    EXPECT_EQ(parseInteger<int>("-0x1F"), -31);
    EXPECT_EQ(parseInteger<unsigned>("-31"), nullopt);
    EXPECT_EQ(parseInteger<unsigned>("-0"), 0U);
    EXPECT_EQ(parseInteger<int>("-0"), 0);
}

TEST(ParseInteger, rejectsAllElse) {
    for (const char* text : {"", "+", "-", "+-1", "--1", "- 1", " 1", "1 ", "0x", "-0x", "0x-1",
                             "x1", "1f", "0xg", "0x0x1", "1.0", "1e1", "one"}) {
        EXPECT_EQ(parseInteger<int>(text), nullopt) << '"' << text << '"';
        EXPECT_EQ(parseInteger<unsigned>(text), nullopt) << '"' << text << '"';
    }
}

TEST(ParseInteger, endsAtTheLimitsOfEachType) {
    EXPECT_EQ(parseInteger<std::int64_t>("9223372036854775807"), highest64);
    EXPECT_EQ(parseInteger<std::int64_t>("9223372036854775808"), nullopt);
    EXPECT_EQ(parseInteger<std::int64_t>("-9223372036854775808"), lowest64);
    EXPECT_EQ(parseInteger<std::int64_t>("-9223372036854775809"), nullopt);
    EXPECT_EQ(parseInteger<std::int64_t>("0x7FFFFFFFFFFFFFFF"), highest64);
    EXPECT_EQ(parseInteger<std::int64_t>("0x8000000000000000"), nullopt);
    EXPECT_EQ(parseInteger<std::int64_t>("-0x8000000000000000"), lowest64);
    EXPECT_EQ(parseInteger<std::int64_t>("-0x8000000000000001"), nullopt);
    EXPECT_EQ(parseInteger<std::int64_t>("18446744073709551615"), nullopt);
    EXPECT_EQ(parseInteger<std::uint64_t>("+18446744073709551615"), largest64);
    EXPECT_EQ(parseInteger<std::uint64_t>("18446744073709551616"), nullopt);
    EXPECT_EQ(parseInteger<std::uint64_t>("-1"), nullopt);
    EXPECT_EQ(parseInteger<std::int32_t>("2147483647"), 2147483647);
    EXPECT_EQ(parseInteger<std::int32_t>("2147483648"), nullopt);
    EXPECT_EQ(parseInteger<std::int16_t>("-32768"), -32768);
    EXPECT_EQ(parseInteger<std::int16_t>("-32769"), nullopt);
    EXPECT_EQ(parseInteger<std::int8_t>("-128"), -128);
    EXPECT_EQ(parseInteger<std::int8_t>("128"), nullopt);
    EXPECT_EQ(parseInteger<std::uint8_t>("0xFF"), 255U);
    EXPECT_EQ(parseInteger<std::uint8_t>("0x100"), nullopt);
}

}  // namespace

}  // namespace base
