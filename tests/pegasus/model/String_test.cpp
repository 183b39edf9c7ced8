// SPDX-License-Identifier: MIT
#include <sstream>
#include <type_traits>
#include <vector>

#include <Pegasus/Common/InternalException.h>
#include <Pegasus/Common/String.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::utf8;
using namespace Pegasus;

namespace {

const std::string notUtf8 = "The byte sequence starting at index ";

/// The code units in hexadecimal, four digits each.
std::string units(const String& text) {
    std::string result;
    for (Uint32 i = 0; i < text.size(); ++i) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%s%04X", i == 0 ? "" : " ",
                      static_cast<unsigned>(Uint16(text.getChar16Data()[i])));
        result += digits;
    }
    return result;
}

TEST(String, IsMadeFromText) {
    {
        ROW("string-001");
        EXPECT_EQ(String(), "");
        EXPECT_EQ(String().size(), 0U);
    }
    {
        ROW("string-002");
        EXPECT_EQ(utf8(String("abc")), "abc");
        EXPECT_EQ(String("abc").size(), 3U);
    }
    {
        ROW("string-003");
        EXPECT_EQ(String("").size(), 0U);
    }
    {
        ROW("string-041");
        EXPECT_EQ(String("abcdef", 3), "abc");
    }
    {
        ROW("string-043");
        const String text("a\0b", 3);
        EXPECT_EQ(units(text), "0061 0000 0062");
        EXPECT_STREQ(text.getCString(), "a");
    }
    {
        ROW("string-044");
        EXPECT_EQ(String("abc", 0), "");
    }
    {
        ROW("string-116");
        EXPECT_THROWS(String(String("abc"), 9), IndexOutOfBoundsException, "index out of bounds");
    }
    EXPECT_EQ(String(String("abc"), 3), "abc");
    EXPECT_EQ(String(String("abc"), 2), "ab");
}

TEST(String, ConvertsUtf8ToUtf16AndBack) {
    struct Case {
        const char* row;
        std::string bytes;
        std::string units;
        std::string back;
    };
    const std::vector<Case> cases{
        {"string-004", "\xC3\xA9", "00E9", "\xC3\xA9"},
        {"string-005", "\xE2\x82\xAC", "20AC", "\xE2\x82\xAC"},
        {"string-006", "\xF0\x9F\x98\x80", "D83D DE00", "\xF0\x9F\x98\x80"},
        {"string-025", "\xED\xA0\x80", "FFFD", "\xEF\xBF\xBD"},
        {"string-026", "\xED\xA0\xBD\xED\xB8\x80", "FFFD FFFD", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"string-032", "\xEF\xBF\xBE", "FFFD", "\xEF\xBF\xBD"},
        {"string-035", "\x01\x02\x1F\x7F", "0001 0002 001F 007F", "\x01\x02\x1F\x7F"},
        {"string-036", "\xC2\x93", "0093", "\xC2\x93"},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        const String text(each.bytes.c_str());
        EXPECT_EQ(units(text), each.units);
        EXPECT_EQ(utf8(text), each.back);
    }
}

