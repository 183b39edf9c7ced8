// SPDX-License-Identifier: MIT
#include "diag/LogValue.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/ObjectModelText.h"

namespace Pegasus {
namespace {

String ofCharacter(Uint16 code) {
    const Char16 character(code);
    return String(&character, 1);
}

TEST(LogValue, PlainTextStays) {
    EXPECT_EQ(text(logValue("")), "");
    EXPECT_EQ(text(logValue(" usb1 \"quoted\" back\\slash ~")), " usb1 \"quoted\" back\\slash ~");
    EXPECT_EQ(text(logValue(String("Ger\xC3\xA4t \xE2\x82\xAC \xF0\x9F\x94\x8C"))),
              "Ger\xC3\xA4t \xE2\x82\xAC \xF0\x9F\x94\x8C");
}

TEST(LogValue, ControlCharactersBecomeTheirNumber) {
    EXPECT_EQ(text(logValue("usb1\nIn terminate provider call\n")),
              "usb1\\x0aIn terminate provider call\\x0a");
    EXPECT_EQ(text(logValue("\t\r\x1B[2J")), "\\x09\\x0d\\x1b[2J");
}

TEST(LogValue, ZeroDoesNotEndTheText) {
    EXPECT_EQ(text(logValue(String("a") + ofCharacter(0) + "b")), "a\\x00b");
}

TEST(LogValue, RangesEndWhereTheControlCharactersEnd) {
    EXPECT_EQ(text(logValue(ofCharacter(0x1F))), "\\x1f");
    EXPECT_EQ(text(logValue(ofCharacter(0x20))), " ");
    EXPECT_EQ(text(logValue(ofCharacter(0x7E))), "~");
    EXPECT_EQ(text(logValue(ofCharacter(0x7F))), "\\x7f");
    EXPECT_EQ(text(logValue(ofCharacter(0x80))), "\\x80");
    EXPECT_EQ(text(logValue(ofCharacter(0x9F))), "\\x9f");
    EXPECT_EQ(text(logValue(ofCharacter(0xA0))), "\xC2\xA0");
}

}  // namespace
}  // namespace Pegasus
