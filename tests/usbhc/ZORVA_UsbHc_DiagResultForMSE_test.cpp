// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagResultForMSE.h"

#include "tests/support/LibraryTest.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagResultForMSE : public LibraryTest {
protected:
    ZORVA_UsbHc_DiagResultForMSE associations() {
        return ZORVA_UsbHc_DiagResultForMSE(handle_, "ZORVA_UsbHc_DiagResultForMSE", "Result",
                                            "SystemElement", "ZORVA_UsbHc_DiagResult",
                                            "ZORVA_UsbHc", results_);
    }

    ZORVA_UsbHc_DiagResult results_;
};

TEST_F(ZorvaUsbHcDiagResultForMSE, WithoutResultsThereAreNoAssociations) {
    server_->addElement("usb1");
    EXPECT_EQ(associations().enumAssocInstances().size(), 0U);
    EXPECT_EQ(associations().enumAssocReferences().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagResultForMSE, EveryResultIsAssociatedWithEveryElement) {
    server_->addElement("usb1");
    results_.buildTestResult(handle_, usbTestName, "usb1");
    results_.buildTestResult(handle_, usbTestName, "another");
    const Array<CIMInstance> instances = associations().enumAssocInstances();
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(text(instances[0].getClassName()), "ZORVA_UsbHc_DiagResultForMSE");
    EXPECT_EQ(propertiesOf(instances[0]),
              (Texts{"SystemElement: reference root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\"",
                     "Result: reference " + resultPathText(usbTestName, "usb1")}));
    EXPECT_EQ(propertyText(instances[1], "Result"),
              "reference " + resultPathText(usbTestName, "another"));
}

TEST_F(ZorvaUsbHcDiagResultForMSE, ReferencesAreDeclaredWithTheClassesOfTheirRoles) {
    server_->addElement("usb1");
    results_.buildTestResult(handle_, usbTestName, "usb1");
    const CIMInstance instance = associations().enumAssocInstances()[0];
    EXPECT_EQ(text(CIMConstProperty(CIMInstance(instance).getProperty(0)).getReferenceClassName()),
              "ZORVA_UsbHc");
    EXPECT_EQ(text(CIMConstProperty(CIMInstance(instance).getProperty(1)).getReferenceClassName()),
              "ZORVA_UsbHc_DiagResult");
}

TEST_F(ZorvaUsbHcDiagResultForMSE, WithoutElementsThereAreNoAssociations) {
    results_.buildTestResult(handle_, usbTestName, "usb1");
    EXPECT_EQ(associations().enumAssocInstances().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagResultForMSE, TableIsASnapshot) {
    server_->addElement("usb1");
    results_.buildTestResult(handle_, usbTestName, "usb1");
    ZORVA_UsbHc_DiagResultForMSE before = associations();
    results_.buildTestResult(handle_, usbTestName, "usb2");
    EXPECT_EQ(before.enumAssocInstances().size(), 1U);
    EXPECT_EQ(associations().enumAssocInstances().size(), 2U);
}

TEST_F(ZorvaUsbHcDiagResultForMSE, OnlyTheElementsAreRequestedFromTheServer) {
    associations();
    EXPECT_EQ(callTexts(), Texts{"enumerateInstanceNames root/kavex ZORVA_UsbHc"});
    EXPECT_EQ(folder_.take(), "");
}

TEST_F(ZorvaUsbHcDiagResultForMSE, ExceptionOfTheServerPropagatesFromTheConstructor) {
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_INVALID_CLASS, "no"); };
    EXPECT_EQ(thrownBy<CIMException>([&] { associations(); }), "no");
}

TEST_F(ZorvaUsbHcDiagResultForMSE, DefaultConstructedAssociationIsEmpty) {
    ZORVA_UsbHc_DiagResultForMSE empty;
    EXPECT_EQ(empty.enumAssocInstances().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagResultForMSE, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagResultForMSE::getRole1References), 4U);
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagResultForMSE::getRole2References), 5U);
}

}  // namespace
}  // namespace Pegasus
