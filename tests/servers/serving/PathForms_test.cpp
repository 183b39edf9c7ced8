// SPDX-License-Identifier: MIT
#include "servers/serving/PathForms.h"

#include <gtest/gtest.h>

using namespace Pegasus;

namespace {

const char* const resultText = R"(T_Result.ExecutionID="usb1",DiagnosticName="d")";

CIMObjectPath associationWithKey(const String& value, CIMKeyBinding::Type type) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("Result"), value, type));
    return CIMObjectPath(String(), CIMNamespaceName(), CIMName("T_Link"), keys);
}

CIMParamValue parameter(const CIMValue& value) {
    return CIMParamValue("P", value, true);
}

CIMObjectPath pathIn(const Array<CIMParamValue>& parameters) {
    CIMObjectPath path;
    parameters[0].getValue().get(path);
    return path;
}

TEST(PathForms, LocationIsTakenAwayAndKeysStay) {
    const CIMObjectPath path("//host/root/x:T_Item.Id=\"a\"");
    EXPECT_EQ(serving::withoutLocation(path).toString(), "T_Item.Id=\"a\"");
}

TEST(PathForms, SpellingsOfOneAssociationAgree) {
    const CIMObjectPath stored = associationWithKey(resultText, CIMKeyBinding::STRING);
    const char* const spellings[] = {
        resultText,
        R"(root/x:T_Result.ExecutionID="usb1",DiagnosticName="d")",
        R"(//host/root/x:T_Result.ExecutionID="usb1",DiagnosticName="d")",
        R"(T_Result.DiagnosticName="d",ExecutionID="usb1")",
        R"(t_result.executionid="usb1",diagnosticname="d")",
    };
    for (const char* spelling : spellings) {
        for (const auto type : {CIMKeyBinding::STRING, CIMKeyBinding::REFERENCE}) {
            EXPECT_TRUE(serving::canonicalPath(stored) ==
                        serving::canonicalPath(associationWithKey(spelling, type)))
                << spelling;
        }
    }
}

TEST(PathForms, KeyValuesOfInnerPathsStillCount) {
    const CIMObjectPath one = associationWithKey("T_Result.Id=\"a\"", CIMKeyBinding::STRING);
    const CIMObjectPath other = associationWithKey("T_Result.Id=\"A\"", CIMKeyBinding::STRING);
    EXPECT_FALSE(serving::canonicalPath(one) == serving::canonicalPath(other));
}

TEST(PathForms, PathsInsidePathsAreCanonicalToo) {
    const char* const inner = R"(T_Link.End="T_Item.Id=\"a\"")";
    const char* const located = R"(T_Link.End="root/x:T_Item.Id=\"a\"")";
    EXPECT_TRUE(serving::canonicalPath(associationWithKey(inner, CIMKeyBinding::REFERENCE)) ==
                serving::canonicalPath(associationWithKey(located, CIMKeyBinding::REFERENCE)));
}

// A link whose end is a link, and so on; `innermost` is the item at the end of them all.
CIMObjectPath linksAround(const char* innermost, int levels) {
    String text(innermost);
    for (int level = 1; level < levels; ++level) {
        text = associationWithKey(text, CIMKeyBinding::REFERENCE).toString();
    }
    return associationWithKey(text, CIMKeyBinding::REFERENCE);
}

TEST(PathForms, PathsAreFollowedToTheEighthLevelAndNoFurther) {
    const auto sameObject = [](int levels) {
        return serving::canonicalPath(linksAround("T_Item.Id=1", levels)) ==
               serving::canonicalPath(linksAround("root/x:T_Item.Id=1", levels));
    };
    for (int levels = 1; levels <= 8; ++levels) {
        EXPECT_TRUE(sameObject(levels)) << levels;
    }
    EXPECT_FALSE(sameObject(9));
}

TEST(PathForms, TextThatIsNoPathStaysAsItIs) {
    for (const char* text : {"plain", "a=b", "=", "T_Item.", "//", "x.y=\"unclosed"}) {
        const CIMObjectPath path = associationWithKey(text, CIMKeyBinding::STRING);
        EXPECT_FALSE(serving::hasPathKey(path)) << text;
        EXPECT_TRUE(serving::canonicalPath(path) == path) << text;
    }
}

TEST(PathForms, PathKeysAreFoundInStringsAndReferences) {
    EXPECT_TRUE(serving::hasPathKey(associationWithKey(resultText, CIMKeyBinding::STRING)));
    EXPECT_TRUE(serving::hasPathKey(associationWithKey(resultText, CIMKeyBinding::REFERENCE)));
    EXPECT_FALSE(serving::hasPathKey(CIMObjectPath("T_Item.Id=1")));
}

