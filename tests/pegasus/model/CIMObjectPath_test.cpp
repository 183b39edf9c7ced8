// SPDX-License-Identifier: MIT
#include <vector>

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::arrayOf;
using modeltest::describe;
using modeltest::quoted;
using modeltest::utf8;
using namespace Pegasus;

namespace {

using K = CIMKeyBinding;
using Keys = Array<K>;

Keys keysOf(std::initializer_list<K> keys) {
    return arrayOf(keys);
}

K stringKey(const char* name, const char* value) {
    return {name, value, K::STRING};
}

/// A path of these parts; empty ones are absent.
CIMObjectPath path(const char* host, const char* nameSpace, const char* className,
                   const Keys& keys = Keys()) {
    return {host, *nameSpace == '\0' ? CIMNamespaceName() : CIMNamespaceName(nameSpace), className,
            keys};
}

std::string textOfKey(const char* value, K::Type type = K::STRING) {
    return utf8(path("", "", "K", keysOf({K("s", value, type)})).toString());
}

TEST(CIMObjectPath, IsMadeFromParts) {
    {
        ROW("path-001");
        EXPECT_EQ(describe(CIMObjectPath()), R"(host "" ns null class null keys [])");
        EXPECT_EQ(CIMObjectPath().toString(), "");
    }
    {
        ROW("path-002");
        EXPECT_EQ(path("", "", "C").toString(), "C");
    }
    {
        ROW("path-003");
        EXPECT_EQ(path("", "root/x", "C").toString(), "root/x:C");
    }
    {
        ROW("path-005");
        EXPECT_EQ(path("h", "", "C").toString(), "//h/:C");
    }
    {
        ROW("path-006");
        EXPECT_EQ(path("h:5988", "root/x", "C").toString(), "//h:5988/root/x:C");
    }
    {
        ROW("path-127");
        CIMObjectPath cleared = path("h", "root/x", "C", keysOf({stringKey("k", "v")}));
        cleared.clear();
        EXPECT_EQ(describe(cleared), R"(host "" ns null class null keys [])");
    }
}

TEST(CIMObjectPath, SortsItsKeys) {
    {
        ROW("path-007");
        const Keys keys = keysOf({stringKey("b", "1"), stringKey("a", "2"), stringKey("C", "3")});
        EXPECT_EQ(describe(path("", "", "K", keys).getKeyBindings()),
                  R"(["a" STRING "2", "b" STRING "1", "C" STRING "3"])");
    }
    {
        ROW("path-008");
        const Keys keys = keysOf({stringKey("Z", "1"), stringKey("a", "2"), stringKey("M", "3")});
        EXPECT_EQ(path("", "", "K", keys).toString(), R"(K.a="2",M="3",Z="1")");
    }
    {
        ROW("path-009");
        const Keys keys = keysOf({stringKey("a", "1"), stringKey("A", "2")});
        EXPECT_EQ(describe(path("", "", "K", keys).getKeyBindings()),
                  R"(["a" STRING "1", "A" STRING "2"])");
    }
    {
        ROW("path-010");
        CIMObjectPath changed = path("", "", "K");
        changed.setKeyBindings(keysOf({stringKey("b", "1"), stringKey("a", "2")}));
        EXPECT_EQ(describe(changed.getKeyBindings()), R"(["a" STRING "2", "b" STRING "1"])");
    }
    {
        ROW("path-012");
        Keys keys = keysOf({stringKey("b", "1"), stringKey("a", "2")});
        path("", "", "K", keys);
        EXPECT_EQ(keys[0].getName().getString(), "a");
    }
}

TEST(CIMObjectPath, DoesNotWriteSortedKeys) {
    const Keys keys = keysOf({stringKey("a", "1"), stringKey("b", "2")});
    const CIMObjectPath made = path("", "", "K", keys);
    EXPECT_EQ(made.getKeyBindings().getData(), keys.getData());
}

TEST(CIMObjectPath, WritesKeysByTheirType) {
    {
        ROW("path-013");
        const Keys keys =
            keysOf({stringKey("s", "v"), K("n", "5", K::NUMERIC), K("b", "TRUE", K::BOOLEAN)});
        EXPECT_EQ(path("", "", "K", keys).toString(), R"(K.b=TRUE,n=5,s="v")");
    }
    const std::vector<std::vector<const char*>> cases{
        {"path-014", R"(a"b)", R"(K.s="a\"b")"},
        {"path-015", R"(a\b)", R"(K.s="a\\b")"},
        {"path-016", R"(\")", R"(K.s="\\\"")"},
        {"path-017", "\xC3\xA9\n\t", "K.s=\"\xC3\xA9\n\t\""},
        {"path-018", "", R"(K.s="")"},
        {"path-019", "a,b=c", R"(K.s="a,b=c")"}};
    for (const auto& each : cases) {
        ROW(each[0]);
        EXPECT_EQ(textOfKey(each[1]), each[2]);
    }
    {
        ROW("path-020");
        const Keys keys = keysOf({K("ref", "C.k=\"v\"", K::REFERENCE)});
        EXPECT_EQ(path("", "", "A", keys).toString(), R"(A.ref="C.k=\"v\"")");
    }
    {
        ROW("path-021");
        const CIMObjectPath target(String("//h/root/x:C.k=\"v\""));
        const Keys keys = keysOf({K("ref", CIMValue(target))});
        EXPECT_EQ(path("", "", "A", keys).toString(), R"(A.ref="//h/root/x:C.k=\"v\"")");
    }
}

TEST(CIMObjectPath, ReadsAStringThatIsAPathWithKeysAsAReference) {
    struct Case {
        const char* row;
        const char* value;
        const char* keysReadBack;
    };
    for (const Case& each :
         {Case{"path-022", R"(C.k="v")", R"(["s" REFERENCE "C.k=\"v\""])"},
          {"path-023", "a=b", R"(["s" STRING "a=b"])"},
          {"path-024", "C.k=1", R"(["s" REFERENCE "C.k=1"])"},
          {"path-025", "x.y=", R"(["s" STRING "x.y="])"},
          {"path-026", "x.y", R"(["s" STRING "x.y"])"},
          {"path-027", R"(/dev/sda.k="v")", R"(["s" STRING "/dev/sda.k=\"v\""])"},
          {"path-028", "root/x:C", R"(["s" STRING "root/x:C"])"}}) {
        ROW(each.row);
        const CIMObjectPath made = path("", "", "A", keysOf({stringKey("s", each.value)}));
        EXPECT_EQ(describe(CIMObjectPath(made.toString()).getKeyBindings()), each.keysReadBack);
    }
    {
        ROW("path-022");
        EXPECT_EQ(path("", "", "A", keysOf({stringKey("s", R"(C.k="v")")})).toString(),
                  R"(A.s="C.k=\"v\"")");
    }
    {
        ROW("path-029");
        const CIMObjectPath inner = path("", "", "C", keysOf({stringKey("k", R"(v"w)")}));
        const CIMObjectPath middle =
            path("", "", "A", keysOf({K("r", inner.toString(), K::REFERENCE)}));
        const CIMObjectPath outer =
            path("", "", "AA", keysOf({K("rr", middle.toString(), K::REFERENCE)}));
        EXPECT_EQ(quoted(outer.toString()),
                  R"("AA.rr=\"A.r=\\\"C.k=\\\\\\\"v\\\\\\\\\\\\\\\"w\\\\\\\"\\\"\"")");
        EXPECT_TRUE(CIMObjectPath(outer.toString()) == outer);
    }
}

TEST(CIMObjectPath, ReadsText) {
    struct Case {
        const char* row;
        const char* text;
        const char* parts;
        const char* toString;
    };
    for (const Case& each : {
             Case{"path-030", "C", R"(host "" ns null class "C" keys [])", "C"},
             {"path-032", "C.k=5", R"(host "" ns null class "C" keys ["k" NUMERIC "5"])", "C.k=5"},
             {"path-033", "C.k=-5", R"(host "" ns null class "C" keys ["k" NUMERIC "-5"])",
              "C.k=-5"},
             {"path-034", "C.k=TRUE", R"(host "" ns null class "C" keys ["k" BOOLEAN "TRUE"])",
              "C.k=TRUE"},
             {"path-035", "C.k=true", R"(host "" ns null class "C" keys ["k" BOOLEAN "TRUE"])",
              "C.k=TRUE"},
             {"path-036", "C.k=False", R"(host "" ns null class "C" keys ["k" BOOLEAN "FALSE"])",
              "C.k=FALSE"},
             {"path-037", "C.b=1,a=2",
              R"(host "" ns null class "C" keys ["a" NUMERIC "2", "b" NUMERIC "1"])", "C.a=2,b=1"},
             {"path-038", R"(root/x:C.k="v")",
              R"(host "" ns "root/x" class "C" keys ["k" STRING "v"])", R"(root/x:C.k="v")"},
             {"path-039", R"(//h/root/x:C.k="v")",
              R"(host "h" ns "root/x" class "C" keys ["k" STRING "v"])", R"(//h/root/x:C.k="v")"},
             {"path-040", "//h:5988/root/x:C", R"(host "h:5988" ns "root/x" class "C" keys [])",
              "//h:5988/root/x:C"},
             {"path-042", "/root/x:C", R"(host "" ns "root/x" class "C" keys [])", "root/x:C"},
             {"path-043", "root:C", R"(host "" ns "root" class "C" keys [])", "root:C"},
             {"path-046", R"(C.k="a\"b")", R"(host "" ns null class "C" keys ["k" STRING "a\"b"])",
              R"(C.k="a\"b")"},
             {"path-047", R"(C.k="a\\b")", R"(host "" ns null class "C" keys ["k" STRING "a\\b"])",
              R"(C.k="a\\b")"},
             {"path-048", R"(C.k="a,b")", R"(host "" ns null class "C" keys ["k" STRING "a,b"])",
              R"(C.k="a,b")"},
             {"path-049", R"(C.k="")", R"(host "" ns null class "C" keys ["k" STRING ""])",
              R"(C.k="")"},
             {"path-050", R"(C.k="v",j="w")",
              R"(host "" ns null class "C" keys ["j" STRING "w", "k" STRING "v"])",
              R"(C.j="w",k="v")"},
             {"path-052", "C.k=0x1F", R"(host "" ns null class "C" keys ["k" NUMERIC "0x1F"])",
              "C.k=0x1F"},
             {"path-061", "C.k=\"\xC3\xA9\"",
              "host \"\" ns null class \"C\" keys [\"k\" STRING \"\xC3\xA9\"]", "C.k=\"\xC3\xA9\""},
             {"path-063", "C.", R"(host "" ns null class "C" keys [])", "C"},
             {"path-072", R"(C.k="v",)", R"(host "" ns null class "C" keys ["k" STRING "v"])",
              R"(C.k="v")"},
             {"path-085", "C.k=1,k=2",
              R"(host "" ns null class "C" keys ["k" NUMERIC "1", "k" NUMERIC "2"])", "C.k=1,k=2"},
             {"", "C.k=\"a:b.c\"", R"(host "" ns null class "C" keys ["k" STRING "a:b.c"])",
              "C.k=\"a:b.c\""},
         }) {
        ROW(each.row);
        const CIMObjectPath read{String(each.text)};
        EXPECT_EQ(describe(read), each.parts);
        EXPECT_EQ(read.toString(), each.toString);
    }
}

TEST(CIMObjectPath, SaysWhyATextIsNoPath) {
    struct Case {
        const char* row;
        const char* text;
        const char* reason;
    };
    for (const Case& each : {
             Case{"path-041", "//user:pw@h/root/x:C", "invalid hostname"},
             {"path-044", ":C", "invalid namespace name"},
             {"path-045", "//h/C", "host specified, missing namespace"},
             {"path-051", "C.k=@", "invalid key-value pair, invalid number value @"},
             {"path-053", "C.k=1.5", "invalid key-value pair, invalid number value 1.5"},
             {"path-054", "C.k=1e3", "invalid key-value pair, invalid number value 1e3"},
             {"path-055", "C.k=+5", "invalid key-value pair, invalid number value +5"},
             {"path-056", "C.k=007", "invalid key-value pair, invalid number value 007"},
             {"path-057", "C.k=1x", "invalid key-value pair, invalid number value 1x"},
             {"path-058", "C.k='x'", "invalid key-value pair, invalid number value 'x'"},
             {"path-059", "http://h/root/x:C", "class name //h/root/x:C not a legal CIM name"},
             {"path-060", "https://h:5989/root/x:C.k=1",
              "class name //h:5989/root/x:C not a legal CIM name"},
             {"path-062", "", "class name  not a legal CIM name"},
             {"path-064", "C.k", "invalid key-value pair, missing equal sign"},
             {"path-065", "C.k=", "invalid key-value pair, invalid number value "},
             {"path-066", "C.=\"v\"", "invalid key-value pair, invalid key name:"},
             {"path-067", ".k=\"v\"", "class name  not a legal CIM name"},
             {"path-068", "C.k=v", "invalid key-value pair, invalid number value v"},
             {"path-070", "C.k=v\"", "invalid key-value pair, invalid number value v\""},
             {"path-071", "C.k=\"v\"x",
              "invalid key-value pair, next key-value pair has to start with comma"},
             {"path-074", "C.k=\"v\" ,j=1",
              "invalid key-value pair, next key-value pair has to start with comma"},
             {"path-075", " C", "class name  C not a legal CIM name"},
             {"path-077", "C k=1", "class name C k=1 not a legal CIM name"},
             {"path-078", "1C.k=1", "class name 1C not a legal CIM name"},
             {"path-079", "//h", "missing slash after hostname"},
             {"path-080", "//h/", "host specified, missing namespace"},
             {"path-081", "//h/root/x", "host specified, missing namespace"},
             {"path-082", "root/x:", "class name  not a legal CIM name"},
             {"path-083", "root//x:C", "invalid namespace name"},
             {"path-084", "root/x/C.k=1", "class name root/x/C not a legal CIM name"},
             {"path-088", "//h/root/x:C.k=\"v\"//",
              "invalid key-value pair, next key-value pair has to start with comma"},
             {"path-089", "C=@", "class name C=@ not a legal CIM name"},
         }) {
        ROW(each.row);
        EXPECT_THROWS(CIMObjectPath(String(each.text)), MalformedObjectNameException,
                      std::string("malformed object name: ") + each.text + ", reason:\"" +
                          each.reason + "\"");
    }
}

TEST(CIMObjectPath, ComparesAllItsParts) {
    const Keys k = keysOf({stringKey("k", "v")});
    struct Case {
        const char* row;
        CIMObjectPath x;
        CIMObjectPath y;
        bool areEqual;
    };
    const std::vector<Case> cases{
        {"path-090", path("h", "root/x", "C", k), path("h", "root/x", "C", k), true},
        {"path-091", path("h", "root/x", "C", k), path("", "root/x", "C", k), false},
        {"path-092", path("h1", "root/x", "C", k), path("h2", "root/x", "C", k), false},
        {"path-093", path("H", "root/x", "C", k), path("h", "root/x", "C", k), true},
        {"path-094", path("", "root/x", "C", k), path("", "", "C", k), false},
        {"path-095", path("", "root/x", "C", k), path("", "root/y", "C", k), false},
        {"path-097", path("", "root/x", "C", k), path("", "root/x", "c", k), true},
        {"path-098", path("", "root/x", "C", k), path("", "root/x", "D", k), false},
        {"path-099", path("", "", "C", k), path("", "", "C", keysOf({stringKey("K", "v")})), true},
        {"path-100", path("", "", "C", k), path("", "", "C", keysOf({stringKey("k", "V")})), false},
        {"path-101", path("", "", "C", keysOf({stringKey("a", "1"), stringKey("b", "2")})),
         path("", "", "C", keysOf({stringKey("b", "2"), stringKey("a", "1")})), true},
        {"path-104", path("", "", "C", k), path("", "", "C"), false},
        {"path-105", path("", "", "C", k),
         path("", "", "C", keysOf({stringKey("k", "v"), stringKey("l", "w")})), false},
        {"path-106", CIMObjectPath(), CIMObjectPath(), true},
        {"path-107", path("", "", "C", keysOf({stringKey("a", "1"), stringKey("B", "2")})),
         path("", "", "C", keysOf({stringKey("b", "2"), stringKey("A", "1")})), true},
    };
    for (const Case& each : cases) {
        ROW(each.row);
        EXPECT_EQ(each.x == each.y, each.areEqual);
        EXPECT_EQ(each.x.identical(each.y), each.areEqual);
        EXPECT_EQ(each.x != each.y, !each.areEqual);
        EXPECT_EQ(each.y == each.x, each.areEqual);
    }
}

TEST(CIMObjectPath, ChangesItsParts) {
    {
        ROW("path-109");
        CIMObjectPath changed = path("", "", "C", keysOf({stringKey("k", "v")}));
        changed.setHost("hh");
        EXPECT_EQ(changed.toString(), R"(//hh/:C.k="v")");
        EXPECT_EQ(changed.getHost(), "hh");
    }
    {
        ROW("path-110");
        CIMObjectPath changed = path("", "root/x", "C");
        changed.setNameSpace(CIMNamespaceName());
        EXPECT_EQ(changed.toString(), "C");
    }
    {
        ROW("path-126");
        CIMObjectPath changed(String("C.k=1"));
        changed.setClassName("D");
        EXPECT_EQ(changed.toString(), "D.k=1");
    }
    {
        ROW("path-128");
        const CIMObjectPath original = path("", "root/x", "C");
        CIMObjectPath copy(original);
        copy.setHost("hh");
        EXPECT_EQ(original.toString(), "root/x:C");
        EXPECT_EQ(copy.toString(), "//hh/root/x:C");
    }
    {
        ROW("path-129");
        CIMObjectPath changed;
        changed.set(String("C.b=1,a=2"));
        EXPECT_EQ(describe(changed.getKeyBindings()), R"(["a" NUMERIC "2", "b" NUMERIC "1"])");
    }
    CIMObjectPath assigned;
    assigned = String("root/x:C.k=1");
    EXPECT_EQ(assigned.toString(), "root/x:C.k=1");
    assigned.set("h", "root/y", "D");
    EXPECT_EQ(assigned.toString(), "//h/root/y:D");
}

TEST(CIMObjectPath, HasThePartsBeforeTheErrorWhenATextIsNoPath) {
    ROW("path-130");
    CIMObjectPath changed(String("//h/root/x:D.j=1"));
    EXPECT_THROWS(changed.set(String("C.k=")), MalformedObjectNameException,
                  "malformed object name: C.k=, reason:\"invalid key-value pair, invalid number "
                  "value \"");
    EXPECT_EQ(changed.toString(), "C");
}

TEST(CIMObjectPath, DoesNotChangeItsCopiesWhenATextIsNoPath) {
    CIMObjectPath changed(String("D.j=1"));
    const CIMObjectPath copy(changed);
    EXPECT_THROW(changed.set(String("C.k=")), MalformedObjectNameException);
    EXPECT_EQ(copy.toString(), "D.j=1");
}

TEST(CIMObjectPath, ChecksItsHost) {
    const std::vector<modeltest::TextCase> good{
        {"path-111", "h"},      {"path-112", "h.example.org"},
        {"path-113", "h:5988"}, {"path-114", "10.0.0.1"},
        {"path-115", "[::1]"},  {"path-116", "[::1]:5988"},
        {"path-119", "h:"},     {"path-121", "h_1"}};
    for (const modeltest::TextCase& each : good) {
        ROW(each.row);
        CIMObjectPath changed = path("", "root/x", "C");
        changed.setHost(each.text);
        EXPECT_EQ(changed.toString(), (std::string("//") + each.text + "/root/x:C").c_str());
    }
    const std::vector<modeltest::TextCase> bad{{"path-117", "::1"},       {"path-118", "bad host"},
                                               {"path-122", "-h"},        {"path-123", "h."},
                                               {"path-124", "300.1.1.1"}, {"path-125", "1.2.3"}};
    for (const modeltest::TextCase& each : bad) {
        ROW(each.row);
        CIMObjectPath changed = path("old", "root/x", "C");
        const std::string fault =
            std::string("malformed object name: ") + each.text + ", reason:\"invalid hostname\"";
        EXPECT_THROWS(changed.setHost(each.text), MalformedObjectNameException, fault);
        EXPECT_EQ(changed.getHost(), "old");
        EXPECT_THROWS(path(each.text, "", "C"), MalformedObjectNameException, fault);
    }
    CIMObjectPath changed = path("old", "root/x", "C");
    changed.setHost("");
    EXPECT_EQ(changed.toString(), "root/x:C");
}

}  // namespace
