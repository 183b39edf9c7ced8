// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagnosticResultBuilder.h"

#include <stdexcept>

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Provider/ProviderExceptions.h>
#include <gtest/gtest.h>

#include "diag/InstanceProperties.h"
#include "diag/PathKeys.h"
#include "tests/support/KnownTexts.h"
#include "tests/support/LogFolder.h"
#include "tests/support/Parameters.h"
#include "tests/support/ResultTable.h"
#include "tests/support/TestServer.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

constexpr Uint32 notFound = 77777777;

// Builds results whose path agrees with their properties; building can be made to fail.
class NamedResults : public ResultTable {
public:
    void buildTestResult(CIMOMHandle, String diagnosticName, String executionId) override {
        ++built;
        if (breaks) {
            throw std::runtime_error("broken");
        }
        CIMInstance instance("Result");
        addProperty(instance, "DiagnosticName", CIMValue(diagnosticName));
        addProperty(instance, "ExecutionID", CIMValue(executionId));
        buildDefaultResultProperties(instance);
        Array<CIMKeyBinding> keys;
        keys.append(stringKey("DiagnosticName", diagnosticName));
        keys.append(stringKey("ExecutionID", executionId));
        appendTo(res_ref_inst, tablePath("Result", keys), instance);
    }

    int built = 0;
    bool breaks = false;
};

class ZorvaDiagnosticResultBuilder : public testing::Test {
protected:
    void build(const char* diagnosticName, const char* executionId) {
        results_.buildTestResult(CIMOMHandle(), diagnosticName, executionId);
    }

    Texts identities() {
        Texts all;
        for (Uint32 i = 0; i < ResultTable::entries().size(); ++i) {
            const CIMInstance& instance = ResultTable::entries()[i].second;
            all.push_back(text(propertyValueOf(instance, "DiagnosticName").toString()) + "/" +
                          text(propertyValueOf(instance, "ExecutionID").toString()));
        }
        return all;
    }

    void setState(const char* diagnosticName, const char* executionId, Uint16 state) {
        results_.setResultProperty(diagnosticName, executionId, "TestState", CIMValue(state));
    }

    std::string clear(const char* diagnosticName, const Array<CIMParamValue>& in) {
        return text(results_.clearResultElement(diagnosticName, in, out_));
    }

    LogFolder folder_;
    NamedResults results_;
    Array<CIMParamValue> out_;
};

// --- an empty table

TEST_F(ZorvaDiagnosticResultBuilder, EmptyTableEnumeratesNothing) {
    EXPECT_EQ(results_.enumResultInstances().size(), 0U);
    EXPECT_EQ(results_.enumResultReferences().size(), 0U);
}

TEST_F(ZorvaDiagnosticResultBuilder, EmptyTableHasIndex77777777) {
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb1"), notFound);
}

TEST_F(ZorvaDiagnosticResultBuilder, EmptyTableMakesGetABadReference) {
    EXPECT_EQ(thrownBy<BadReference>(
                  [&] { results_.getResultInstance(CIMObjectPath(String("Result"))); }),
              "bad reference: ZORVA_DiagnosticResultbuilder - Invalid Reference");
    EXPECT_EQ(folder_.take(), "before bad reference \nbad reference \n");
}

// --- the placeholder

TEST_F(ZorvaDiagnosticResultBuilder, PlaceholderPathDisagreesWithItsProperties) {
    ZORVA_DiagnosticResultBuilder().buildTestResult(CIMOMHandle(), "Test", "usb1");
    ASSERT_EQ(ResultTable::entries().size(), 1U);
    const Array<CIMKeyBinding> keys = ResultTable::entries()[0].first.getKeyBindings();
    Texts texts;
    for (Uint32 i = 0; i < keys.size(); ++i) {
        texts.push_back(text(keys[i].getName()) + "=" + text(keys[i].getValue()));
        EXPECT_EQ(keys[i].getType(), CIMKeyBinding::STRING);
    }
    // The object model keeps keys in the order of their names.
    EXPECT_EQ(texts, (Texts{"DiagnosticCreationClass=CIM_DiagnosticTest", "DiagnosticName=TestA",
                            "DiagSystemCreationClassName=PegasusSystem", "DiagSystemName=Zalt",
                            "ExecutionID=usb1"}));
    EXPECT_EQ(text(ResultTable::entries()[0].first.getClassName()), "CIM_DiagnosticResult");
}

