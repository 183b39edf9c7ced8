// SPDX-License-Identifier: MIT
#include "wire/cimxml/XmlEscaping.h"

#include <gtest/gtest.h>

#include "base/Utf8.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"

using namespace wire;

namespace {

std::string written(std::string_view utf8) {
    std::string fromBytes;
    appendText(fromBytes, utf8);
    std::string fromString;
    appendText(fromString, fromUtf8(utf8));
    EXPECT_EQ(fromBytes, fromString) << "bytes and String are written differently";
    return fromString;
}

std::string decoded(std::string_view raw) {
    std::string text;
    appendDecoded(text, raw);
    return text;
}

Pegasus::String fromUnits(std::initializer_list<Pegasus::Uint16> units) {
    Pegasus::String text;
    for (const Pegasus::Uint16 unit : units) {
        text.append(Pegasus::Char16(unit));
    }
    return text;
}

std::string writtenUnits(std::initializer_list<Pegasus::Uint16> units) {
    std::string out;
    appendText(out, fromUnits(units));
    return out;
}

std::string whatIsWrong(std::string_view raw) {
    try {
        decoded(raw);
        return "nothing";
    } catch (const XmlError& error) {
        EXPECT_EQ(error.fault(), XmlFault::notWellFormed);
        return error.what();
    }
}

}  // namespace

TEST(XmlEscaping, writesTheFivePredefinedEntities) {
    EXPECT_EQ(written("<a>&\"q\"'s'"), "&lt;a&gt;&amp;&quot;q&quot;&apos;s&apos;");
}

TEST(XmlEscaping, writesControlCharactersAsReferences) {
    EXPECT_EQ(written("a\x01"
                      "b\tc\nd\re\x1f"
                      "f\x7fg"),
              "a&#1;b&#9;c&#10;d&#13;e&#31;f&#127;g");
}

TEST(XmlEscaping, writesSpacesThatReadersDropAsReferences) {
    EXPECT_EQ(written("two  spaces"), "two &#32;spaces");
    EXPECT_EQ(written(" first"), "&#32;first");
    EXPECT_EQ(written("last "), "last&#32;");
    EXPECT_EQ(written(" "), "&#32;");
    EXPECT_EQ(written("a    b"), "a &#32; &#32;b");
    EXPECT_EQ(written("   "), "&#32; &#32;");
    EXPECT_EQ(written("one space"), "one space");
}

TEST(XmlEscaping, writesEverythingElseAsUtf8) {
    EXPECT_EQ(written("caf\u00e9 \u20ac \U0001F600"), "caf\u00e9 \u20ac \U0001F600");
    EXPECT_EQ(writtenUnits({0x93}), "\u0093");
    EXPECT_EQ(writtenUnits({0xD83D, 0xDE00}), "\U0001F600");
}

TEST(XmlEscaping, replacesWhatXmlCannotCarry) {
    EXPECT_EQ(writtenUnits({'a', 0, 'b'}), "a\ufffdb");
    EXPECT_EQ(writtenUnits({'a', 0xD83D}), "a\ufffd") << "half a pair at the end";
    EXPECT_EQ(writtenUnits({0xD83D, 'b'}), "\ufffdb") << "half a pair before a letter";
    EXPECT_EQ(writtenUnits({0xDE00, 0xD83D}), "\ufffd\ufffd") << "a pair the wrong way round";
    EXPECT_EQ(writtenUnits({0xFFFE, 0xFFFF}), "\ufffd\ufffd");
}

TEST(XmlEscaping, whatGoesOutComesBack) {
    std::string everything;
    for (char32_t c = 1; c < 0x3000; ++c) {
        base::appendUtf8(everything, c);
    }
    everything += "  two  three   \U0010FFFD  ";
    EXPECT_EQ(decoded(written(everything)), everything);
}

TEST(XmlEscaping, writesAttributes) {
    std::string out;
    appendAttribute(out, "NAME", std::string_view("a \"b\""));
    appendAttribute(out, "ID", Pegasus::String("x'y"));
    EXPECT_EQ(out, " NAME=\"a &quot;b&quot;\" ID=\"x&apos;y\"");
}

TEST(XmlEscaping, decodesReferences) {
    EXPECT_EQ(decoded("&lt;&gt;&amp;&quot;&apos;"), "<>&\"'");
    EXPECT_EQ(decoded("a&#65;&#x41;&#x6a;&#x6A;"), "aAAjj");
    EXPECT_EQ(decoded("&#233;&#xE9;&#8364;&#x1F600;"), "\u00e9\u00e9\u20ac\U0001F600");
    EXPECT_EQ(decoded("&#1;&#32;&#0065;"), "\x01 A");
    EXPECT_EQ(decoded("&amp;lt;"), "&lt;") << "what a reference yields is not looked at again";
    EXPECT_EQ(decoded("plain"), "plain");
    EXPECT_EQ(decoded(""), "");
}

TEST(XmlEscaping, refusesOtherReferences) {
    EXPECT_EQ(whatIsWrong("a&nbsp;b"), "unknown reference \"&nbsp\"");
    EXPECT_EQ(whatIsWrong("&#0;"), "unknown reference \"&#0\"");
    EXPECT_EQ(whatIsWrong("&#x110000;"), "unknown reference \"&#x110000\"");
    EXPECT_EQ(whatIsWrong("&#xD800;"), "unknown reference \"&#xD800\"");
    EXPECT_EQ(whatIsWrong("&#99999999999;"), "unknown reference \"&#99999999999\"");
    EXPECT_EQ(whatIsWrong("&#-5;"), "unknown reference \"&#-5\"");
    EXPECT_EQ(whatIsWrong("&#;"), "unknown reference \"&#\"");
    EXPECT_EQ(whatIsWrong("&#x;"), "unknown reference \"&#x\"");
    EXPECT_EQ(whatIsWrong("&#X41;"), "unknown reference \"&#X41\"");
    EXPECT_EQ(whatIsWrong("&;"), "unknown reference \"&\"");
    EXPECT_EQ(whatIsWrong("tea & coffee"), "unknown reference \"& coffee\"");
    EXPECT_EQ(whatIsWrong("tea &"), "unknown reference \"&\"");
}