TEST(PathForms, BareReferenceTakesTheNamespaceOfTheRequest) {
    const CIMObjectPath given("T_Item.Id=\"a\"");
    Array<CIMParamValue> parameters;
    parameters.append(parameter(CIMValue(given)));
    const auto filled =
        serving::withNamespaceInReferences(parameters, CIMNamespaceName("root/kavex"));
    EXPECT_EQ(pathIn(filled).toString(), "root/kavex:T_Item.Id=\"a\"");
    EXPECT_EQ(filled[0].getParameterName(), "P");
    EXPECT_TRUE(filled[0].isTyped());
}

TEST(PathForms, GivenParametersStayAsTheyAre) {
    const CIMObjectPath given("T_Item.Id=\"a\"");
    Array<CIMParamValue> parameters;
    parameters.append(parameter(CIMValue(given)));
    serving::withNamespaceInReferences(parameters, CIMNamespaceName("root/kavex"));
    EXPECT_EQ(given.toString(), "T_Item.Id=\"a\"");
    EXPECT_EQ(pathIn(parameters).toString(), "T_Item.Id=\"a\"");
}

TEST(PathForms, ReferenceThatNamesItsPlaceKeepsIt) {
    for (const char* text : {"root/other:T_Item.Id=\"a\"", "//host/root/other:T_Item.Id=\"a\""}) {
        Array<CIMParamValue> parameters;
        parameters.append(parameter(CIMValue(CIMObjectPath(text))));
        EXPECT_EQ(
            pathIn(serving::withNamespaceInReferences(parameters, CIMNamespaceName("root/kavex")))
                .toString(),
            text);
    }
}

TEST(PathForms, ReferenceThatNamesItsHostAloneKeepsIt) {
    CIMObjectPath given("T_Item.Id=1");
    given.setHost("host");
    Array<CIMObjectPath> paths;
    paths.append(given);
    Array<CIMParamValue> parameters;
    parameters.append(parameter(CIMValue(given)));
    parameters.append(parameter(CIMValue(paths)));
    const auto filled =
        serving::withNamespaceInReferences(parameters, CIMNamespaceName("root/kavex"));
    const CIMObjectPath single = pathIn(filled);
    EXPECT_EQ(single.getHost(), "host");
    EXPECT_TRUE(single.getNameSpace().isNull());
    filled[1].getValue().get(paths);
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_EQ(paths[0].getHost(), "host");
    EXPECT_TRUE(paths[0].getNameSpace().isNull());
}

TEST(PathForms, EveryBareElementOfAnArrayIsCompleted) {
    Array<CIMObjectPath> paths;
    paths.append(CIMObjectPath("T_Item.Id=1"));
    paths.append(CIMObjectPath("root/other:T_Item.Id=2"));
    Array<CIMParamValue> parameters;
    parameters.append(parameter(CIMValue(paths)));
    const auto filled =
        serving::withNamespaceInReferences(parameters, CIMNamespaceName("root/kavex"));
    Array<CIMObjectPath> completed;
    filled[0].getValue().get(completed);
    ASSERT_EQ(completed.size(), 2U);
    EXPECT_EQ(completed[0].toString(), "root/kavex:T_Item.Id=1");
    EXPECT_EQ(completed[1].toString(), "root/other:T_Item.Id=2");
}

TEST(PathForms, OtherParametersPassUnchanged) {
    Array<CIMParamValue> parameters;
    parameters.append(parameter(CIMValue(String("T_Item.Id=1"))));
    parameters.append(CIMParamValue("N", CIMValue(CIMTYPE_REFERENCE, false), false));
    parameters.append(CIMParamValue("U", CIMValue(Uint32(5)), false));
    const auto filled =
        serving::withNamespaceInReferences(parameters, CIMNamespaceName("root/kavex"));
    ASSERT_EQ(filled.size(), 3U);
    EXPECT_TRUE(filled[0].getValue() == CIMValue(String("T_Item.Id=1")));
    EXPECT_TRUE(filled[1].getValue().isNull());
    EXPECT_EQ(filled[1].getValue().getType(), CIMTYPE_REFERENCE);
    EXPECT_FALSE(filled[1].isTyped());
    EXPECT_TRUE(filled[2].getValue() == CIMValue(Uint32(5)));
}

}  // namespace
