// SPDX-License-Identifier: MIT
#include <clocale>
#include <cmath>
#include <limits>
#include <vector>

#include <Pegasus/Common/CIMValue.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::arrayOf;
using modeltest::describe;
using namespace Pegasus;

namespace {

const CIMDateTime aDate(String("20020308070100.000000-240"));
const CIMDateTime anInterval(String("00000001020304.000005:000"));
const CIMObjectPath aPath(String("C.k=\"v\""));

CIMValue null(CIMType type) {
    return {type, false};
}
CIMValue nullArray(CIMType type) {
    return {type, true};
}

/// Whether get() copies the value to a variable of type T. Any exception must be a type mismatch.
template <class T>
bool accepts(const CIMValue& value) {
    T variable{};
    try {
        value.get(variable);
        return true;
    } catch (const TypeMismatchException& exception) {
        EXPECT_EQ(exception.getMessage(), "type mismatch");
        return false;
    }
}

/// The names of the types that get() accepts, out of all scalars and the most common arrays.
std::string accepted(const CIMValue& value) {
    std::string result;
    const auto note = [&result](bool isAccepted, const char* name) {
        result += isAccepted ? std::string(name) + " " : "";
    };
    note(accepts<Boolean>(value), "Boolean");
    note(accepts<Uint8>(value), "Uint8");
    note(accepts<Sint8>(value), "Sint8");
    note(accepts<Uint16>(value), "Uint16");
    note(accepts<Sint16>(value), "Sint16");
    note(accepts<Uint32>(value), "Uint32");
    note(accepts<Sint32>(value), "Sint32");
    note(accepts<Uint64>(value), "Uint64");
    note(accepts<Sint64>(value), "Sint64");
    note(accepts<Real32>(value), "Real32");
    note(accepts<Real64>(value), "Real64");
    note(accepts<Char16>(value), "Char16");
    note(accepts<String>(value), "String");
    note(accepts<CIMDateTime>(value), "CIMDateTime");
    note(accepts<CIMObjectPath>(value), "CIMObjectPath");
    note(accepts<Array<Boolean>>(value), "A<Boolean>");
    note(accepts<Array<Uint8>>(value), "A<Uint8>");
    note(accepts<Array<Uint16>>(value), "A<Uint16>");
    note(accepts<Array<Uint32>>(value), "A<Uint32>");
    note(accepts<Array<String>>(value), "A<String>");
    note(accepts<Array<CIMDateTime>>(value), "A<CIMDateTime>");
    note(accepts<Array<CIMObjectPath>>(value), "A<CIMObjectPath>");
    return result.empty() ? "nothing" : result;
}

TEST(CIMValue, CanHaveEveryType) {
    struct Case {
        const char* row;
        CIMValue value;
        const char* description;
        Uint32 arraySize;
    };
    const std::vector<Case> cases{
        {"value-001", CIMValue(), R"(boolean null toString "")", 0},
        {"value-002", true, R"(boolean toString "TRUE")", 0},
        {"value-003", Uint8(200), R"(uint8 toString "200")", 0},
        {"value-004", Sint8(-5), R"(sint8 toString "-5")", 0},
        {"value-005", Uint16(65535), R"(uint16 toString "65535")", 0},
        {"value-006", Sint16(-300), R"(sint16 toString "-300")", 0},
        {"value-007", Uint32(4294967295U), R"(uint32 toString "4294967295")", 0},
        {"value-008", Sint32(-7), R"(sint32 toString "-7")", 0},
        {"value-009", Uint64(18446744073709551615ULL), R"(uint64 toString "18446744073709551615")",
         0},
        {"value-010", Sint64(-9), R"(sint64 toString "-9")", 0},
        {"value-011", Real32(1.5), R"(real32 toString "1.5000000000000000e+00")", 0},
        {"value-012", Real64(-2.5e10), R"(real64 toString "-2.5000000000000000e+10")", 0},
        {"value-013", Char16('x'), R"(char16 toString "x")", 0},
        {"value-014", String("a\"b"), R"(string toString "a\"b")", 0},
        {"value-015", aDate, R"(datetime toString "20020308070100.000000-240")", 0},
        {"value-016", aPath, R"(reference toString "C.k=\"v\"")", 0},
        {"value-019", arrayOf<Boolean>({true, false}), R"(boolean[] toString "TRUE FALSE ")", 2},
        {"value-020", arrayOf<Uint8>({1, 255}), R"(uint8[] toString "1 255 ")", 2},
        {"value-021", arrayOf<Sint8>({-1, 1}), R"(sint8[] toString "-1 1 ")", 2},
        {"value-022", arrayOf<Uint16>({1, 2}), R"(uint16[] toString "1 2 ")", 2},
        {"value-023", arrayOf<Sint16>({-1, 2}), R"(sint16[] toString "-1 2 ")", 2},
        {"value-024", arrayOf<Uint32>({1, 2}), R"(uint32[] toString "1 2 ")", 2},
        {"", arrayOf<Sint32>({-1, 2}), R"(sint32[] toString "-1 2 ")", 2},
        {"", arrayOf<Uint64>({1, 2}), R"(uint64[] toString "1 2 ")", 2},
        {"value-027", arrayOf<Sint64>({-1, 2}), R"(sint64[] toString "-1 2 ")", 2},
        {"", arrayOf<Real32>({0.5}), R"(real32[] toString "5.0000000000000000e-01 ")", 1},
        {"value-029", arrayOf<Real64>({0.1, 2}),
         R"(real64[] toString "1.0000000000000001e-01 2.0000000000000000e+00 ")", 2},
        {"value-030", arrayOf<Char16>({'a', 'b'}), R"(char16[] toString "a b ")", 2},
        {"value-031", arrayOf<String>({"a", "b c"}), R"(string[] toString "a b c ")", 2},
        {"value-032", arrayOf<CIMDateTime>({aDate, CIMDateTime()}),
         R"(datetime[] toString "20020308070100.000000-240 00000000000000.000000:000 ")", 2},
        {"value-033", arrayOf<CIMObjectPath>({String("C.k=1"), String("D")}),
         R"(reference[] toString "C.k=1 D ")", 2},
        {"value-034", "abc", R"(boolean toString "TRUE")", 0},
        {"value-035", 5, R"(sint32 toString "5")", 0},
        {"value-036", 'a', R"(sint8 toString "97")", 0},
        {"value-037", Array<String>(), R"(string[] toString "")", 0},
        {"value-038", String(), R"(string toString "")", 0},
        {"value-073", CIMValue(CIMTYPE_UINT16, true, 4), R"(uint16[] null toString "")", 4},
        {"value-074", CIMValue(CIMTYPE_UINT16, false, 4), R"(uint16 null toString "")", 0},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_EQ(describe(each.value), each.description);
        EXPECT_EQ(each.value.getArraySize(), each.arraySize);
    }
}

TEST(CIMValue, CanBeANullOfEveryType) {
    struct Case {
        const char* row;
        CIMType type;
        bool isArray;
        const char* description;
    };
    for (const Case& each :
         {Case{"value-040", CIMTYPE_UINT8, false, R"(uint8 null toString "")"},
          {"value-041", CIMTYPE_SINT8, false, R"(sint8 null toString "")"},
          {"value-042", CIMTYPE_UINT16, false, R"(uint16 null toString "")"},
          {"", CIMTYPE_SINT16, false, R"(sint16 null toString "")"},
          {"", CIMTYPE_UINT32, false, R"(uint32 null toString "")"},
          {"value-045", CIMTYPE_SINT32, false, R"(sint32 null toString "")"},
          {"value-046", CIMTYPE_UINT64, false, R"(uint64 null toString "")"},
          {"", CIMTYPE_SINT64, false, R"(sint64 null toString "")"},
          {"value-048", CIMTYPE_REAL32, false, R"(real32 null toString "")"},
          {"value-049", CIMTYPE_REAL64, false, R"(real64 null toString "")"},
          {"value-050", CIMTYPE_CHAR16, false, R"(char16 null toString "")"},
          {"", CIMTYPE_STRING, false, R"(string null toString "")"},
          {"value-052", CIMTYPE_DATETIME, false, R"(datetime null toString "")"},
          {"value-053", CIMTYPE_REFERENCE, false, R"(reference null toString "")"},
          {"value-054", CIMTYPE_OBJECT, false, R"(object null toString "")"},
          {"value-055", CIMTYPE_INSTANCE, false, R"(instance null toString "")"},
          {"value-056", CIMTYPE_BOOLEAN, true, R"(boolean[] null toString "")"},
          {"value-057", CIMTYPE_UINT8, true, R"(uint8[] null toString "")"},
          {"value-058", CIMTYPE_SINT8, true, R"(sint8[] null toString "")"},
          {"value-059", CIMTYPE_UINT16, true, R"(uint16[] null toString "")"},
          {"", CIMTYPE_SINT16, true, R"(sint16[] null toString "")"},
          {"value-061", CIMTYPE_UINT32, true, R"(uint32[] null toString "")"},
          {"value-062", CIMTYPE_SINT32, true, R"(sint32[] null toString "")"},
          {"value-063", CIMTYPE_UINT64, true, R"(uint64[] null toString "")"},
          {"value-064", CIMTYPE_SINT64, true, R"(sint64[] null toString "")"},
          {"value-065", CIMTYPE_REAL32, true, R"(real32[] null toString "")"},
          {"value-066", CIMTYPE_REAL64, true, R"(real64[] null toString "")"},
          {"value-067", CIMTYPE_CHAR16, true, R"(char16[] null toString "")"},
          {"value-068", CIMTYPE_STRING, true, R"(string[] null toString "")"},
          {"value-069", CIMTYPE_DATETIME, true, R"(datetime[] null toString "")"},
          {"value-070", CIMTYPE_REFERENCE, true, R"(reference[] null toString "")"},
          {"value-071", CIMTYPE_OBJECT, true, R"(object[] null toString "")"},
          {"value-072", CIMTYPE_INSTANCE, true, R"(instance[] null toString "")"}}) {
        ROW(each.row);
        const CIMValue value(each.type, each.isArray);
        EXPECT_EQ(describe(value), each.description);
        EXPECT_EQ(value.getArraySize(), 0U);
    }
}

TEST(CIMValue, ReadsAsText) {
    struct Case {
        const char* row;
        CIMValue value;
        const char* text;
    };
    const std::vector<Case> cases{
        {"value-078", false, "FALSE"},
        {"value-079", null(CIMTYPE_STRING), ""},
        {"value-081", 0.1, "1.0000000000000001e-01"},
        {"value-082", 1e300, "1.0000000000000001e+300"},
        {"value-083", std::numeric_limits<Real64>::infinity(), "inf"},
        // On x86 the result of 0.0 / 0.0 has the sign bit.
        {"value-084", std::copysign(std::numeric_limits<Real64>::quiet_NaN(), -1.0), "-nan"},
        {"value-085", Char16(0x20AC), "\xE2\x82\xAC"},
        {"value-086", arrayOf<String>({"", "x", ""}), " x  "},
        {"value-087", Sint8(-128), "-128"},
        {"value-087", Uint8(0), "0"},
        {"value-088", std::numeric_limits<Sint64>::min(), "-9223372036854775808"},
        {"value-089", anInterval, "00000001020304.000005:000"},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_EQ(each.value.toString(), each.text);
    }
}

TEST(CIMValue, ReadsTheSameInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(CIMValue(1.5).toString(), "1.5000000000000000e+00");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(CIMValue, IsCopiedOnlyToAVariableOfItsType) {
    struct Case {
        const char* row;
        CIMValue value;
        const char* targets;
    };
    const std::vector<Case> cases{
        {"value-090", true, "Boolean "},
        {"value-091", Uint8(200), "Uint8 "},
        {"value-092", Sint8(-5), "Sint8 "},
        {"value-093", Uint16(65535), "Uint16 "},
        {"value-094", Sint16(-300), "Sint16 "},
        {"value-095", Uint32(4294967295U), "Uint32 "},
        {"value-096", Sint32(-7), "Sint32 "},
        {"value-097", Uint64(18446744073709551615ULL), "Uint64 "},
        {"value-098", Sint64(-9), "Sint64 "},
        {"value-099", Real32(1.5), "Real32 "},
        {"value-100", Real64(-2.5e10), "Real64 "},
        {"", Char16('x'), "Char16 "},
        {"value-102", String("a\"b"), "String "},
        {"value-103", aDate, "CIMDateTime "},
        {"value-104", aPath, "CIMObjectPath "},
        {"value-107", arrayOf<Boolean>({true, false}), "A<Boolean> "},
        {"value-108", arrayOf<Uint8>({1, 255}), "A<Uint8> "},
        {"value-109", arrayOf<Sint8>({-1, 1}), "nothing"},
        {"value-110", arrayOf<Uint16>({1, 2}), "A<Uint16> "},
        {"value-112", arrayOf<Uint32>({1, 2}), "A<Uint32> "},
        {"value-113", arrayOf<Sint32>({-1, 2}), "nothing"},
        {"value-115", arrayOf<Sint64>({-1, 2}), "nothing"},
        {"value-117", arrayOf<Real64>({0.1, 2}), "nothing"},
        {"value-118", arrayOf<Char16>({'a', 'b'}), "nothing"},
        {"", arrayOf<String>({"a"}), "A<String> "},
        {"value-120", Array<CIMDateTime>(1), "A<CIMDateTime> "},
        {"value-121", Array<CIMObjectPath>(1), "A<CIMObjectPath> "},
        {"value-122", CIMValue(), "Boolean "},
        {"value-123", null(CIMTYPE_STRING), "String "},
        {"value-124", nullArray(CIMTYPE_UINT16), "A<Uint16> "},
        {"", null(CIMTYPE_INSTANCE), "nothing"},
        {"", nullArray(CIMTYPE_OBJECT), "nothing"},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_EQ(accepted(each.value), each.targets);
    }
}

template <class T>
class CIMValueOfType : public testing::Test {};
using AllTypes = testing::Types<Boolean, Uint8, Sint8, Uint16, Sint16, Uint32, Sint32, Uint64,
                                Sint64, Real32, Real64, Char16, String, CIMDateTime, CIMObjectPath>;
// The trailing comma: clang warns about a variadic macro without arguments.
TYPED_TEST_SUITE(CIMValueOfType, AllTypes, );

template <class T>
T someValue() {
    return T(1);
}
template <>
String someValue() {
    return "text";
}
template <>
CIMDateTime someValue() {
    return anInterval;
}
template <>
CIMObjectPath someValue() {
    return aPath;
}

TYPED_TEST(CIMValueOfType, GivesBackWhatWasSet) {
    const TypeParam item = someValue<TypeParam>();
    CIMValue value;
    value.set(item);
    EXPECT_FALSE(value.isArray());
    EXPECT_EQ(value, CIMValue(item));
    TypeParam gotten{};
    value.get(gotten);
    EXPECT_TRUE(gotten == item);

    Array<TypeParam> items(2, item);
    value.set(items);
    EXPECT_TRUE(value.isArray());
    EXPECT_EQ(value, CIMValue(items));
    items[1] = TypeParam();
    EXPECT_NE(value, CIMValue(items));
    value.get(items);
    EXPECT_TRUE(items[1] == item);
    EXPECT_THROWS(value.get(gotten), TypeMismatchException, "type mismatch");

    value.setNullValue(CIMValue(item).getType(), false);
    TypeParam untouched = item;
    value.get(untouched);
    EXPECT_TRUE(untouched == item);
    value.setNullValue(CIMValue(item).getType(), true);
    value.get(items);
    EXPECT_EQ(items.size(), 2U);
}

TEST(CIMValue, LeavesTheVariableUnchangedWhenTypesDiffer) {
    const CIMValue number(Uint16(1));
    Uint32 wide = 0;
    String text;
    Uint16 scalar = 77;
    Array<Uint16> array;
    {
        ROW("value-125");
        EXPECT_THROWS(number.get(wide), TypeMismatchException, "type mismatch");
    }
    {
        ROW("value-126");
        EXPECT_THROWS(number.get(text), TypeMismatchException, "type mismatch");
    }
    {
        ROW("value-127");
        EXPECT_THROWS(CIMValue(String("1")).get(scalar), TypeMismatchException, "type mismatch");
    }
    {
        ROW("value-128");
        EXPECT_THROWS(CIMValue(Array<Uint16>(1)).get(scalar), TypeMismatchException,
                      "type mismatch");
    }
    {
        ROW("value-129");
        EXPECT_THROWS(number.get(array), TypeMismatchException, "type mismatch");
    }
    {
        ROW("value-130");
        EXPECT_EQ(scalar, 77);
    }
}

TEST(CIMValue, LeavesTheVariableUnchangedWhenItIsNull) {
    {
        ROW("value-131");
        Uint16 x = 77;
        null(CIMTYPE_UINT16).get(x);
        EXPECT_EQ(x, 77);
    }
    {
        ROW("value-132");
        String x("old");
        null(CIMTYPE_STRING).get(x);
        EXPECT_EQ(x, "old");
    }
    {
        ROW("value-133");
        Boolean x = true;
        null(CIMTYPE_BOOLEAN).get(x);
        EXPECT_TRUE(x);
    }
    {
        ROW("value-134");
        Array<String> x(1);
        nullArray(CIMTYPE_STRING).get(x);
        EXPECT_EQ(x.size(), 1U);
    }
    {
        ROW("value-135");
        CIMObjectPath x(String("C.k=1"));
        null(CIMTYPE_REFERENCE).get(x);
        EXPECT_EQ(x.toString(), "C.k=1");
    }
    {
        ROW("value-136");
        CIMDateTime x(aDate);
        null(CIMTYPE_DATETIME).get(x);
        EXPECT_EQ(x.toString(), "20020308070100.000000-240");
    }
    {
        ROW("value-137");
        Uint16 x = 0;
        EXPECT_THROWS(null(CIMTYPE_UINT32).get(x), TypeMismatchException, "type mismatch");
    }
    {
        ROW("value-138");
        Array<Uint16> x;
        EXPECT_THROWS(null(CIMTYPE_UINT16).get(x), TypeMismatchException, "type mismatch");
    }
    {
        ROW("value-139");
        Boolean x = true;
        CIMValue().get(x);
        EXPECT_TRUE(x);
    }
    {
        ROW("value-140");
        String x;
        EXPECT_THROWS(CIMValue().get(x), TypeMismatchException, "type mismatch");
    }
}

TEST(CIMValue, EqualsTheSameValueOfTheSameType) {
    const CIMDateTime sameInstant(String("20020308110100.000000+000"));
    const Real64 notANumber = std::numeric_limits<Real64>::quiet_NaN();
    struct Case {
        const char* row;
        CIMValue x;
        CIMValue y;
        bool areEqual;
    };
    const std::vector<Case> cases{
        {"value-141", Uint16(1), Uint16(1), true},
        {"value-142", Uint16(1), Uint32(1), false},
        {"value-143", Uint16(1), null(CIMTYPE_UINT16), false},
        {"", null(CIMTYPE_UINT16), null(CIMTYPE_UINT16), true},
        {"value-145", null(CIMTYPE_UINT16), null(CIMTYPE_UINT32), false},
        {"", null(CIMTYPE_UINT16), nullArray(CIMTYPE_UINT16), false},
        {"value-147", CIMValue(), CIMValue(), true},
        {"value-148", CIMValue(), null(CIMTYPE_BOOLEAN), true},
        {"value-149", CIMValue(), null(CIMTYPE_STRING), false},
        {"value-150", String("a"), String("A"), false},
        {"value-151", String(), null(CIMTYPE_STRING), false},
        {"value-152", arrayOf<Uint16>({1, 2}), arrayOf<Uint16>({1, 2}), true},
        {"value-153", arrayOf<Uint16>({1, 2}), arrayOf<Uint16>({2, 1}), false},
        {"", arrayOf<Uint16>({1, 2}), arrayOf<Uint16>({1}), false},
        {"value-154", Array<Uint16>(), nullArray(CIMTYPE_UINT16), false},
        {"value-155", arrayOf<Uint16>({1}), Uint16(1), false},
        {"value-156", true, Uint8(1), false},
        {"value-157", aPath, CIMObjectPath(String("C.k=\"v\"")), true},
        {"value-158", CIMObjectPath(String("//h/root/x:C.k=1")),
         CIMObjectPath(String("//i/root/x:C.k=1")), false},
        {"value-159", aPath, String("C.k=\"v\""), false},
        {"value-160", aDate, sameInstant, true},
        {"value-161", notANumber, notANumber, false},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_EQ(each.x == each.y, each.areEqual);
        EXPECT_EQ(each.x != each.y, !each.areEqual);
        EXPECT_EQ(each.x.equal(each.y), each.areEqual);
    }
    EXPECT_THROWS(CIMValue(aDate) == CIMValue(anInterval), TypeMismatchException,
                  "type mismatch: Trying to compare CIMDateTime objects of differing types");
}

TEST(CIMValue, IsCompatibleOnlyWithItsOwnType) {
    // The value of the CIMType is the index of the row.
    constexpr const char* rows[] = {"value-164", "value-165", "value-166", "value-167", "value-168",
                                    "",          "value-170", "value-171", "value-172", "value-173",
                                    "value-174", "value-175", "value-176", "value-177", "value-178",
                                    "value-179", "value-180"};
    for (int type = CIMTYPE_BOOLEAN; type <= CIMTYPE_INSTANCE; ++type) {
        ROW(rows[type]);
        for (int other = CIMTYPE_BOOLEAN; other <= CIMTYPE_INSTANCE; ++other) {
            EXPECT_EQ(
                null(static_cast<CIMType>(type)).typeCompatible(null(static_cast<CIMType>(other))),
                type == other);
        }
    }
    {
        ROW("value-181");
        EXPECT_FALSE(CIMValue(Uint16(1)).typeCompatible(Array<Uint16>(1)));
    }
    {
        ROW("value-182");
        EXPECT_TRUE(CIMValue(Array<Uint16>(2)).typeCompatible(Array<Uint16>(1)));
    }
    {
        ROW("value-183");
        EXPECT_TRUE(CIMValue(Uint16(1)).typeCompatible(null(CIMTYPE_UINT16)));
    }
    {
        ROW("value-185");
        EXPECT_FALSE(CIMValue(String("C")).typeCompatible(aPath));
    }
    {
        ROW("value-186");
        EXPECT_TRUE(CIMValue().typeCompatible(true));
    }
    {
        ROW("value-187");
        EXPECT_FALSE(CIMValue().typeCompatible(String("x")));
    }
}

TEST(CIMValue, ChangesItsTypeWhenItIsSet) {
    CIMValue value(Uint16(1));
    {
        ROW("value-188");
        value.set(String("x"));
        EXPECT_EQ(describe(value), R"(string toString "x")");
    }
    {
        ROW("value-189");
        value.setNullValue(CIMTYPE_STRING, false);
        value.set(Uint32(4));
        EXPECT_EQ(describe(value), R"(uint32 toString "4")");
    }
    {
        ROW("value-190");
        value.set(Array<Uint16>(2));
        value.set(Uint16(1));
        EXPECT_EQ(describe(value), R"(uint16 toString "1")");
    }
    {
        ROW("value-191");
        value.setNullValue(CIMTYPE_STRING, false);
        EXPECT_EQ(describe(value), R"(string null toString "")");
    }
    {
        ROW("value-192");
        value.setNullValue(CIMTYPE_STRING, true, 3);
        EXPECT_EQ(describe(value), R"(string[] null toString "")");
        EXPECT_EQ(value.getArraySize(), 3U);
    }
    {
        ROW("value-193");
        value.clear();
        EXPECT_EQ(describe(value), R"(boolean null toString "")");
    }
    {
        ROW("value-195");
        value.set("literal");
        EXPECT_EQ(describe(value), R"(boolean toString "TRUE")");
    }
    value.set('a');
    EXPECT_EQ(describe(value), R"(sint8 toString "97")");
}

TEST(CIMValue, IsIndependentOfItsCopies) {
    ROW("value-194");
    const CIMValue first(Uint16(1));
    CIMValue copy(first);
    copy.set(Uint16(2));
    EXPECT_EQ(describe(first), R"(uint16 toString "1")");
    EXPECT_EQ(describe(copy), R"(uint16 toString "2")");
    copy.assign(first);
    EXPECT_EQ(copy, first);

    Array<String> texts(1, "old");
    const CIMValue array(texts);
    texts[0] = "new";
    EXPECT_EQ(array.toString(), "old ");
    array.get(texts);
    texts[0] = "new";
    EXPECT_EQ(array.toString(), "old ");
}

TEST(CIMValue, IsThreeWordsLong) {
    EXPECT_EQ(sizeof(CIMValue), 24U);
}

}  // namespace