TEST(String, ThrowsWithTheBytesThatAreNotUtf8) {
    struct Case {
        const char* row;
        std::string bytes;
        std::string where;
    };
    const std::vector<Case> cases{
        {"string-007", "\x93", "0 is not valid UTF-8 encoding:  0x93"},
        {"string-008", "\x94", "0 is not valid UTF-8 encoding:  0x94"},
        {"string-009", "\x99", "0 is not valid UTF-8 encoding:  0x99"},
        {"string-010", "\xE9", "0 is not valid UTF-8 encoding:  0xE9"},
        {"string-011", "\x80", "0 is not valid UTF-8 encoding:  0x80"},
        {"string-012", "\xBF", "0 is not valid UTF-8 encoding:  0xBF"},
        {"string-013", "\xC3", "0 is not valid UTF-8 encoding:  0xC3"},
        {"string-014", "\xFF", "0 is not valid UTF-8 encoding:  0xFF"},
        {"string-015", "\xFE", "0 is not valid UTF-8 encoding:  0xFE"},
        {"string-016", "\xA9", "0 is not valid UTF-8 encoding:  0xA9"},
        {"string-017", "\xAE", "0 is not valid UTF-8 encoding:  0xAE"},
        {"string-018", "caf\xE9", "3 is not valid UTF-8 encoding: caf 0xE9"},
        {"string-019",
         "\xE9"
         "cole",
         "0 is not valid UTF-8 encoding:  0xE9 0x63 0x6F 0x6C 0x65"},
        {"string-020", "USB \x93Super\x94 Disk",
         "4 is not valid UTF-8 encoding: USB  0x93 0x53 0x75 0x70 0x65 0x72 0x94 0x20 0x44 0x69 "
         "0x73"},
        {"string-021", "Disk\x99 Pro",
         "4 is not valid UTF-8 encoding: Disk 0x99 0x20 0x50 0x72 0x6F"},
        {"string-023", "\xC0\x80", "0 is not valid UTF-8 encoding:  0xC0 0x80"},
        {"string-024", "\xC1\xBF", "0 is not valid UTF-8 encoding:  0xC1 0xBF"},
        {"string-027", "\xF5\x80\x80\x80", "0 is not valid UTF-8 encoding:  0xF5 0x80 0x80 0x80"},
        {"string-028", "\xF4\x90\x80\x80", "0 is not valid UTF-8 encoding:  0xF4 0x90 0x80 0x80"},
        {"string-029", "\xE2\x82", "0 is not valid UTF-8 encoding:  0xE2 0x82"},
        {"string-030", "\xF0\x9F\x98", "0 is not valid UTF-8 encoding:  0xF0 0x9F 0x98"},
        {"string-031", "\xE2(\xA1", "0 is not valid UTF-8 encoding:  0xE2 0x28 0xA1"},
        {"string-037",
         "\x93"
         "abcdefghijklmnopqrst",
         "0 is not valid UTF-8 encoding:  0x93 0x61 0x62 0x63 0x64 0x65 0x66 0x67 0x68 0x69 0x6A"},
        {"string-038",
         "0123456789abcdefghijABCDEFGHIJ\x93"
         "abcdefghijklmnopqrst",
         "30 is not valid UTF-8 encoding: 0123456789abcdefghijABCDEFGHIJ 0x93 0x61 0x62 0x63 0x64 "
         "0x65 0x66 0x67 0x68 0x69 0x6A"},
        {"string-039",
         "a\x93"
         "b\x94"
         "c",
         "1 is not valid UTF-8 encoding: a 0x93 0x62 0x94 0x63"},
        {"string-040", "\xC3\xA9\x93x", "2 is not valid UTF-8 encoding: \xC3\xA9 0x93 0x78"},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_THROWS(String(each.bytes.c_str()), Exception, notUtf8 + each.where);
    }
    ROW("string-042");
    EXPECT_THROWS(String("\xC3\xA9", 1), Exception,
                  notUtf8 + "0 is not valid UTF-8 encoding:  0xC3");
}

TEST(String, ThrowsNoStandardException) {
    EXPECT_FALSE((std::is_base_of_v<std::exception, Exception>));
}

TEST(String, RejectsNullPointers) {
    const char* const noBytes = nullptr;
    const Char16* const noUnits = nullptr;
    String text("old");
    {
        ROW("string-046");
        EXPECT_THROWS(String{noUnits}, NullPointer, "null pointer");
    }
    EXPECT_THROWS(String(noUnits, 1), NullPointer, "null pointer");
    EXPECT_THROWS(String{noBytes}, NullPointer, "null pointer");
    EXPECT_THROWS(String(noBytes, 1), NullPointer, "null pointer");
    EXPECT_THROWS(text.append(noUnits, 1), NullPointer, "null pointer");
    EXPECT_THROWS(String::equal(text, noBytes), NullPointer, "null pointer");
    EXPECT_EQ(text, "old");
}

TEST(String, IsEmptyAfterBytesThatAreNotUtf8) {
    const std::string fault = notUtf8 + "1 is not valid UTF-8 encoding: x 0x93";
    String text("old");
    {
        ROW("string-047");
        EXPECT_THROWS(text.assign("x\x93"), Exception, fault);
        EXPECT_EQ(text, "");
    }
    text = "old";
    {
        ROW("string-048");
        EXPECT_THROWS(text.append("x\x93"), Exception, fault);
        EXPECT_EQ(text, "");
    }
    text = "x";
    {
        ROW("string-050");
        EXPECT_THROWS(text == "x\x93", Exception, fault);
    }
    {
        ROW("string-051");
        EXPECT_THROWS(text + "\x93", Exception, notUtf8 + "0 is not valid UTF-8 encoding:  0x93");
    }
    {
        ROW("string-052");
        EXPECT_THROWS(String::equalNoCase(text, "x\x93"), Exception, fault);
    }
    {
        ROW("string-122");
        EXPECT_THROWS(text.appendPrintf("%s", "x\x93"), Exception, fault);
    }
    EXPECT_EQ(text, "x");
}