TEST_F(ZorvaDiagnosticResultBuilder, PlaceholderPropertiesNameTheTest) {
    ZORVA_DiagnosticResultBuilder().buildTestResult(CIMOMHandle(), "Test", "usb1");
    const CIMInstance& instance = ResultTable::entries()[0].second;
    EXPECT_EQ(text(instance.getClassName()), "CIM_DiagnosticResult");
    Texts expected = {"DiagnosticName: string Test",
                      "DiagnosticCreationClassName: string CIM_DiagnosticTest",
                      "ExecutionID: string usb1", "DiagSystemName: string Zalt",
                      "DiagSystemCreationClassName: string CIM_System"};
    expected.insert(expected.end(), defaultResultProperties.begin(), defaultResultProperties.end());
    EXPECT_EQ(propertiesOf(instance), expected);
}

TEST_F(ZorvaDiagnosticResultBuilder, PlaceholderMakesNoCallsToTheServer) {
    const auto server = std::make_shared<TestServer>();
    ZORVA_DiagnosticResultBuilder().buildTestResult(CIMOMHandle(server), "Test", "usb1");
    EXPECT_TRUE(server->calls().empty());
}

TEST_F(ZorvaDiagnosticResultBuilder, DefaultPropertiesAreInOrderWithTheirTypes) {
    CIMInstance instance("Result");
    results_.buildDefaultResultProperties(instance);
    EXPECT_EQ(propertiesOf(instance), defaultResultProperties);
}

// --- identity and look-ups

TEST_F(ZorvaDiagnosticResultBuilder, SameNameWithAnotherExecutionIdIsAnotherResult) {
    build("Test", "usb1");
    build("Test", "usb2");
    build("Other", "usb1");
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb1"), 0U);
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb2"), 1U);
    EXPECT_EQ(results_.getRefInstIndex("Other", "usb1"), 2U);
}

TEST_F(ZorvaDiagnosticResultBuilder, EarlierOfTwoEqualResultsIsFound) {
    build("Other", "usb1");
    build("Test", "usb1");
    build("Test", "usb1");
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb1"), 1U);
}

TEST_F(ZorvaDiagnosticResultBuilder, IdentityIsCaseSensitive) {
    build("Test", "usb1");
    EXPECT_EQ(results_.getRefInstIndex("test", "usb1"), notFound);
    EXPECT_EQ(results_.getRefInstIndex("Test", "USB1"), notFound);
}

TEST_F(ZorvaDiagnosticResultBuilder, IndexFollowsEveryChangeOfTheTable) {
    build("Test", "usb1");
    build("Test", "usb2");
    build("Test", "usb3");
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb3"), 2U);
    clear("Test", elementParameter("usb1"));
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb3"), 1U);
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb1"), notFound);
    build("Test", "usb1");
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb1"), 2U);
    results_.checkForTestResult(CIMOMHandle(), "Test", "usb2", true);
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb3"), 0U);
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb1"), 1U);
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb2"), 2U);
    clear("Test", elementParameter("usb2"));
    EXPECT_EQ(results_.getRefInstIndex("Test", "usb2"), notFound);
}

TEST_F(ZorvaDiagnosticResultBuilder, ReferenceWithHostAndNamespaceFindsTheEntry) {
    build("Test", "usb1");
    const CIMObjectPath path(
        String("//h/root/x:Result.DiagnosticName=\"Test\",ExecutionID=\"usb1\""));
    const Array<CIMInstance> found = results_.getResultInstance(path);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(propertyText(found[0], "ExecutionID"), "string usb1");
    EXPECT_EQ(folder_.take(), "before bad reference \nreturn instance \n");
}

