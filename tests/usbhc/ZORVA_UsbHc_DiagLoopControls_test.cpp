// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagLoopControls.h"

#include <Pegasus/Provider/ProviderExceptions.h>

#include "tests/support/LibraryTest.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagLoopControls : public LibraryTest {
protected:
    ZorvaUsbHcDiagLoopControls() {
        results_.buildTestResult(handle_, usbTestName, "usb1");
        results_.buildTestResult(handle_, usbTestName, "usb2");
    }

    void set(const char* name, const CIMValue& value) {
        results_.setResultProperty(usbTestName, "usb1", name, value);
    }

    ZORVA_UsbHc_DiagResult results_;
    ZORVA_UsbHc_DiagLoopControls controls_{usbTestName, "usb1"};
};

TEST_F(ZorvaUsbHcDiagLoopControls, NewRecordRequestsNoLoop) {
    EXPECT_EQ(controls_.getThisTestLoopControl(), 56U);
}

TEST_F(ZorvaUsbHcDiagLoopControls, SettingsAreReadFromTheRecordOfItsTestAndElement) {
    Array<Uint16> control;
    control.append(3);
    control.append(4);
    Array<String> parameter;
    parameter.append("5");
    parameter.append("60");
    set("LoopControl", CIMValue(control));
    set("LoopControlParameter", CIMValue(parameter));
    EXPECT_EQ(controls_.getThisTestLoopControl(), 51U);
    EXPECT_EQ(ZORVA_UsbHc_DiagLoopControls(usbTestName, "usb2").getThisTestLoopControl(), 56U);
}

TEST_F(ZorvaUsbHcDiagLoopControls, LoopsfailedIsThePropertyLoopsFailed) {
    Array<Uint16> control;
    control.append(3);
    Array<String> parameter;
    parameter.append("2");
    set("LoopControl", CIMValue(control));
    set("LoopControlParameter", CIMValue(parameter));
    controls_.getThisTestLoopControl();
    set("TestState", CIMValue(Uint16(3)));
    EXPECT_FALSE(controls_.continueLoopingCheck(3));
    set("TestState", CIMValue(Uint16(2)));
    EXPECT_TRUE(controls_.continueLoopingCheck(3));
    EXPECT_EQ(text(controls_.retrieveResultProperty("LoopsFailed")), "uint32 1");
    EXPECT_EQ(text(controls_.retrieveResultProperty("LoopsPassed")), "uint32 1");
    EXPECT_EQ(text(results_.getResultProperty(usbTestName, "usb2", "LoopsFailed")), "uint32 0");
}

TEST_F(ZorvaUsbHcDiagLoopControls, DiscontinuedTestStopsAContinuousLoop) {
    EXPECT_FALSE(controls_.continueLoopingCheck(2));
    set("TestState", CIMValue(Uint16(7)));
    EXPECT_TRUE(controls_.continueLoopingCheck(2));
}

TEST_F(ZorvaUsbHcDiagLoopControls, AccessFollowsTheRulesOfTheTable) {
    EXPECT_EQ(thrownBy<NotImplemented>(
                  [&] { controls_.writeToResults("IsPackage", CIMValue(Boolean(true))); }),
              "not implemented: ZORVA_DiagnosticResult property not writable");
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { controls_.retrieveResultProperty("Other"); }),
              "no such property: Other");
}

TEST_F(ZorvaUsbHcDiagLoopControls, MissingRecordIsOutOfBounds) {
    ZORVA_UsbHc_DiagLoopControls other(usbTestName, "usb9");
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { other.getThisTestLoopControl(); }),
              "index out of bounds");
}

TEST_F(ZorvaUsbHcDiagLoopControls, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagLoopControls::retrieveResultProperty), 2U);
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagLoopControls::writeToResults), 3U);
}

}  // namespace
}  // namespace Pegasus