TEST(String, AssignsEveryKindOfText) {
    const Char16 unitsOfText[] = {Char16('a'), Char16('b'), Char16(0)};
    String text("old");
    EXPECT_EQ(text.assign(String("new")), "new");
    EXPECT_EQ(text.assign(unitsOfText), "ab");
    EXPECT_EQ(text.assign(unitsOfText, 1), "a");
    EXPECT_EQ(text.assign("bytes"), "bytes");
    EXPECT_EQ(text.assign("bytes", 2), "by");
    EXPECT_EQ(String(unitsOfText), "ab");
}

TEST(String, ComparesWithBytesThatAreNotAscii) {
    ROW("string-055");
    EXPECT_TRUE(String("\xC3\xA9") == "\xC3\xA9");
    EXPECT_FALSE(String("\xC3\xA9") == "\xC3\xA8");
    EXPECT_TRUE("\xC3\xA9" == String("\xC3\xA9"));
}

TEST(String, KeepsCodeUnitsThatAreNoCharacters) {
    {
        ROW("string-056");
        EXPECT_EQ(utf8(String().append(Char16(0x93))), "\xC2\x93");
    }
    {
        ROW("string-057");
        String text;
        for (const Uint16 code : {0x93, 0x41, 0x94}) {
            text.append(Char16(code));
        }
        EXPECT_EQ(units(text), "0093 0041 0094");
        EXPECT_EQ(utf8(text),
                  "\xC2\x93"
                  "A\xC2\x94");
    }
    {
        ROW("string-058");
        EXPECT_EQ(utf8(String("a").append(Char16(0xD83D)).append("b")),
                  "a\xED\xA0\xBD"
                  "b");
    }
    {
        ROW("string-059");
        EXPECT_EQ(utf8(String("a").append(Char16(0xDE00)).append("b")),
                  "a\xED\xB8\x80"
                  "b");
    }
    {
        ROW("string-060");
        String text;
        text.append(Char16(0xD83D)).append(Char16(0xDE00));
        EXPECT_EQ(utf8(text), "\xF0\x9F\x98\x80");
        EXPECT_EQ(text.size(), 2U);
    }
}

TEST(String, IgnoresTheCaseOfAsciiOnly) {
    struct Case {
        const char* row;
        const char* x;
        const char* y;
        bool areEqual;
    };
    for (const Case& each : {Case{"string-062", "ABC", "abc", true},
                             {"string-063", "ABC", "abd", false},
                             {"string-065", "\xC3\x89", "\xC3\xA9", false},
                             {"string-066", "\xCE\x91", "\xCE\xB1", false},
                             {"string-068", "\xC4\xB1", "I", false},
                             {"string-069", "\xE2\x84\xAA", "k", false}}) {
        ROW(each.row);
        EXPECT_EQ(String::equalNoCase(String(each.x), String(each.y)), each.areEqual);
        EXPECT_EQ(String::equalNoCase(String(each.x), each.y), each.areEqual);
    }
    EXPECT_FALSE(String::equalNoCase("a", "ab"));
    EXPECT_FALSE(String::equalNoCase("[", "{")) << "neighbours of the letters have no case";
    EXPECT_TRUE(String::equalNoCase("AZ", "az"));
}