TEST_F(ZorvaDiagnosticResultBuilder, EnumerationsAreInOrderOfInsertion) {
    build("Test", "usb2");
    build("Test", "usb1");
    EXPECT_EQ(texts(results_.enumResultReferences()),
              (Texts{"Result.DiagnosticName=\"Test\",ExecutionID=\"usb2\"",
                     "Result.DiagnosticName=\"Test\",ExecutionID=\"usb1\""}));
    const Array<CIMInstance> instances = results_.enumResultInstances();
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(propertyText(instances[0], "ExecutionID"), "string usb2");
    EXPECT_EQ(text(instances[1].getPath()), "Result.DiagnosticName=\"Test\",ExecutionID=\"usb1\"");
}

TEST_F(ZorvaDiagnosticResultBuilder, AllBuildersShareOneTable) {
    build("Test", "usb1");
    ZORVA_DiagnosticResultBuilder other;
    EXPECT_EQ(other.getRefInstIndex("Test", "usb1"), 0U);
    EXPECT_EQ(text(other.getTestResultReference("Test", "usb1")),
              "Result.DiagnosticName=\"Test\",ExecutionID=\"usb1\"");
}

// --- properties

TEST_F(ZorvaDiagnosticResultBuilder, AbsentPropertyIsNamed) {
    build("Test", "usb1");
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { results_.getPropertyValue(0, "Other"); }),
              "no such property: Other");
    EXPECT_EQ(
        thrownBy<NoSuchProperty>([&] { results_.getResultProperty("Test", "usb1", "Other"); }),
        "no such property: Other");
}

TEST_F(ZorvaDiagnosticResultBuilder, IndexPastTheEndIsOutOfBounds) {
    build("Test", "usb1");
    for (const Uint32 index : {1U, notFound}) {
        EXPECT_EQ(thrownBy<IndexOutOfBoundsException>(
                      [&] { results_.getPropertyValue(index, "TestState"); }),
                  "index out of bounds");
    }
}

TEST_F(ZorvaDiagnosticResultBuilder, AbsentResultIsOutOfBoundsForEveryOperation) {
    build("Test", "usb1");
    const std::string message = "index out of bounds";
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>(
                  [&] { results_.getTestResultReference("Test", "usb2"); }),
              message);
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>(
                  [&] { results_.getResultProperty("Test", "usb2", "TestState"); }),
              message);
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { setState("Test", "usb2", 7); }), message);
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>(
                  [&] { results_.setResultPropertyTestResults("Test", "usb2", "line"); }),
              message);
    EXPECT_EQ(identities(), Texts{"Test/usb1"});
}

TEST_F(ZorvaDiagnosticResultBuilder, EighteenPropertiesAreWritable) {
    build("Test", "usb1");
    Array<String> texts;
    texts.append("5");
    Array<Uint16> numbers16;
    numbers16.append(3);
    Array<Uint32> numbers32;
    numbers32.append(9);
    const CIMValue time(CIMDateTime(String("20261120200000.000000+000")));
    const CIMValue yes(Boolean(true));
    const std::vector<std::pair<const char*, CIMValue>> writable = {
        {"TimeStamp", time},
        {"TestStartTime", time},
        {"TestCompletionTime", time},
        {"TestState", CIMValue(Uint16(2))},
        {"OtherStateDescription", CIMValue(String("x"))},
        {"PercentComplete", CIMValue(Uint8(50))},
        {"TestWarningLevel", CIMValue(Uint16(1))},
        {"ReportSoftErrors", yes},
        {"ReportStatusMessages", yes},
        {"PercentOfTestCoverage", CIMValue(Uint8(99))},
        {"QuickMode", yes},
        {"HaltOnError", yes},
        {"LoopControlParameter", CIMValue(texts)},
        {"LoopControl", CIMValue(numbers16)},
        {"OtherLoopControlDescription", CIMValue(String("y"))},
        {"ErrorCount", CIMValue(numbers32)},
        {"LoopsFailed", CIMValue(Uint32(1))},
        {"LoopsPassed", CIMValue(Uint32(2))}};
    EXPECT_EQ(writable.size(), 18U);
    for (const auto& property : writable) {
        results_.setResultProperty("Test", "usb1", property.first, property.second);
        EXPECT_EQ(results_.getResultProperty("Test", "usb1", property.first), property.second)
            << property.first;
    }
}

