// SPDX-License-Identifier: MIT
#include "wire/cimxml/ValueConversion.h"

#include <limits>

#include <Pegasus/Common/Array.h>
#include <gtest/gtest.h>

#include "wire/cimxml/StringConversion.h"

using namespace wire;

namespace {

/// The value of a text, written again.
std::string parsed(Pegasus::CIMType type, const std::string& text) {
    const Pegasus::CIMValue value = parseValue(type, text);
    EXPECT_EQ(value.getType(), type);
    EXPECT_FALSE(value.isNull());
    return toUtf8(value.toString());
}

std::string whatIsWrong(Pegasus::CIMType type, const std::string& text) {
    try {
        parseValue(type, text);
        return "nothing";
    } catch (const MalformedValue& error) {
        return error.what();
    }
}

template <typename T>
std::string written(const T& value) {
    std::string out;
    appendValue(out, value);
    return out;
}

template <typename T>
void expectRange(Pegasus::CIMType type, const std::string& below, const std::string& lowest,
                 const std::string& highest, const std::string& above) {
    T value{};
    parseValue(type, lowest).get(value);
    EXPECT_EQ(value, std::numeric_limits<T>::min());
    EXPECT_EQ(written(value), lowest);
    parseValue(type, highest).get(value);
    EXPECT_EQ(value, std::numeric_limits<T>::max());
    EXPECT_EQ(written(value), highest);
    EXPECT_THROW(parseValue(type, below), MalformedValue) << below;
    EXPECT_THROW(parseValue(type, above), MalformedValue) << above;
}

}  // namespace

TEST(ValueConversion, knowsTypesByName) {
    EXPECT_EQ(typeOfName("boolean"), Pegasus::CIMTYPE_BOOLEAN);
    EXPECT_EQ(typeOfName("uint16"), Pegasus::CIMTYPE_UINT16);
    EXPECT_EQ(typeOfName("reference"), Pegasus::CIMTYPE_REFERENCE);
    EXPECT_EQ(typeOfName("Uint16"), std::nullopt);
    EXPECT_EQ(typeOfName(""), std::nullopt);
    EXPECT_EQ(typeOfName("object"), std::nullopt);
}

TEST(ValueConversion, readsBooleansInAnyCase) {
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_BOOLEAN, "TRUE"), "TRUE");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_BOOLEAN, "true"), "TRUE");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_BOOLEAN, "False"), "FALSE");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_BOOLEAN, "maybe"), "\"maybe\" is not a valid boolean");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_BOOLEAN, "1"), "\"1\" is not a valid boolean");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_BOOLEAN, ""), "\"\" is not a valid boolean");
}

TEST(ValueConversion, keepsIntegersWithinTheirRange) {
    expectRange<Pegasus::Uint8>(Pegasus::CIMTYPE_UINT8, "-1", "0", "255", "256");
    expectRange<Pegasus::Sint8>(Pegasus::CIMTYPE_SINT8, "-129", "-128", "127", "128");
    expectRange<Pegasus::Uint16>(Pegasus::CIMTYPE_UINT16, "-1", "0", "65535", "65536");
    expectRange<Pegasus::Sint16>(Pegasus::CIMTYPE_SINT16, "-32769", "-32768", "32767", "32768");
    expectRange<Pegasus::Uint32>(Pegasus::CIMTYPE_UINT32, "-1", "0", "4294967295", "4294967296");
    expectRange<Pegasus::Sint32>(Pegasus::CIMTYPE_SINT32, "-2147483649", "-2147483648",
                                 "2147483647", "2147483648");
    expectRange<Pegasus::Uint64>(Pegasus::CIMTYPE_UINT64, "-1", "0", "18446744073709551615",
                                 "18446744073709551616");
    expectRange<Pegasus::Sint64>(Pegasus::CIMTYPE_SINT64, "-9223372036854775809",
                                 "-9223372036854775808", "9223372036854775807",
                                 "9223372036854775808");
}

TEST(ValueConversion, readsHexadecimalAndSigns) {
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_UINT16, "0x10"), "16");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_UINT16, "0XfF"), "255");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_SINT16, "-0x10"), "-16");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_UINT16, "+7"), "7");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_UINT16, "007"), "7");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_UINT16, "-0"), "0");
}

