// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagResultForTest.h"

#include "tests/support/LibraryTest.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagResultForTest : public LibraryTest {
protected:
    ZORVA_UsbHc_DiagResultForTest associations() {
        return ZORVA_UsbHc_DiagResultForTest(
            handle_, "ZORVA_UsbHc_DiagResultForTest", "DiagnosticResult", "DiagnosticTest",
            "ZORVA_UsbHc_DiagResult", "ZORVA_UsbHc_DiagTest", results_);
    }

    ZORVA_UsbHc_DiagResult results_;
};

TEST_F(ZorvaUsbHcDiagResultForTest, WithoutResultsThereAreNoAssociations) {
    EXPECT_EQ(associations().enumAssocInstances().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagResultForTest, ResultIsAssociatedWithTheTestOfItsName) {
    results_.buildTestResult(handle_, usbTestName, "usb1");
    results_.buildTestResult(handle_, "another test", "usb1");
    const Array<CIMInstance> instances = associations().enumAssocInstances();
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(propertiesOf(instances[0]),
              (Texts{"DiagnosticTest: reference " + testPathText(),
                     "DiagnosticResult: reference " + resultPathText(usbTestName, "usb1")}));
    EXPECT_EQ(text(instances[0].getPath().getClassName()), "ZORVA_UsbHc_DiagResultForTest");
}

TEST_F(ZorvaUsbHcDiagResultForTest, NamesAreComparedIgnoringCase) {
    results_.buildTestResult(handle_, "getusbDEVICEinformation", "usb1");
    EXPECT_EQ(associations().enumAssocInstances().size(), 1U);
}

TEST_F(ZorvaUsbHcDiagResultForTest, ConstructorLogsAfterItHasFetchedTheReferences) {
    associations();
    EXPECT_EQ(folder_.take(), testTableLog() + "         In DiagResultForTest constructor \n");
}

TEST_F(ZorvaUsbHcDiagResultForTest, DefaultConstructedAssociationIsEmpty) {
    ZORVA_UsbHc_DiagResultForTest empty;
    EXPECT_EQ(empty.enumAssocInstances().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagResultForTest, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagResultForTest::getRole1References), 4U);
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagResultForTest::getRole2References), 5U);
}

}  // namespace
}  // namespace Pegasus