TEST_F(ZorvaDiagnosticResultBuilder, AllOtherPropertiesAreNotWritable) {
    build("Test", "usb1");
    const Texts before = propertiesOf(ResultTable::entries()[0].second);
    for (const char* name :
         {"ErrorCode", "TestResults", "IsPackage", "EstimatedTimeOfPerforming", "DiagnosticName",
          "DiagnosticCreationClassName", "ExecutionID", "DiagSystemName",
          "DiagSystemCreationClassName", "teststate", "Loopsfailed", "Other", ""}) {
        EXPECT_EQ(thrownBy<NotImplemented>([&] {
                      results_.setResultProperty("Test", "usb1", name, CIMValue(String("x")));
                  }),
                  "not implemented: ZORVA_DiagnosticResult property not writable")
            << name;
    }
    EXPECT_EQ(propertiesOf(ResultTable::entries()[0].second), before);
}

TEST_F(ZorvaDiagnosticResultBuilder, WritabilityIsCheckedBeforeTheResultIsSearched) {
    EXPECT_EQ(thrownBy<NotImplemented>(
                  [&] { results_.setResultProperty("Test", "usb1", "ErrorCode", CIMValue()); }),
              "not implemented: ZORVA_DiagnosticResult property not writable");
}

TEST_F(ZorvaDiagnosticResultBuilder, ValueOfAnotherTypeIsRejectedAndNothingChanges) {
    build("Test", "usb1");
    EXPECT_EQ(thrownBy<TypeMismatchException>([&] {
                  results_.setResultProperty("Test", "usb1", "QuickMode", CIMValue(String("x")));
              }),
              "type mismatch");
    EXPECT_EQ(propertyText(ResultTable::entries()[0].second, "QuickMode"), "boolean FALSE");
}

TEST_F(ZorvaDiagnosticResultBuilder, NullOfTheRightTypeIsStored) {
    build("Test", "usb1");
    results_.setResultProperty("Test", "usb1", "LoopControl", CIMValue(CIMTYPE_UINT16, true));
    EXPECT_EQ(propertyText(ResultTable::entries()[0].second, "LoopControl"), "uint16[] null");
}

TEST_F(ZorvaDiagnosticResultBuilder, PropertyThatTheResultLacksIsNamedWhenItIsSet) {
    CIMInstance bare("Result");
    addProperty(bare, "DiagnosticName", CIMValue(String("Test")));
    addProperty(bare, "ExecutionID", CIMValue(String("usb1")));
    appendTo(ResultTable::entries(), tablePath("Result", Array<CIMKeyBinding>()), bare);
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { setState("Test", "usb1", 2); }),
              "no such property: TestState");
    EXPECT_EQ(thrownBy<NoSuchProperty>(
                  [&] { results_.setResultPropertyTestResults("Test", "usb1", "a"); }),
              "no such property: TestResults");
}

// --- the report

TEST_F(ZorvaDiagnosticResultBuilder, ReportLinesAreAppendedInOrder) {
    build("Test", "usb1");
    results_.setResultPropertyTestResults("Test", "usb1", "a");
    results_.setResultPropertyTestResults("Test", "usb1", "b");
    EXPECT_EQ(lines(results_.getResultProperty("Test", "usb1", "TestResults")), (Texts{"a", "b"}));
}

