// SPDX-License-Identifier: MIT
#include "pegasus/model/PathParts.h"

#include <string>

#include "tests/pegasus/model/recorded.h"

using modeltest::describe;
using modeltest::utf8;
using namespace Pegasus;

namespace {

std::string fault(const char* text) {
    PathParts parts;
    return utf8(parsePath(text, parts));
}

TEST(PathParts, FindsTheEndOfAString) {
    EXPECT_EQ(fault("C.k=\"v"), "invalid key-value pair, missing closing quote");
    EXPECT_EQ(fault("C.k=\""), "invalid key-value pair, missing closing quote");
    EXPECT_EQ(fault("C.k=\"v\\"), "invalid key-value pair, invalid escape in string value");
    EXPECT_EQ(fault("C.k=\"a\\nb\""), "invalid key-value pair, invalid escape in string value");
    EXPECT_EQ(fault(R"(C.k="\\")"), "");
    EXPECT_EQ(fault(R"(C.k="\"")"), "");
}

TEST(PathParts, RequiresPlainIntegers) {
    for (const char* const number : {"Fred", "truely", "--5", "-", "-05", "0x", "0xG", "5 "}) {
        EXPECT_EQ(fault((std::string("C.k=") + number).c_str()),
                  std::string("invalid key-value pair, invalid number value ") + number);
    }
    EXPECT_EQ(fault("C.k=18446744073709551615"), "");
    EXPECT_EQ(fault("C.k=18446744073709551616"),
              "invalid key-value pair, invalid number value 18446744073709551616");
    EXPECT_EQ(fault("C.k=-9223372036854775808"), "");
    EXPECT_EQ(fault("C.k=-9223372036854775809"),
              "invalid key-value pair, invalid number value -9223372036854775809");
}

TEST(PathParts, NamesABadKey) {
    EXPECT_EQ(fault("C.a b=1"), "invalid key-value pair, invalid key name:a b");
    EXPECT_EQ(fault("C.k=1,,j=2"), "invalid key-value pair, invalid key name:,j");
}

TEST(PathParts, RequiresAHostAfterTwoSlashes) {
    EXPECT_EQ(fault("///root/x:C"), "invalid hostname");
    EXPECT_EQ(fault("//"), "missing slash after hostname");
    EXPECT_EQ(fault("//h/:C"), "invalid namespace name");
}

TEST(PathParts, SearchesTheNamespaceBeforeTheFirstDot) {
    EXPECT_EQ(fault("root/x.y:C"), "class name root/x not a legal CIM name");
    EXPECT_EQ(fault("C.k=\"x:y\""), "");
}

TEST(PathParts, ReadsNestedPathsOfAnyDepth) {
    // Every level doubles the backslashes, so the depth is logarithmic in the length.
    CIMObjectPath path(String("C.k=1"));
    for (int depth = 0; depth < 14; ++depth) {
        Array<CIMKeyBinding> keys;
        keys.append(CIMKeyBinding("r", path.toString(), CIMKeyBinding::REFERENCE));
        path = CIMObjectPath(String(), CIMNamespaceName(), "A", keys);
    }
    PathParts parts;
    EXPECT_EQ(utf8(parsePath(path.toString(), parts)), "");
    EXPECT_EQ(parts.keyBindings[0].getType(), CIMKeyBinding::REFERENCE);
}

TEST(PathParts, HasNoKeysAfterAnError) {
    PathParts parts;
    EXPECT_NE(parsePath("root/x:C.j=1,k=", parts), "");
    EXPECT_EQ(parts.keyBindings.size(), 0U);
    EXPECT_EQ(parts.className.getString(), "C");
    EXPECT_EQ(parts.nameSpace.getString(), "root/x");
}

TEST(PathParts, KeepsTheOrderOfKeysOfOneName) {
    Array<CIMKeyBinding> keys;
    for (int i = 0; i < 100; ++i) {
        keys.append(CIMKeyBinding("b", std::to_string(i).c_str(), CIMKeyBinding::NUMERIC));
    }
    keys.append(CIMKeyBinding("a", "first", CIMKeyBinding::STRING));
    sortKeys(keys);
    EXPECT_EQ(keys[0].getValue(), "first");
    for (Uint32 i = 0; i < 100; ++i) {
        ASSERT_EQ(keys[i + 1].getValue(), std::to_string(i).c_str());
    }
}

TEST(PathParts, SortsByNameIgnoringCaseAndIsStable) {
    Array<CIMKeyBinding> keys;
    for (const char* const name : {"b", "A", "B", "a"}) {
        keys.append(CIMKeyBinding(name, name, CIMKeyBinding::STRING));
    }
    const Array<CIMKeyBinding> copy(keys);
    sortKeys(keys);
    EXPECT_EQ(describe(keys),
              R"(["A" STRING "A", "a" STRING "a", "b" STRING "b", "B" STRING "B"])");
    EXPECT_EQ(describe(copy), describe(keys))
        << "as in OpenPegasus, what shares them is sorted too";
}

}  // namespace
