// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagRunTestMethod.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Provider/ProviderExceptions.h>

#include "tests/support/LibraryTest.h"
#include "tests/support/PrivateDeviceList.h"
#include "tests/support/VirtualSlot.h"
#include "usbhc/ZORVA_UsbHc_DiagTest.h"

namespace Pegasus {
namespace {

constexpr char deviceList[] =
    "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n"
    "S:  Product=USB OHCI Root Hub\n"
    "I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n"
    "E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl=255ms\n";

// Gives access to the table of exclusive runs.
class TestRun : public ZORVA_UsbHc_DiagRunTestMethod {
public:
    using ZORVA_UsbHc_DiagRunTestMethod::ZORVA_UsbHc_DiagRunTestMethod;

    static ExclusiveRuns& exclusiveRuns() { return mse_test_assoc; }
};

class ZorvaUsbHcDiagRunTestMethod : public LibraryTest {
protected:
    ZorvaUsbHcDiagRunTestMethod() {
        server_->addElement("usb1");
        server_->addElement("usb2");
        TestRun::exclusiveRuns().clear();
        PrivateDeviceList::show(deviceList);
        testing::internal::CaptureStdout();
    }
    ~ZorvaUsbHcDiagRunTestMethod() override {
        testing::internal::GetCapturedStdout();
        TestRun::exclusiveRuns().clear();
    }

    TestRun run(const char* testName = usbTestName, const char* deviceId = "usb1") {
        return TestRun(handle_, testName, elementParameter(deviceId));
    }

    TestRun runWith(const CIMValue& element) {
        return TestRun(handle_, usbTestName, parameter("SystemElement", element));
    }

    std::string runTest(const char* testName = usbTestName, const char* deviceId = "usb1") {
        return text(run(testName, deviceId).processTest(out_));
    }

    // Runs with a setting of one property.
    std::string runWithSetting(const char* name, const CIMValue& value) {
        CIMInstance setting("Setting");
        setting.addProperty(CIMProperty(CIMName(name), value));
        return runWithSetting(setting);
    }

    std::string runWithSetting(const CIMInstance& setting) {
        const CIMObjectPath path(
            String(("root/kavex:Setting.k=\"" + std::to_string(++settings_) + "\"").c_str()));
        server_->add(path, setting);
        Array<CIMParamValue> parameters = elementParameter("usb1");
        parameters.append(CIMParamValue("Setting", CIMValue(path)));
        return text(TestRun(handle_, usbTestName, parameters).processTest(out_));
    }

    std::string property(const char* name, const char* testName = usbTestName,
                         const char* deviceId = "usb1") {
        return text(table_.getResultProperty(testName, deviceId, name));
    }