TEST_F(ZorvaDiagnosticResultBuilder, ReportLinesAreUnchanged) {
    build("Test", "usb1");
    build("Test", "usb2");
    Texts expected;
    for (const char* line : {"", "  blanks  ", "Ger\xC3\xA4t", "a\nb"}) {
        results_.setResultPropertyTestResults("Test", "usb1", line);
        expected.emplace_back(line);
    }
    EXPECT_EQ(lines(results_.getResultProperty("Test", "usb1", "TestResults")), expected);
    EXPECT_EQ(lines(results_.getResultProperty("Test", "usb2", "TestResults")), Texts());
}

TEST_F(ZorvaDiagnosticResultBuilder, ReportLinesGoToTheResultOfTheirPair) {
    build("Test", "usb1");
    build("Test", "usb2");
    for (const char* const element : {"usb1", "usb2", "usb1"}) {
        results_.setResultPropertyTestResults("Test", element, element);
    }
    EXPECT_EQ(lines(results_.getResultProperty("Test", "usb1", "TestResults")),
              (Texts{"usb1", "usb1"}));
    EXPECT_EQ(lines(results_.getResultProperty("Test", "usb2", "TestResults")), Texts{"usb2"});
}

TEST_F(ZorvaDiagnosticResultBuilder, ReportLinesGoToTheResultThatReplacedAnother) {
    build("Test", "usb1");
    results_.setResultPropertyTestResults("Test", "usb1", "old");
    ASSERT_TRUE(results_.checkForTestResult(CIMOMHandle(), "Test", "usb1", true));
    results_.setResultPropertyTestResults("Test", "usb1", "new");
    EXPECT_EQ(lines(results_.getResultProperty("Test", "usb1", "TestResults")), Texts{"new"});
}

TEST_F(ZorvaDiagnosticResultBuilder, ReturnedReportDoesNotGrow) {
    build("Test", "usb1");
    results_.setResultPropertyTestResults("Test", "usb1", "a");
    const Array<CIMInstance> handedOut = results_.enumResultInstances();
    const CIMValue value = results_.getResultProperty("Test", "usb1", "TestResults");
    results_.setResultPropertyTestResults("Test", "usb1", "b");
    EXPECT_EQ(lines(propertyValueOf(handedOut[0], "TestResults")), Texts{"a"});
    EXPECT_EQ(lines(value), Texts{"a"});
}

// --- one result per test and element

TEST_F(ZorvaDiagnosticResultBuilder, CheckBuildsAMissingResult) {
    EXPECT_TRUE(results_.checkForTestResult(CIMOMHandle(), "Test", "usb1", false));
    EXPECT_EQ(identities(), Texts{"Test/usb1"});
    EXPECT_EQ(results_.built, 1);
}

TEST_F(ZorvaDiagnosticResultBuilder, CheckWithoutReplaceKeepsAResult) {
    build("Test", "usb1");
    setState("Test", "usb1", 2);
    EXPECT_TRUE(results_.checkForTestResult(CIMOMHandle(), "Test", "usb1", false));
    EXPECT_EQ(text(results_.getResultProperty("Test", "usb1", "TestState")), "uint16 2");
    EXPECT_EQ(results_.built, 1);
}

TEST_F(ZorvaDiagnosticResultBuilder, ReplaceOfAMissingResultBuildsOnceAndRemovesNothing) {
    build("Test", "usb2");
    results_.built = 0;
    EXPECT_TRUE(results_.checkForTestResult(CIMOMHandle(), "Test", "usb1", true));
    EXPECT_EQ(identities(), (Texts{"Test/usb2", "Test/usb1"}));
    EXPECT_EQ(results_.built, 1);
}

