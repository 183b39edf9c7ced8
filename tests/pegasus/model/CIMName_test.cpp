// SPDX-License-Identifier: MIT
#include <vector>

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/InternalException.h>

#include "tests/pegasus/model/recorded.h"

using namespace Pegasus;

namespace {

TEST(CIMName, IsNullWithoutAText) {
    {
        ROW("name-001");
        EXPECT_TRUE(CIMName().isNull());
        EXPECT_EQ(CIMName().getString(), "");
    }
    {
        ROW("name-007");
        EXPECT_TRUE(CIMName() == CIMName());
    }
    {
        ROW("name-008");
        EXPECT_FALSE(CIMName() == CIMName("x"));
    }
    {
        ROW("name-035");
        CIMName name("good");
        name.clear();
        EXPECT_TRUE(name.isNull());
    }
}

TEST(CIMName, IgnoresCaseButKeepsIt) {
    {
        ROW("name-004");
        EXPECT_TRUE(CIMName("Abc") == CIMName("aBC"));
    }
    {
        ROW("name-005");
        EXPECT_TRUE(CIMName("Abc") == "abc");
    }
    {
        ROW("name-006");
        EXPECT_TRUE(CIMName("Abc").equal("ABC"));
    }
    {
        ROW("name-009");
        EXPECT_EQ(CIMName("aBc").getString(), "aBc");
    }
    {
        ROW("name-010");
        EXPECT_FALSE(CIMName("Abc") != "abc");
    }
}

TEST(CIMName, AcceptsLettersUnderscoresDigitsAndNonAscii) {
    const std::vector<modeltest::TextCase> cases{{"name-012", "_a"},
                                                 {"name-013", "A1"},
                                                 {"name-020", "\xC3\xA9t\xC3\xA9"},
                                                 {"name-025", "__Namespace"},
                                                 {"name-027", "a\xE2\x82\xAC"},
                                                 {"name-028", "CIM_X"}};
    for (const modeltest::TextCase& each : cases) {
        ROW(each.row);
        EXPECT_EQ(CIMName(each.text).getString(), each.text);
        EXPECT_TRUE(CIMName::legal(each.text));
    }
    EXPECT_TRUE(CIMName::legal("\xC2\x80"));
    EXPECT_TRUE(CIMName::legal("\xEF\xBF\xAF"));
}

TEST(CIMName, RejectsEverythingElse) {
    const std::vector<modeltest::TextCase> cases{
        {"name-002", ""},    {"name-014", "1a"},  {"name-015", "a b"}, {"name-016", "a-b"},
        {"name-017", "a.b"}, {"name-018", "a:b"}, {"name-019", "a/b"}, {"name-022", "a\""},
        {"name-023", " a"},  {"name-026", "a$"},  {"name-029", "-"},   {"name-030", "0"}};
    for (const modeltest::TextCase& each : cases) {
        ROW(each.row);
        EXPECT_THROWS(CIMName(each.text), InvalidNameException,
                      std::string("The CIM name is not valid: ") + each.text);
    }
    {
        ROW("name-003");
        EXPECT_THROWS(CIMName(String()), InvalidNameException, "The CIM name is not valid: ");
    }
    {
        ROW("name-021");
        EXPECT_THROWS(CIMName("a\xE9"), Exception,
                      "The byte sequence starting at index 1 is not valid UTF-8 encoding: a 0xE9");
    }
    {
        ROW("name-032");
        EXPECT_FALSE(CIMName::legal("1a"));
    }
    {
        ROW("name-033");
        EXPECT_FALSE(CIMName::legal(""));
    }
    EXPECT_FALSE(CIMName::legal("\xEF\xBF\xB0"));
    for (const char* const text : {"a@", "a[", "a`", "a{", "a\x7F", "@", "[", "`", "{"}) {
        EXPECT_FALSE(CIMName::legal(text)) << text;
    }
}

TEST(CIMName, ThrowsForANullPointer) {
    EXPECT_THROWS(CIMName(static_cast<const char*>(nullptr)), NullPointer, "null pointer");
}

TEST(CIMName, KeepsTheOldNameWhenTheNewOneIsBad) {
    ROW("name-034");
    CIMName name("good");
    EXPECT_THROWS(name = String("bad name"), InvalidNameException,
                  "The CIM name is not valid: bad name");
    EXPECT_EQ(name.getString(), "good");
}

TEST(CIMNamespaceName, IgnoresCaseAndALeadingSlash) {
    {
        ROW("namespace-001");
        EXPECT_TRUE(CIMNamespaceName().isNull());
    }
    {
        ROW("namespace-002");
        EXPECT_TRUE(CIMNamespaceName("root/CIMv2") == CIMNamespaceName("ROOT/cimv2"));
        EXPECT_FALSE(CIMNamespaceName("root/CIMv2") != CIMNamespaceName("ROOT/cimv2"));
    }
    {
        ROW("namespace-020");
        EXPECT_TRUE(CIMNamespaceName("/root/x") == CIMNamespaceName("root/x"));
    }
    CIMNamespaceName name("root");
    EXPECT_FALSE(name == CIMNamespaceName());
    name.clear();
    EXPECT_TRUE(name.isNull());
}

TEST(CIMNamespaceName, AcceptsNamesSeparatedBySlashes) {
    const std::vector<std::vector<const char*>> cases{
        {"namespace-004", "root", "root"},
        {"namespace-005", "root/cimv2", "root/cimv2"},
        {"namespace-006", "/root/cimv2", "root/cimv2"},
        {"namespace-016", "root/\xC3\xA9", "root/\xC3\xA9"}};
    for (const auto& each : cases) {
        ROW(each[0]);
        EXPECT_EQ(CIMNamespaceName(each[1]).getString(), each[2]);
    }
}

TEST(CIMNamespaceName, RejectsEverythingElse) {
    const std::vector<modeltest::TextCase> cases{
        {"namespace-007", "root/"},    {"namespace-008", "root//x"},
        {"namespace-009", "//root"},   {"namespace-010", "root\\cimv2"},
        {"namespace-011", "root/a b"}, {"namespace-012", "root/1x"},
        {"namespace-013", ""},         {"namespace-014", "root:x"},
        {"namespace-015", "/"},        {"namespace-017", "a-b"},
        {"namespace-018", "root/x.y"}, {"namespace-019", "//host/root"}};
    for (const modeltest::TextCase& each : cases) {
        ROW(each.row);
        EXPECT_THROWS(CIMNamespaceName(each.text), InvalidNamespaceNameException,
                      std::string("invalid CIM namespace name: ") + each.text);
    }
    ROW("namespace-021");
    EXPECT_THROWS(CIMNamespaceName(static_cast<const char*>(nullptr)), NullPointer, "null pointer");
}

}  // namespace
