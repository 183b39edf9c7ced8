// SPDX-License-Identifier: MIT
#include <vector>

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::arrayOf;
using modeltest::describe;
using namespace Pegasus;

namespace {

using K = CIMKeyBinding;

std::string described(const CIMKeyBinding& key) {
    return describe(arrayOf<K>({key}));
}

std::string made(const CIMValue& value) {
    return described(K("k", value));
}

TEST(CIMKeyBinding, IsMadeFromText) {
    {
        ROW("keybinding-001");
        EXPECT_TRUE(K().getName().isNull());
        EXPECT_EQ(K().getValue(), "");
        EXPECT_EQ(K().getType(), K::REFERENCE);
    }
    {
        ROW("keybinding-002");
        EXPECT_EQ(described(K("A", "v", K::STRING)), R"(["A" STRING "v"])");
    }
    {
        ROW("keybinding-049");
        K key("A", "v", K::STRING);
        key.setType(K::NUMERIC);
        EXPECT_EQ(described(key), R"(["A" NUMERIC "v"])");
        key.setName("B");
        EXPECT_EQ(described(key), R"(["B" NUMERIC "v"])");
    }
    {
        ROW("keybinding-048");
        const K key("A", "v", K::STRING);
        K copy(key);
        copy.setValue("w");
        EXPECT_EQ(key.getValue(), "v");
        EXPECT_EQ(copy.getValue(), "w");
    }
}

TEST(CIMKeyBinding, IsMadeFromAValue) {
    struct Case {
        const char* row;
        CIMValue value;
        const char* key;
    };
    const std::vector<Case> cases{
        {"keybinding-003", String("a\"b"), R"(["k" STRING "a\"b"])"},
        {"keybinding-004", true, R"(["k" BOOLEAN "TRUE"])"},
        {"keybinding-005", false, R"(["k" BOOLEAN "FALSE"])"},
        {"keybinding-006", Uint16(7), R"(["k" NUMERIC "7"])"},
        {"keybinding-007", Sint64(-5), R"(["k" NUMERIC "-5"])"},
        {"keybinding-008", Uint64(18446744073709551615ULL),
         R"(["k" NUMERIC "18446744073709551615"])"},
        {"keybinding-009", Real32(1.5), R"(["k" NUMERIC "1.5000000000000000e+00"])"},
        {"keybinding-010", Char16('x'), R"(["k" STRING "x"])"},
        {"keybinding-011", CIMDateTime(String("20020308070100.000000-240")),
         R"(["k" STRING "20020308070100.000000-240"])"},
        {"keybinding-012", CIMObjectPath(String("C.k=\"v\"")), R"(["k" REFERENCE "C.k=\"v\""])"},
        {"keybinding-013", CIMValue(CIMTYPE_STRING, false), R"(["k" STRING ""])"},
        {"keybinding-015", CIMValue(), R"(["k" BOOLEAN ""])"},
        {"keybinding-017", String(), R"(["k" STRING ""])"},
        {"keybinding-018", CIMObjectPath(String("//h/root/x:C.k=\"v\"")),
         R"(["k" REFERENCE "//h/root/x:C.k=\"v\""])"},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_EQ(made(each.value), each.key);
    }
    {
        ROW("keybinding-016");
        EXPECT_THROWS(made(Array<Uint16>(2)), TypeMismatchException, "type mismatch");
    }
    EXPECT_THROWS(made(CIMValue(CIMTYPE_INSTANCE, false)), TypeMismatchException, "type mismatch");
    EXPECT_THROWS(made(CIMValue(CIMTYPE_OBJECT, false)), TypeMismatchException, "type mismatch");
}

TEST(CIMKeyBinding, ComparesNamesTypesAndTexts) {
    struct Case {
        const char* row;
        K x;
        K y;
        bool areEqual;
    };
    const std::vector<Case> cases{
        {"keybinding-019", K("A", "v", K::STRING), K("a", "v", K::STRING), true},
        {"keybinding-020", K("A", "v", K::STRING), K("A", "V", K::STRING), false},
        {"keybinding-021", K("A", "1", K::STRING), K("A", "1", K::NUMERIC), false},
        {"keybinding-022", K("A", "TRUE", K::STRING), K("A", "TRUE", K::BOOLEAN), false},
        {"keybinding-031", K("A", "maybe", K::BOOLEAN), K("A", "maybe", K::BOOLEAN), true},
        {"keybinding-039", K("A", "v", K::STRING), K("B", "v", K::STRING), false},
        {"keybinding-040", K(), K(), true},
        {"", K("A", "true", K::BOOLEAN), K("A", "TRUE", K::BOOLEAN), true},
        {"", K("A", "true", K::BOOLEAN), K("A", "FALSE", K::BOOLEAN), false},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_EQ(each.x == each.y, each.areEqual);
    }
}

TEST(CIMKeyBinding, ComparesNumbersAsIntegers) {
    struct Case {
        const char* row;
        const char* x;
        const char* y;
        bool areEqual;
    };
    for (const Case& each : {Case{"keybinding-024", "5", "05", false},
                             {"keybinding-025", "16", "0x10", true},
                             {"keybinding-026", "5", "+5", true},
                             {"keybinding-027", "5", "5.0", false},
                             {"keybinding-028", "-0", "0", true},
                             {"keybinding-029", "101b", "5", false},
                             {"keybinding-030", "abc", "abc", true},
                             {"", "5", "-5", false},
                             {"", "5", "6", false},
                             {"", "abc", "abd", false}}) {
        ROW(each.row);
        EXPECT_EQ(K("A", each.x, K::NUMERIC) == K("A", each.y, K::NUMERIC), each.areEqual);
    }
}

TEST(CIMKeyBinding, ComparesReferencesAsPaths) {
    struct Case {
        const char* row;
        const char* x;
        const char* y;
        bool areEqual;
    };
    for (const Case& each :
         {Case{"keybinding-032", "C.k=\"v\"", "c.K=\"v\"", true},
          {"keybinding-033", "C.k=\"v\"", "C.k=\"V\"", false},
          {"keybinding-034", "C.a=1,b=2", "C.b=2,a=1", true},
          {"keybinding-035", "root/x:C.k=1", "C.k=1", false},
          {"keybinding-036", "//h/root/x:C.k=1", "root/x:C.k=1", false},
          {"keybinding-038", "garbage that is no path", "garbage that is no path", true},
          {"", "garbage that is no path", "Garbage that is no path", false},
          {"", "C.k=1", "garbage that is no path", false}}) {
        ROW(each.row);
        EXPECT_EQ(K("A", each.x, K::REFERENCE) == K("A", each.y, K::REFERENCE), each.areEqual);
    }
}

TEST(CIMKeyBinding, ComparesWithAValue) {
    struct Case {
        const char* row;
        K key;
        CIMValue value;
        bool areEqual;
    };
    const std::vector<Case> cases{
        {"keybinding-041", K("A", "7", K::NUMERIC), Uint16(7), true},
        {"keybinding-042", K("A", "7", K::NUMERIC), Uint32(7), true},
        {"keybinding-043", K("A", "7", K::STRING), Uint16(7), false},
        {"keybinding-044", K("A", "TRUE", K::BOOLEAN), true, true},
        {"keybinding-046", K("A", "v", K::STRING), String("V"), false},
        {"keybinding-047", K("A", "C.k=\"v\"", K::REFERENCE), CIMObjectPath(String("C.k=\"v\"")),
         true},
    };
    for (Case each : cases) {
        ROW(each.row);
        EXPECT_EQ(each.key.equal(each.value), each.areEqual);
    }
}

}  // namespace