TEST_F(ZorvaDiagnosticResultBuilder, ReplacedResultHasAllDefaultValuesAtTheEndOfTheTable) {
    build("Test", "usb1");
    build("Test", "usb2");
    setState("Test", "usb1", 2);
    results_.setResultPropertyTestResults("Test", "usb1", "old");
    EXPECT_TRUE(results_.checkForTestResult(CIMOMHandle(), "Test", "usb1", true));
    EXPECT_EQ(identities(), (Texts{"Test/usb2", "Test/usb1"}));
    Texts expected = {"DiagnosticName: string Test", "ExecutionID: string usb1"};
    expected.insert(expected.end(), defaultResultProperties.begin(), defaultResultProperties.end());
    EXPECT_EQ(propertiesOf(ResultTable::entries()[1].second), expected);
}

TEST_F(ZorvaDiagnosticResultBuilder, FailedReplacementLeavesTheTableAsItWas) {
    build("Test", "usb1");
    build("Test", "usb2");
    setState("Test", "usb1", 2);
    results_.breaks = true;
    EXPECT_THROW(results_.checkForTestResult(CIMOMHandle(), "Test", "usb1", true),
                 std::runtime_error);
    EXPECT_EQ(identities(), (Texts{"Test/usb1", "Test/usb2"}));
    EXPECT_EQ(text(results_.getResultProperty("Test", "usb1", "TestState")), "uint16 2");
}

TEST_F(ZorvaDiagnosticResultBuilder, CheckReturnsFalseIfNoResultCouldBeMade) {
    class Forgetful : public ZORVA_DiagnosticResultBuilder {
        void buildTestResult(CIMOMHandle, String, String) override {}
    };
    EXPECT_FALSE(Forgetful().checkForTestResult(CIMOMHandle(), "Test", "usb1", true));
}

// --- ClearResults

TEST_F(ZorvaDiagnosticResultBuilder, ClearWithoutElementIs1050) {
    build("Test", "usb1");
    EXPECT_EQ(clear("Test", Array<CIMParamValue>()), "uint32 1050");
    EXPECT_EQ(clear("Test", parameter("Other", CIMValue(elementPath("usb1")))), "uint32 1050");
    EXPECT_EQ(identities(), Texts{"Test/usb1"});
}

TEST_F(ZorvaDiagnosticResultBuilder, ClearWithAnElementThatIsNoReferenceIs1040) {
    build("Test", "usb1");
    for (const CIMValue& value : {CIMValue(String("usb1")), CIMValue(Uint32(7)), CIMValue(),
                                  CIMValue(Array<CIMObjectPath>())}) {
        EXPECT_EQ(clear("Test", parameter("SystemElement", value)), "uint32 1040") << text(value);
    }
    EXPECT_EQ(identities(), Texts{"Test/usb1"});
}