TEST(String, ComparesByCodeUnits) {
    {
        ROW("string-070");
        EXPECT_TRUE(String("abc") == String("abc"));
        EXPECT_FALSE(String("abc") != String("abc"));
    }
    {
        ROW("string-071");
        EXPECT_FALSE(String("abc") == String("ABC"));
    }
    {
        ROW("string-072");
        EXPECT_TRUE(String("abc") == "abc");
        EXPECT_FALSE(String("abc") != "abc");
        EXPECT_FALSE("abc" != String("abc"));
    }
    {
        ROW("string-073");
        EXPECT_TRUE(String("abc") < String("abd"));
    }
    {
        ROW("string-074");
        EXPECT_TRUE(String("Z") < String("a"));
    }
    {
        ROW("string-075");
        EXPECT_TRUE(String("ab") < String("abc"));
        EXPECT_FALSE(String("abc") < String("ab"));
    }
    {
        ROW("string-076");
        EXPECT_EQ(String::compare("a", "b"), -1);
    }
    {
        ROW("string-077");
        EXPECT_EQ(String::compare("b", "a"), 1);
    }
    {
        ROW("string-078");
        EXPECT_EQ(String::compare("a", "a"), 0);
    }
    {
        ROW("string-079");
        EXPECT_EQ(String::compare("a", "z"), -25);
    }
    {
        ROW("string-081");
        EXPECT_EQ(String::compareNoCase("ABC", "abd"), -1);
    }
    EXPECT_EQ(String::compare("abX", "abY", 2), 0);
    EXPECT_LT(String::compare("abX", "abY", 3), 0);
    EXPECT_TRUE(String("a") <= String("a"));
    EXPECT_TRUE(String("b") > String("a"));
    EXPECT_TRUE(String("b") >= String("b"));
    EXPECT_TRUE(String::equal(String("a"), String("a")));
}

TEST(String, Appends) {
    {
        ROW("string-082");
        EXPECT_EQ(String("a").append(String("b")), "ab");
    }
    {
        ROW("string-083");
        EXPECT_EQ(String("a").append(Char16('x')), "ax");
    }
    {
        ROW("string-084");
        EXPECT_EQ(String("a").append("bc"), "abc");
    }
    {
        ROW("string-085");
        EXPECT_EQ(String("a").append("bcd", 2), "abc");
    }
    {
        ROW("string-086");
        String text("ab");
        text.append(text);
        EXPECT_EQ(text, "abab");
    }
    {
        ROW("string-087");
        EXPECT_EQ(String("a") + "b", "ab");
    }
    {
        ROW("string-088");
        EXPECT_EQ("a" + String("b"), "ab");
    }
    {
        ROW("string-121");
        String text("a");
        text.appendPrintf("%d-%s", 5, "x");
        EXPECT_EQ(text, "a5-x");
    }
    EXPECT_EQ(String() + String(), "");
    EXPECT_EQ(String().append(""), "");
}

TEST(String, AppendsPartsOfItself) {
    String text("abcd");
    for (int i = 0; i < 5; ++i) {
        text.append(text.getChar16Data() + 1, 2);
    }
    EXPECT_EQ(text, "abcdbcbcbcbcbc");
    text.append(text[0]);
    EXPECT_EQ(text, "abcdbcbcbcbcbca");
}

TEST(String, ReturnsSubstrings) {
    const String text("abcdef");
    {
        ROW("string-089");
        EXPECT_EQ(text.subString(1, 2), "bc");
    }
    {
        ROW("string-090");
        EXPECT_EQ(text.subString(2), "cdef");
    }
    {
        ROW("string-091");
        EXPECT_EQ(text.subString(6), "");
    }
    {
        ROW("string-092");
        EXPECT_EQ(text.subString(7), "");
    }
    {
        ROW("string-093");
        EXPECT_EQ(text.subString(2, 100), "cdef");
    }
    {
        ROW("string-094");
        EXPECT_EQ(text.subString(0, 0), "");
    }
    EXPECT_EQ(text.subString(0), "abcdef");
}

