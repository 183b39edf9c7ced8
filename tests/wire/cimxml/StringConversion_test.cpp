// SPDX-License-Identifier: MIT
#include "wire/cimxml/StringConversion.h"

#include <gtest/gtest.h>

#include "wire/cimxml/XmlError.h"

using namespace wire;

namespace {

Pegasus::String fromUnits(std::initializer_list<Pegasus::Uint16> units) {
    Pegasus::String text;
    for (const Pegasus::Uint16 unit : units) {
        text.append(Pegasus::Char16(unit));
    }
    return text;
}

std::string whatIsWrong(std::string_view utf8) {
    try {
        fromUtf8(utf8);
        return "nothing";
    } catch (const XmlError& error) {
        EXPECT_EQ(error.fault(), XmlFault::notWellFormed);
        return error.what();
    }
}

}  // namespace

TEST(StringConversion, stringsOfOtherBytesAreRefused) {
    EXPECT_EQ(whatIsWrong("a\x93z"), "text is not UTF-8");
    EXPECT_EQ(whatIsWrong("\xED\xA0\x80"), "text is not UTF-8") << "a surrogate";
}

TEST(StringConversion, givesUtf8OfAnyString) {
    EXPECT_EQ(toUtf8(fromUtf8("")), "");
    EXPECT_EQ(toUtf8(fromUtf8("a  \u20ac<")), "a  \u20ac<");
    EXPECT_EQ(toUtf8(fromUtf8("0123456789\U0010FFFFa")), "0123456789\U0010FFFFa");
    EXPECT_EQ(toUtf8(fromUnits({'a', 0, 'b'})), std::string("a\0b", 3));
}

TEST(StringConversion, givesReplacementsForWhatXmlHasNoCharacterFor) {
    EXPECT_EQ(toUtf8(fromUnits({0xD83D})), "\ufffd");
    EXPECT_EQ(toUtf8(fromUnits({0xDE00, 0xD83D, 'a'})), "\ufffd\ufffda");
    EXPECT_EQ(toUtf8(fromUnits({0xFFFE, 0xFFFF, 0xFFFD})), "\ufffd\ufffd\ufffd");
}