    Array<CIMParamValue> out_;
    int settings_ = 0;
};

// --- the element

TEST_F(ZorvaUsbHcDiagRunTestMethod, DeviceIdIsThePropertyOfTheElementNotItsKey) {
    CIMInstance element("ZORVA_UsbHc");
    element.addProperty(CIMProperty(CIMName("deviceid"), CIMValue(String("the property"))));
    server_->add(elementPath("the key"), element);
    EXPECT_EQ(run(usbTestName, "the key").verifyMSE(), 0U);
    EXPECT_EQ(folder_.take(), "         DeviceID is: the property \n");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, DeviceIdForgesNoLineOfTheLog) {
    CIMInstance element("ZORVA_UsbHc");
    element.addProperty(CIMProperty("DeviceID", CIMValue(String("usb1\n      TEST COMPLETE "))));
    server_->add(elementPath("the key"), element);
    EXPECT_EQ(run(usbTestName, "the key").verifyMSE(), 0U);
    EXPECT_EQ(folder_.take(), "         DeviceID is: usb1\\x0a      TEST COMPLETE  \n");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, ElementThatCannotBeResolvedIs1044) {
    const CIMValue nothing(elementPath("usb9"));
    for (const CIMValue& value :
         {CIMValue(String("usb1")), CIMValue(Uint32(7)), CIMValue(Array<CIMObjectPath>()),
          CIMValue(Array<String>()), CIMValue(), CIMValue(CIMTYPE_REFERENCE, false), nothing}) {
        EXPECT_EQ(runWith(value).verifyMSE(), 1044U) << text(value);
    }
    EXPECT_EQ(callTexts(), Texts{"getInstance root/kavex ZORVA_UsbHc.DeviceID=\"usb9\""});
    EXPECT_EQ(TestRun(handle_, usbTestName, Array<CIMParamValue>()).verifyMSE(), 1044U);
    EXPECT_EQ(folder_.take(), "");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, ElementWithoutPropertiesIs1044) {
    server_->add(elementPath("bare"), CIMInstance("ZORVA_UsbHc"));
    server_->add(elementPath("null"), CIMInstance());
    EXPECT_EQ(run(usbTestName, "bare").verifyMSE(), 1044U);
    EXPECT_EQ(run(usbTestName, "null").verifyMSE(), 1044U);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, ElementWithoutDeviceIdIsNoSuchPropertyAndNothingIsRecorded) {
    server_->add("Other", "Name", "n");
    TestRun run = runWith(CIMValue(CIMObjectPath(String("root/kavex:Other.Name=\"n\""))));
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { run.processTest(out_); }),
              "no such property: DeviceID");
    EXPECT_EQ(ResultTable::entries().size(), 0U);
    EXPECT_EQ(out_.size(), 0U);
    EXPECT_EQ(folder_.take(), "");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, ElementWhoseDeviceIdIsNoStringIsATypeMismatch) {
    CIMInstance element("ZORVA_UsbHc");
    element.addProperty(CIMProperty(CIMName("DeviceID"), CIMValue(Uint32(7))));
    server_->add(elementPath("number"), element);
    EXPECT_EQ(thrownBy<TypeMismatchException>([&] { runTest(usbTestName, "number"); }),
              "type mismatch");
    EXPECT_EQ(ResultTable::entries().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, ElementWhoseDeviceIdIsNullHasTheEmptyOne) {
    CIMInstance element("ZORVA_UsbHc");
    element.addProperty(CIMProperty(CIMName("DeviceID"), CIMValue(CIMTYPE_STRING, false)));
    server_->add(elementPath("null"), element);
    EXPECT_EQ(runTest(usbTestName, "null"), "uint32 0");
    EXPECT_EQ(property("TestState", usbTestName, ""), "uint16 2");
}

// --- the record

TEST_F(ZorvaUsbHcDiagRunTestMethod, RecordOperationsActOnTheRecordOfTestAndElement) {
    TestRun run = this->run();
    run.verifyMSE();
    EXPECT_TRUE(run.doResultsExist());
    run.writeToResults("TestState", CIMValue(Uint16(3)));
    run.writeTestResults("line");
    EXPECT_EQ(text(run.retrieveResultProperty("TestState")), "uint16 3");
    EXPECT_EQ(lines(run.retrieveResultProperty("TestResults")), Texts{"line"});
    EXPECT_EQ(text(run.retrieveResultReference()), resultPathText(usbTestName, "usb1"));
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, ExistingRecordIsReplaced) {
    TestRun run = this->run();
    run.verifyMSE();
    run.doResultsExist();
    run.writeTestResults("old");
    EXPECT_TRUE(run.doResultsExist());
    EXPECT_EQ(lines(run.retrieveResultProperty("TestResults")), Texts());
    EXPECT_EQ(ResultTable::entries().size(), 1U);
}

// --- exclusivity

TEST_F(ZorvaUsbHcDiagRunTestMethod, TestMayRunEvenIfTheTableHoldsIt) {
    TestRun::exclusiveRuns().append(Pair<String, String>("usb1", usbTestName));
    TestRun run = this->run();
    run.verifyMSE();
    EXPECT_EQ(run.verifyExclusivity(), 0U);
    EXPECT_EQ(TestRun::exclusiveRuns().size(), 1U);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, UnknownTestMayRun) {
    EXPECT_EQ(run("another test").verifyExclusivity(), 0U);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, OwnEntryIsRemovedAfterTheRun) {
    TestRun::exclusiveRuns().append(Pair<String, String>("usb2", usbTestName));
    TestRun::exclusiveRuns().append(Pair<String, String>("USB1", usbTestName));
    EXPECT_EQ(runTest(), "uint32 0");
    ASSERT_EQ(TestRun::exclusiveRuns().size(), 1U);
    EXPECT_EQ(text(TestRun::exclusiveRuns()[0].first), "usb2");
}

// --- the run

TEST_F(ZorvaUsbHcDiagRunTestMethod, RunPassesAndRecordsItsTimes) {
    const CIMDateTime before = CIMDateTime::getCurrentDateTime();
    EXPECT_EQ(runTest(), "uint32 0");
    const CIMDateTime after = CIMDateTime::getCurrentDateTime();
    EXPECT_EQ(property("TestState"), "uint16 2");
    CIMDateTime start;
    CIMDateTime end;
    table_.getResultProperty(usbTestName, "usb1", "TestStartTime").get(start);
    table_.getResultProperty(usbTestName, "usb1", "TestCompletionTime").get(end);
    EXPECT_GE(CIMDateTime::getDifference(before, start), 0);
    EXPECT_GE(CIMDateTime::getDifference(start, end), 0);
    EXPECT_GE(CIMDateTime::getDifference(end, after), 0);
    EXPECT_EQ(property("TimeStamp"), property("TestCompletionTime"));
    EXPECT_EQ(lines(table_.getResultProperty(usbTestName, "usb1", "TestResults")).size(), 15U);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, EveryStepOfARunIsLogged) {
    runTest();
    EXPECT_EQ(folder_.take(),
              "         DeviceID is: usb1 \n"
              "      In ZORVA_UsbHc_DiagResult::buildTestResult\n"
              "      btr point 1 \n"
              "  in SystemInfo \n"
              "      btr point 3 \n"
              "         in verifySettings \n" +
                  testTableLog() + "         in executeTest \n" + testTableLog() +
                  "In GetUsbDeviceInformation Test  \n"
                  "         in UsbHc_ \n"
                  "DeviceID is: \n"
                  "      TEST COMPLETE \n");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, ResultIsTheReferenceOfTheRecord) {
    runTest();
    ASSERT_EQ(out_.size(), 1U);
    EXPECT_EQ(text(out_[0].getParameterName()), "Result");
    EXPECT_EQ(text(out_[0].getValue()),
              "reference root/kavex:" + resultPathText(usbTestName, "usb1"));
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, RunAgainReplacesTheRecord) {
    EXPECT_EQ(runTest(), "uint32 0");
    EXPECT_EQ(runTest(usbTestName, "usb2"), "uint32 0");
    EXPECT_EQ(runTest(), "uint32 0");
    EXPECT_EQ(texts(table_.enumResultReferences()),
              (Texts{resultPathText(usbTestName, "usb2"), resultPathText(usbTestName, "usb1")}));
    EXPECT_EQ(lines(table_.getResultProperty(usbTestName, "usb1", "TestResults")).size(), 15U);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, NextRunDoesNotChangeReturnedInstances) {
    runTest();
    const CIMInstance returned = table_.enumResultInstances()[0];
    const Texts before = propertiesOf(returned);
    PrivateDeviceList::show("");
    runTest();
    EXPECT_EQ(propertiesOf(returned), before);
    EXPECT_EQ(lines(table_.getResultProperty(usbTestName, "usb1", "TestResults")), Texts());
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, RecordInProgressIsReplacedToo) {
    runTest();
    table_.setResultProperty(usbTestName, "usb1", "TestState", CIMValue(Uint16(4)));
    EXPECT_EQ(runTest(), "uint32 0");
    EXPECT_EQ(property("TestState"), "uint16 2");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, TestNameInAnotherCaseRunsTheTestWithItsOwnRecord) {
    EXPECT_EQ(runTest("getusbdeviceinformation"), "uint32 0");
    EXPECT_EQ(property("TestState", "getusbdeviceinformation"), "uint16 2");
    EXPECT_EQ(table_.getRefInstIndex(usbTestName, "usb1"),
              ZORVA_DiagnosticResultBuilder::resultNotFound);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, UnknownTestRunsNothingButRecordsItsTimes) {
    EXPECT_EQ(runTest("another test"), "uint32 0");
    EXPECT_EQ(property("TestState", "another test"), "uint16 4");
    EXPECT_EQ(property("TestResults", "another test"), "string[] ");
    EXPECT_NE(property("TestStartTime", "another test"), "datetime 00000000000000.000000:000");
    EXPECT_NE(property("TestCompletionTime", "another test"), "datetime 00000000000000.000000:000");
    EXPECT_EQ(out_.size(), 1U);
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, TestIsNeverShownAsInUse) {
    std::string duringTheRun;
    server_->beforeCall = [&](std::size_t call) {
        if (call == 6) {  // executeTest() looks up the host system
            server_->beforeCall = nullptr;
            duringTheRun =
                text(ZORVA_UsbHc_DiagTest(handle_).getTestProperty(usbTestName, "IsInUse"));
        }
    };
    EXPECT_EQ(runTest(), "uint32 0");
    EXPECT_EQ(duringTheRun, "boolean FALSE");
    EXPECT_EQ(text(ZORVA_UsbHc_DiagTest(handle_).getTestProperty(usbTestName, "IsInUse")),
              "boolean FALSE");
    EXPECT_EQ(text(ZORVA_UsbHc_DiagTest(handle_).getTestProperty(usbTestName, "Started")),
              "boolean FALSE");
    EXPECT_FALSE(ZORVA_UsbHc_DiagTest(handle_).getDiagTestProperty(usbTestName, "IsInUse"));
    EXPECT_FALSE(ZORVA_UsbHc_DiagTest(handle_).getDiagTestProperty(usbTestName, "Started"));
}

// --- settings

TEST_F(ZorvaUsbHcDiagRunTestMethod, SettingIsCopiedIntoTheRecord) {
    CIMInstance setting("Setting");
    setting.addProperty(CIMProperty(CIMName("QuickMode"), CIMValue(Boolean(true))));
    setting.addProperty(CIMProperty(CIMName("PercentOfTestCoverage"), CIMValue(Uint8(80))));
    setting.addProperty(
        CIMProperty(CIMName("OtherLoopControlDescription"), CIMValue(String("none"))));
    EXPECT_EQ(runWithSetting(setting), "uint32 0");
    EXPECT_EQ(property("QuickMode"), "boolean TRUE");
    EXPECT_EQ(property("PercentOfTestCoverage"), "uint8 80");
    EXPECT_EQ(property("OtherLoopControlDescription"), "string none");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, EveryRunStartsFromDefaultSettings) {
    EXPECT_EQ(runWithSetting("QuickMode", CIMValue(Boolean(true))), "uint32 0");
    EXPECT_EQ(runTest(), "uint32 0");
    EXPECT_EQ(property("QuickMode"), "boolean FALSE");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, SettingOfAWrongTypeFailsAndLeavesTheRecordInState0) {
    EXPECT_EQ(thrownBy<TypeMismatchException>(
                  [&] { runWithSetting("QuickMode", CIMValue(String("yes"))); }),
              "type mismatch");
    EXPECT_EQ(property("TestState"), "uint16 0");
    EXPECT_EQ(out_.size(), 0U);
    EXPECT_EQ(runTest(), "uint32 0");
    EXPECT_EQ(property("TestState"), "uint16 2");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, NullArrayInASettingIsCopiedAsNull) {
    EXPECT_EQ(runWithSetting("LoopControl", CIMValue(CIMTYPE_UINT16, true)), "uint32 0");
    EXPECT_EQ(property("LoopControl"), "uint16[] null");
    EXPECT_EQ(property("TestState"), "uint16 2");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, TooShortLoopControlParameterFailsAndLeavesTheRecordInState4) {
    Array<Uint16> control;
    control.append(3);
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>(
                  [&] { runWithSetting("LoopControl", CIMValue(control)); }),
              "index out of bounds");
    EXPECT_EQ(property("TestState"), "uint16 4");
    // The times of the start are recorded, those of the end are not.
    EXPECT_NE(property("TestStartTime"), "datetime 00000000000000.000000:000");
    EXPECT_EQ(property("TimeStamp"), property("TestStartTime"));
    EXPECT_EQ(property("TestCompletionTime"), "datetime 00000000000000.000000:000");
    EXPECT_EQ(out_.size(), 1U);
    EXPECT_EQ(runTest(), "uint32 0");
    EXPECT_EQ(property("TestState"), "uint16 2");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, TestRunsOnceDespiteLoopSettings) {
    Array<Uint16> control;
    control.append(3);
    Array<String> parameter;
    parameter.append("5");
    CIMInstance setting("Setting");
    setting.addProperty(CIMProperty(CIMName("LoopControl"), CIMValue(control)));
    setting.addProperty(CIMProperty(CIMName("LoopControlParameter"), CIMValue(parameter)));
    EXPECT_EQ(runWithSetting(setting), "uint32 0");
    EXPECT_EQ(lines(table_.getResultProperty(usbTestName, "usb1", "TestResults")).size(), 15U);
    EXPECT_EQ(property("LoopsPassed"), "uint32 0");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, SettingMayBeTheTestItself) {
    Array<CIMParamValue> parameters = elementParameter("usb1");
    parameters.append(CIMParamValue(
        "Setting", CIMValue(CIMObjectPath(String(("root/kavex:" + testPathText()).c_str())))));
    EXPECT_EQ(text(TestRun(handle_, usbTestName, parameters).processTest(out_)), "uint32 0");
}

TEST_F(ZorvaUsbHcDiagRunTestMethod, VirtualOperationsKeepTheirSlots) {
    using Method = ZORVA_UsbHc_DiagRunTestMethod;
    EXPECT_EQ(slotOf(&Method::processTest), 2U);
    EXPECT_EQ(slotOf(&Method::doResultsExist), 3U);
    EXPECT_EQ(slotOf(&Method::retrieveResultProperty), 4U);
    EXPECT_EQ(slotOf(&Method::retrieveResultReference), 5U);
    EXPECT_EQ(slotOf(&Method::writeToResults), 6U);
    EXPECT_EQ(slotOf(&Method::writeTestResults), 7U);
    EXPECT_EQ(slotOf(&Method::verifyMSE), 8U);
    EXPECT_EQ(slotOf(&Method::verifyExclusivity), 9U);
    EXPECT_EQ(slotOf(&Method::executeTest), 10U);
}

}  // namespace
}  // namespace Pegasus