TEST_F(ZorvaDiagnosticResultBuilder, ClearRemovesAllResultsOfTheElementAndNoOthers) {
    build("Test", "usb1");
    build("Test", "usb2");
    build("Other", "usb1");
    build("Test", "usb1");
    EXPECT_EQ(clear("Test", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(identities(), (Texts{"Test/usb2", "Other/usb1"}));
    EXPECT_EQ(out_.size(), 0U);
}

TEST_F(ZorvaDiagnosticResultBuilder, ClearFindsTheDeviceIdInAnyCase) {
    build("Test", "usb1");
    EXPECT_EQ(clear("Test", parameter("systemelement",
                                      CIMValue(CIMObjectPath(String("C.dEVICEid=\"usb1\""))))),
              "uint32 0");
    EXPECT_EQ(identities(), Texts());
}

TEST_F(ZorvaDiagnosticResultBuilder, LastOfSeveralDeviceIdsCounts) {
    build("Test", "a");
    build("Test", "b");
    clear("Test", parameter("SystemElement",
                            CIMValue(CIMObjectPath(String("C.DeviceID=\"a\",deviceid=\"b\"")))));
    EXPECT_EQ(identities(), Texts{"Test/a"});
}

TEST_F(ZorvaDiagnosticResultBuilder, ElementWithoutDeviceIdHasTheEmptyOne) {
    build("Test", "usb1");
    build("Test", "");
    EXPECT_EQ(clear("Test", parameter("SystemElement", CIMValue(CIMObjectPath(String("C.k=1"))))),
              "uint32 0");
    EXPECT_EQ(identities(), Texts{"Test/usb1"});
}

TEST_F(ZorvaDiagnosticResultBuilder, NullElementHasTheEmptyDeviceId) {
    build("Test", "usb1");
    build("Test", "");
    EXPECT_EQ(clear("Test", parameter("SystemElement", CIMValue(CIMTYPE_REFERENCE, false))),
              "uint32 0");
    EXPECT_EQ(identities(), Texts{"Test/usb1"});
}

TEST_F(ZorvaDiagnosticResultBuilder, ResultInProgressStaysAndIsReportedOnce) {
    build("Test", "usb1");
    setState("Test", "usb1", 4);
    EXPECT_EQ(clear("Test", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(identities(), Texts{"Test/usb1"});
    ASSERT_EQ(out_.size(), 1U);
    EXPECT_EQ(text(out_[0].getParameterName()), "ResultsNotCleared");
    EXPECT_EQ(text(out_[0].getValue()), "string Testusb1");
    EXPECT_TRUE(out_[0].isTyped());
}

TEST_F(ZorvaDiagnosticResultBuilder, EachResultInProgressIsReportedAndTheOthersAreRemoved) {
    for (int i = 0; i < 4; ++i) {
        build("Test", "usb1");
    }
    propertyOf(ResultTable::entries()[1].second, "TestState").setValue(CIMValue(Uint16(4)));
    propertyOf(ResultTable::entries()[2].second, "TestState").setValue(CIMValue(Uint16(4)));
    EXPECT_EQ(clear("Test", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(identities(), (Texts{"Test/usb1", "Test/usb1"}));
    EXPECT_EQ(out_.size(), 2U);
}

TEST_F(ZorvaDiagnosticResultBuilder, EveryStateExceptInProgressIsCleared) {
    for (const Uint16 state : {0, 1, 2, 3, 5, 6, 7}) {
        build("Test", "usb1");
        setState("Test", "usb1", state);
        EXPECT_EQ(clear("Test", elementParameter("usb1")), "uint32 0");
        EXPECT_EQ(identities(), Texts()) << state;
    }
    EXPECT_EQ(out_.size(), 0U);
}

TEST_F(ZorvaDiagnosticResultBuilder, ClearKeepsExistingOutParameters) {
    out_.append(CIMParamValue("Before", CIMValue(Uint8(1))));
    clear("Test", elementParameter("usb1"));
    ASSERT_EQ(out_.size(), 1U);
    EXPECT_EQ(text(out_[0].getParameterName()), "Before");
}

// --- returned instances and layout

TEST_F(ZorvaDiagnosticResultBuilder, ChangesOfAReturnedInstanceDoNotReachTheTable) {
    build("Test", "usb1");
    const CIMObjectPath path = results_.getTestResultReference("Test", "usb1");
    for (CIMInstance instance :
         {results_.getResultInstance(path)[0], results_.enumResultInstances()[0]}) {
        propertyOf(instance, "TestState").setValue(CIMValue(Uint16(7)));
        instance.setPath(CIMObjectPath(String("//h/root/x:Result.k=\"v\"")));
        addProperty(instance, "More", CIMValue(Uint8(1)));
    }
    EXPECT_EQ(propertyText(ResultTable::entries()[0].second, "TestState"), "uint16 0");
    EXPECT_EQ(text(ResultTable::entries()[0].second.getPath()), text(path));
    EXPECT_EQ(propertyText(ResultTable::entries()[0].second, "More"), "no property More");
}

TEST_F(ZorvaDiagnosticResultBuilder, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_DiagnosticResultBuilder::buildTestResult), 2U);
    EXPECT_EQ(slotOf(&ZORVA_DiagnosticResultBuilder::buildDefaultResultProperties), 3U);
}

}  // namespace
}  // namespace Pegasus