TEST(ValueConversion, refusesTextThatIsNoInteger) {
    for (const char* text :
         {"", "seven", "7 ", " 7", "7.0", "7e1", "0x", "0xg", "--7", "+-7", "x7"}) {
        EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_UINT16, text),
                  "\"" + std::string(text) + "\" is not a valid uint16");
    }
}

TEST(ValueConversion, readsReals) {
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_REAL64, "-2.5e10"), "-2.5000000000000000e+10");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_REAL32, "1.5"), "1.5000000000000000e+00");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_REAL64, "42"), "4.2000000000000000e+01");
    for (const char* text : {"", "inf", "nan", "0x1p3", "1.5x", " 1", "1e999", "--1"}) {
        EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_REAL64, text),
                  "\"" + std::string(text) + "\" is not a valid real64");
    }
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_REAL32, "1e39"), "\"1e39\" is not a valid real32");
}

TEST(ValueConversion, readsOneCharacter) {
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_CHAR16, "\u20ac"), "\u20ac");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_CHAR16, ""), "\"\" is not a valid char16");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_CHAR16, "ab"), "\"ab\" is not a valid char16");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_CHAR16, "\U0001F600"),
              "\"\U0001F600\" is not a valid char16");
}

TEST(ValueConversion, readsTimes) {
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_DATETIME, "20020308070100.000000-240"),
              "20020308070100.000000-240");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_DATETIME, "00000001020304.000005:000"),
              "00000001020304.000005:000");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_DATETIME, "today"), "\"today\" is not a valid datetime");
}

TEST(ValueConversion, readsStringsAsTheyAre) {
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_STRING, ""), "");
    EXPECT_EQ(parsed(Pegasus::CIMTYPE_STRING, " \u00e9 "), " \u00e9 ");
}

TEST(ValueConversion, referencesHaveNoText) {
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_REFERENCE, "A.b=1"),
              "\"A.b=1\" is not a valid reference");
    EXPECT_THROW(parseArray(Pegasus::CIMTYPE_REFERENCE, {}), MalformedValue);
}

TEST(ValueConversion, longTextsAreQuotedInPart) {
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_UINT16, std::string(64, 'x')),
              "\"" + std::string(64, 'x') + "\" is not a valid uint16");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_UINT16, std::string(65, 'x')),
              "\"" + std::string(64, 'x') + "...\" is not a valid uint16");
    EXPECT_EQ(whatIsWrong(Pegasus::CIMTYPE_UINT16, std::string(63, 'x') + "\u20ac!"),
              "\"" + std::string(63, 'x') + "...\" is not a valid uint16")
        << "no character is cut in two";
}

TEST(ValueConversion, readsArrays) {
    Pegasus::Array<Pegasus::Uint16> numbers;
    parseArray(Pegasus::CIMTYPE_UINT16, {"1", "0x2", "3"}).get(numbers);
    ASSERT_EQ(numbers.size(), 3U);
    EXPECT_EQ(numbers[1], 2);
    const Pegasus::CIMValue empty = parseArray(Pegasus::CIMTYPE_STRING, {});
    EXPECT_TRUE(empty.isArray());
    EXPECT_FALSE(empty.isNull());
    EXPECT_EQ(empty.getArraySize(), 0U);
    EXPECT_THROW(parseArray(Pegasus::CIMTYPE_UINT16, {"1", "two"}), MalformedValue);
}

TEST(ValueConversion, writesEachType) {
    EXPECT_EQ(written(true), "TRUE");
    EXPECT_EQ(written(false), "FALSE");
    EXPECT_EQ(written(Pegasus::Real32(1.5)), "1.5000000e+00");
    EXPECT_EQ(written(Pegasus::Real64(-2.5e10)), "-2.5000000000000000e+10");
    EXPECT_EQ(written(Pegasus::Char16('\'')), "&apos;");
    EXPECT_EQ(written(Pegasus::String("a < b ")), "a &lt; b&#32;");
    EXPECT_EQ(written(Pegasus::CIMDateTime("20020308070100.000000-240")),
              "20020308070100.000000-240");
}
