// SPDX-License-Identifier: MIT
// The methods of the test, on the provider object.
#include <Pegasus/Provider/ProviderExceptions.h>

#include "tests/provider/ProviderTest.h"
#include "tests/support/PrivateDeviceList.h"

namespace Pegasus {
namespace {

constexpr char deviceList[] =
    "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n"
    "S:  Product=USB OHCI Root Hub\n"
    "E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl=255ms\n";

class InvokeMethod : public ProviderTest {
protected:
    InvokeMethod() {
        PrivateDeviceList::show(deviceList);
        testing::internal::CaptureStdout();
    }
    ~InvokeMethod() override { testing::internal::GetCapturedStdout(); }

    std::string state(const char* deviceId) {
        return text(table_.getResultProperty(usbTestName, deviceId, "TestState"));
    }

    void setState(const char* deviceId, Uint16 state) {
        table_.setResultProperty(usbTestName, deviceId, "TestState", CIMValue(state));
    }
};

const Texts withValue = {"processing", "deliver", "complete"};
const Texts withoutValue = {"processing", "complete"};
const Texts neverCompleted = {"processing"};

// What a client can send in place of a reference.
const CIMValue noReferences[] = {CIMValue(String("usb1")), CIMValue(Uint32(7)),
                                 CIMValue(Array<CIMObjectPath>()), CIMValue(Array<String>())};

// --- which method of which object

TEST_F(InvokeMethod, RunTestIsServedInAnyCase) {
    EXPECT_EQ(client_.invokeOn(path("zorva_usbhc_diagtest.NAME=\"GetUsbDeviceInformation\""),
                               "runtest", elementParameter("usb1")),
              "uint32 0");
    EXPECT_EQ(client_.handlerCalls(), withValue);
    EXPECT_EQ(state("usb1"), "uint16 2");
}

TEST_F(InvokeMethod, AnyOtherClassCompletesWithoutAValue) {
    for (const char* other : {"ZORVA_UsbHc_DiagResult.Name=\"x\"", "Other.Name=\"x\""}) {
        for (const char* method : {"RunTest", "ClearResults", "DiscontinueTest", "StopService"}) {
            EXPECT_EQ(client_.invokeOn(path(other), method, elementParameter("usb1")), "");
            EXPECT_EQ(client_.handlerCalls(), withoutValue);
            EXPECT_EQ(client_.outParameters(), Texts());
        }
    }
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(InvokeMethod, UnknownMethodCompletesWithoutAValue) {
    for (const char* method : {"", "RunTests", "GetTest"}) {
        EXPECT_EQ(client_.invoke(method, elementParameter("usb1")), "");
        EXPECT_EQ(client_.handlerCalls(), withoutValue);
    }
    EXPECT_EQ(folder_.take(),
              "\n\n\nIn Invoke Method\n\n\n\nIn Invoke Method\n\n\n\nIn Invoke Method\n");
}

TEST_F(InvokeMethod, TestNameIsTheFirstNameKey) {
    client_.invokeOn(path("ZORVA_UsbHc_DiagTest.Name=\"first\",name=\"second\""), "RunTest",
                     elementParameter("usb1"));
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult"), Texts{resultPathText("first", "usb1")});
}

TEST_F(InvokeMethod, PathWithoutANameKeyNamesTheEmptyTest) {
    EXPECT_EQ(client_.invokeOn(path("ZORVA_UsbHc_DiagTest"), "RunTest", elementParameter("usb1")),
              "uint32 0");
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult"), Texts{resultPathText("", "usb1")});
}

// --- RunTest

TEST_F(InvokeMethod, RunTestReturnsItsCodeAndTheResult) {
    EXPECT_EQ(client_.invoke("RunTest", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(client_.outParameters(),
              Texts{"Result=reference root/kavex:" + resultPathText(usbTestName, "usb1")});
    EXPECT_EQ(folder_.take().substr(0, 21), "\n\n\nIn Invoke Method\n ");
}

TEST_F(InvokeMethod, RunTestWithABadElementIs1044) {
    for (const CIMValue& value : noReferences) {
        EXPECT_EQ(client_.invoke("RunTest", parameter("SystemElement", value)), "uint32 1044");
    }
    EXPECT_EQ(client_.invoke("RunTest", Array<CIMParamValue>()), "uint32 1044");
    EXPECT_EQ(
        client_.invoke("RunTest", parameter("SystemElement", CIMValue(CIMTYPE_REFERENCE, false))),
        "uint32 1044");
    EXPECT_TRUE(server_->calls().empty());
    EXPECT_EQ(client_.invoke("RunTest", elementParameter("usb9")), "uint32 1044");
    EXPECT_EQ(client_.outParameters(), Texts());
    EXPECT_EQ(ResultTable::entries().size(), 0U);
}

TEST_F(InvokeMethod, RunTestWhoseElementCannotBeFetchedIs1044) {
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_ACCESS_DENIED, "no"); };
    EXPECT_EQ(client_.invoke("RunTest", elementParameter("usb1")), "uint32 1044");
}

TEST_F(InvokeMethod, RunTestOfAnElementWithoutDeviceIdNamesTheProperty) {
    const Array<CIMParamValue> parameters =
        parameter("SystemElement", CIMValue(path("root/kavex:QUIRVO_ComputerSystem.Name="
                                                 "\"host1\"")));
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { client_.invoke("RunTest", parameters); }),
              "no such property: DeviceID");
    EXPECT_EQ(client_.handlerCalls(), neverCompleted);
    EXPECT_EQ(ResultTable::entries().size(), 0U);
}

// --- ClearResults

TEST_F(InvokeMethod, ClearResultsRemovesTheResultsOfTestAndElement) {
    addResult("usb1");
    addResult("usb2");
    EXPECT_EQ(client_.invoke("clearresults", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(client_.handlerCalls(), withValue);
    EXPECT_EQ(client_.outParameters(), Texts());
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult"), Texts{resultPathText(usbTestName, "usb2")});
}

TEST_F(InvokeMethod, ClearResultsReportsATestInProgress) {
    addResult("usb1");
    setState("usb1", 4);
    EXPECT_EQ(client_.invoke("ClearResults", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(client_.outParameters(),
              Texts{"ResultsNotCleared=string GetUsbDeviceInformationusb1"});
}

TEST_F(InvokeMethod, ClearResultsWithoutAnElementIs1050) {
    EXPECT_EQ(client_.invoke("ClearResults", Array<CIMParamValue>()), "uint32 1050");
}

TEST_F(InvokeMethod, ClearResultsWithAnElementThatIsNoReferenceIs1040) {
    for (const CIMValue& value : noReferences) {
        EXPECT_EQ(client_.invoke("ClearResults", parameter("SystemElement", value)), "uint32 1040");
    }
}

TEST_F(InvokeMethod, ClearResultsWithANullElementClearsTheEmptyDevice) {
    addResult("usb1");
    addResult("");
    EXPECT_EQ(client_.invoke("ClearResults",
                             parameter("SystemElement", CIMValue(CIMTYPE_REFERENCE, false))),
              "uint32 0");
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult"), Texts{resultPathText(usbTestName, "usb1")});
}

TEST_F(InvokeMethod, ClearResultsUsesOnlyTheKeyAndMakesNoCallsToTheServer) {
    addResult("usb9");  // an element that the server does not know
    EXPECT_EQ(client_.invoke("ClearResults", elementParameter("usb9")), "uint32 0");
    addResult("usb8");
    EXPECT_EQ(client_.invoke("ClearResults",
                             parameter("SystemElement", CIMValue(path("Other.DeviceID=\"usb8\"")))),
              "uint32 0");
    EXPECT_EQ(ResultTable::entries().size(), 0U);
    EXPECT_TRUE(server_->calls().empty());
}

// --- DiscontinueTest

TEST_F(InvokeMethod, DiscontinueTestMarksTheRecordAndDeliversNoValue) {
    addResult("usb1");
    addResult("usb2");
    EXPECT_EQ(client_.invoke("discontinuetest", elementParameter("usb1")), "");
    EXPECT_EQ(client_.handlerCalls(), withoutValue);
    EXPECT_EQ(client_.outParameters(), Texts{"TestingStopped=boolean TRUE"});
    EXPECT_EQ(state("usb1"), "uint16 7");
    EXPECT_EQ(state("usb2"), "uint16 0");
    EXPECT_EQ(folder_.take(), "\n\n\nIn Invoke Method\n      In invokeMethod DiscontinueTest\n");
}

TEST_F(InvokeMethod, DiscontinueTestChangesAPassedRecordToo) {
    addResult("usb1");
    setState("usb1", 2);
    client_.invoke("DiscontinueTest", elementParameter("usb1"));
    EXPECT_EQ(state("usb1"), "uint16 7");
}

TEST_F(InvokeMethod, DiscontinueTestWithoutARecordReturnsTestingStopped) {
    EXPECT_EQ(client_.invoke("DiscontinueTest", elementParameter("usb1")), "");
    EXPECT_EQ(client_.handlerCalls(), withoutValue);
    EXPECT_EQ(client_.outParameters(), Texts{"TestingStopped=boolean TRUE"});
}

TEST_F(InvokeMethod, OperationOfTheTableThrowsForAnAbsentRecord) {
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { setState("usb1", 7); }),
              "index out of bounds");
}

TEST_F(InvokeMethod, DiscontinueTestWithoutAReferenceIsATypeMismatch) {
    for (const CIMValue& value : noReferences) {
        EXPECT_EQ(thrownBy<TypeMismatchException>([&] {
                      client_.invoke("DiscontinueTest", parameter("SystemElement", value));
                  }),
                  "type mismatch");
        EXPECT_EQ(client_.handlerCalls(), neverCompleted);
    }
    EXPECT_EQ(thrownBy<TypeMismatchException>(
                  [&] { client_.invoke("DiscontinueTest", Array<CIMParamValue>()); }),
              "type mismatch");
}

TEST_F(InvokeMethod, DiscontinueTestWithANullElementChangesNoRecord) {
    addResult("usb1");
    addResult("");
    EXPECT_EQ(client_.invoke("DiscontinueTest",
                             parameter("SystemElement", CIMValue(CIMTYPE_REFERENCE, false))),
              "");
    EXPECT_EQ(client_.outParameters(), Texts{"TestingStopped=boolean TRUE"});
    EXPECT_EQ(state("usb1"), "uint16 0");
    EXPECT_EQ(state(""), "uint16 0");
}

TEST_F(InvokeMethod, DiscontinueTestUsesOnlyTheFirstDeviceIdAndMakesNoCallsToTheServer) {
    addResult("a");
    addResult("b");
    client_.invoke(
        "DiscontinueTest",
        parameter("SystemElement", CIMValue(path("Other.DeviceID=\"a\",deviceid=\"b\""))));
    EXPECT_EQ(state("a"), "uint16 7");
    EXPECT_EQ(state("b"), "uint16 0");
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(InvokeMethod, TestRunsAgainAfterDiscontinueTest) {
    client_.invoke("RunTest", elementParameter("usb1"));
    client_.invoke("DiscontinueTest", elementParameter("usb1"));
    EXPECT_EQ(client_.invoke("RunTest", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(state("usb1"), "uint16 2");
}

// --- the service methods

TEST_F(InvokeMethod, StartServiceIsNotSupported) {
    EXPECT_EQ(
        thrownBy<NotSupported>([&] { client_.invoke("StartService", Array<CIMParamValue>()); }),
        "ZORVA_UsbHc_DiagProvider::StartService");
    EXPECT_EQ(client_.handlerCalls(), neverCompleted);
    EXPECT_EQ(folder_.take(), "\n\n\nIn Invoke Method\n      In invokeMethod StartService\n");
}

TEST_F(InvokeMethod, StopServiceIsNotSupported) {
    EXPECT_EQ(
        thrownBy<NotSupported>([&] { client_.invoke("stopservice", Array<CIMParamValue>()); }),
        "ZORVA_UsbHc_DiagProvider::StopService");
    EXPECT_EQ(client_.handlerCalls(), neverCompleted);
    EXPECT_EQ(folder_.take(), "\n\n\nIn Invoke Method\n      In invokeMethod StopService\n");
}

}  // namespace
}  // namespace Pegasus