TEST(String, Finds) {
    const String text("abcab");
    {
        ROW("string-096");
        EXPECT_EQ(text.find('z'), 4294967295U);
    }
    {
        ROW("string-097");
        EXPECT_EQ(PEG_NOT_FOUND, 4294967295U);
    }
    {
        ROW("string-098");
        EXPECT_EQ(text.find(1, 'a'), 3U);
    }
    {
        ROW("string-099");
        EXPECT_EQ(text.find(String("ca")), 2U);
    }
    {
        ROW("string-100");
        EXPECT_EQ(text.find(""), 4294967295U);
    }
    {
        ROW("string-101");
        EXPECT_EQ(text.find("bc"), 1U);
    }
    {
        ROW("string-102");
        EXPECT_THROWS(text.find(99, 'a'), IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("string-103");
        EXPECT_EQ(text.reverseFind('a'), 3U);
    }
    {
        ROW("string-104");
        EXPECT_EQ(text.reverseFind('z'), 4294967295U);
    }
    EXPECT_EQ(text.find('a'), 0U);
    EXPECT_EQ(text.find(5, 'a'), PEG_NOT_FOUND);
    EXPECT_EQ(text.find("abcabc"), PEG_NOT_FOUND);
}

TEST(String, ChecksIndices) {
    String text("abc");
    const String& constant = text;
    {
        ROW("string-105");
        EXPECT_EQ(Uint16(text[1]), 0x0062);
    }
    {
        ROW("string-106");
        EXPECT_EQ(Uint16(text[3]), 0x0000);
    }
    {
        ROW("string-108");
        EXPECT_EQ(Uint16(constant[3]), 0x0000);
    }
    {
        ROW("string-109");
        EXPECT_THROWS(constant[4], IndexOutOfBoundsException, "index out of bounds");
    }
    EXPECT_THROWS(text[4], IndexOutOfBoundsException, "index out of bounds");
    EXPECT_EQ(Uint16(String()[0]), 0);
    const String empty;
    EXPECT_EQ(Uint16(empty[0]), 0);
}

TEST(String, Removes) {
    const auto removed = [](Uint32 index, Uint32 n) {
        String text("abc");
        text.remove(index, n);
        return utf8(text);
    };
    {
        ROW("string-110");
        EXPECT_EQ(removed(1, 1), "ac");
    }
    {
        ROW("string-111");
        EXPECT_EQ(removed(1, PEG_NOT_FOUND), "a");
    }
    {
        ROW("string-114");
        EXPECT_THROWS(removed(1, 9), IndexOutOfBoundsException, "index out of bounds");
    }
    EXPECT_EQ(removed(3, PEG_NOT_FOUND), "abc");
    EXPECT_EQ(removed(0, 3), "");
    EXPECT_THROWS(removed(4, PEG_NOT_FOUND), IndexOutOfBoundsException, "index out of bounds");
    EXPECT_THROWS(removed(4, 0), IndexOutOfBoundsException, "index out of bounds");
    String empty;
    empty.remove(0);
    EXPECT_EQ(empty, "");
}

TEST(String, StaysEmptyAfterRemovingEverything) {
    String text("abc");
    text.remove(0);
    EXPECT_EQ(text.size(), 0U);
    EXPECT_EQ(text, String());
    EXPECT_EQ(text.append("x"), "x");
}

TEST(String, ConvertsAsciiToLowerCase) {
    {
        ROW("string-117");
        String text("AbC\xC3\x89");
        text.toLower();
        EXPECT_EQ(text, "abc\xC3\x89");
    }
    String empty;
    empty.toLower();
    EXPECT_EQ(empty, "");
}

TEST(String, Clears) {
    ROW("string-119");
    String text("abc");
    text.clear();
    EXPECT_EQ(text, "");
    EXPECT_EQ(text, String::EMPTY);
}

TEST(String, SharesItsTextUntilACopyIsChanged) {
    String first("abc");
    String second(first);
    {
        ROW("string-124");
        EXPECT_EQ(first.getChar16Data(), second.getChar16Data());
    }
    {
        ROW("string-123");
        second.append("d");
        EXPECT_EQ(first, "abc");
        EXPECT_EQ(second, "abcd");
    }
    {
        ROW("string-125");
        second = first;
        second[0] = 'X';
        EXPECT_EQ(first, "abc");
        EXPECT_EQ(second, "Xbc");
    }
}

TEST(String, ReservesRoom) {
    String text("ab");
    text.reserveCapacity(100);
    const Char16* const before = text.getChar16Data();
    for (int i = 0; i < 98; ++i) {
        text.append("x");
    }
    EXPECT_EQ(text.getChar16Data(), before);
    EXPECT_EQ(text.size(), 100U);
}

TEST(String, WritesUtf8ToAStream) {
    std::ostringstream stream;
    stream << String("\xC3\xA9t\xC3\xA9") << String();
    EXPECT_EQ(stream.str(), "\xC3\xA9t\xC3\xA9");
}

TEST(CString, CopiesItsBytes) {
    {
        ROW("string-126");
        EXPECT_STREQ(String().getCString(), "");
    }
    {
        ROW("string-127");
        EXPECT_EQ(static_cast<const char*>(CString()), nullptr);
    }
    CString copy(CString{});
    EXPECT_EQ(static_cast<const char*>(copy), nullptr);
    const CString original = String("abc").getCString();
    copy = original;
    EXPECT_STREQ(copy, "abc");
    EXPECT_NE(static_cast<const char*>(copy), static_cast<const char*>(original));
    copy = *&copy;
    EXPECT_STREQ(CString(copy), "abc");
}

}  // namespace
