// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

#include <stdexcept>

#include "tests/support/LibraryTest.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagResult : public LibraryTest {
protected:
    ZORVA_UsbHc_DiagResult results_;
};

TEST_F(ZorvaUsbHcDiagResult, PathHasFiveStringKeysAndNeitherHostNorNamespace) {
    results_.buildTestResult(handle_, usbTestName, "usb1");
    const CIMObjectPath path = results_.enumResultReferences()[0];
    EXPECT_EQ(text(path), resultPathText(usbTestName, "usb1"));
    const Array<CIMKeyBinding> keys = path.getKeyBindings();
    ASSERT_EQ(keys.size(), 5U);
    for (Uint32 i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].getType(), CIMKeyBinding::STRING);
    }
}

TEST_F(ZorvaUsbHcDiagResult, IdentifyingPropertiesComeBeforeTheDefaultProperties) {
    results_.buildTestResult(handle_, usbTestName, "usb1");
    const CIMInstance instance = results_.enumResultInstances()[0];
    EXPECT_EQ(text(instance.getClassName()), "ZORVA_UsbHc_DiagResult");
    EXPECT_EQ(text(instance.getPath()), resultPathText(usbTestName, "usb1"));
    Texts expected = {"DiagnosticName: string GetUsbDeviceInformation",
                      "DiagnosticCreationClassName: string ZORVA_UsbHc_DiagTest",
                      "ExecutionID: string usb1", "DiagSystemName: string host1",
                      "DiagSystemCreationClassName: string QUIRVO_ComputerSystem"};
    expected.insert(expected.end(), defaultResultProperties.begin(), defaultResultProperties.end());
    EXPECT_EQ(propertiesOf(instance), expected);
}

TEST_F(ZorvaUsbHcDiagResult, ConstructionIsLogged) {
    results_.buildTestResult(handle_, usbTestName, "usb1");
    EXPECT_EQ(folder_.take(),
              "      In ZORVA_UsbHc_DiagResult::buildTestResult\n"
              "      btr point 1 \n"
              "  in SystemInfo \n"
              "      btr point 3 \n");
}

TEST_F(ZorvaUsbHcDiagResult, WithoutAComputerSystemTheSystemNamesAreEmpty) {
    results_.buildTestResult(CIMOMHandle(std::make_shared<TestServer>()), usbTestName, "usb1");
    const CIMInstance instance = results_.enumResultInstances()[0];
    EXPECT_EQ(propertyText(instance, "DiagSystemName"), "string ");
    EXPECT_EQ(propertyText(instance, "DiagSystemCreationClassName"), "string ");
    EXPECT_EQ(text(instance.getPath()),
              "ZORVA_UsbHc_DiagResult.DiagnosticCreationClassName=\"ZORVA_UsbHc_DiagTest\","
              "DiagnosticName=\"GetUsbDeviceInformation\",DiagSystemCreationClassName=\"\","
              "DiagSystemName=\"\",ExecutionID=\"usb1\"");
}

TEST_F(ZorvaUsbHcDiagResult, NamesOfSystemPropertiesIgnoreCase) {
    const auto server = std::make_shared<TestServer>();
    CIMInstance system("QUIRVO_ComputerSystem");
    system.addProperty(CIMProperty(CIMName("name"), CIMValue(String("host2"))));
    server->add(CIMObjectPath(String("QUIRVO_ComputerSystem.Name=\"host2\"")), system);
    results_.buildTestResult(CIMOMHandle(server), usbTestName, "usb1");
    EXPECT_EQ(propertyText(results_.enumResultInstances()[0], "DiagSystemName"), "string host2");
}

TEST_F(ZorvaUsbHcDiagResult, BuildingTwiceAppendsTwoEntriesAndLookupsFindTheFirst) {
    results_.buildTestResult(handle_, usbTestName, "usb1");
    results_.buildTestResult(handle_, usbTestName, "usb1");
    EXPECT_EQ(results_.enumResultReferences().size(), 2U);
    EXPECT_EQ(results_.getRefInstIndex(usbTestName, "usb1"), 0U);
}

TEST_F(ZorvaUsbHcDiagResult, FailureOfTheServerAppendsNothing) {
    server_->beforeCall = [](std::size_t) { throw std::runtime_error("broken"); };
    EXPECT_THROW(results_.buildTestResult(handle_, usbTestName, "usb1"), std::runtime_error);
    EXPECT_EQ(results_.enumResultReferences().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagResult, ReplacementKeepsTheOldResultIfTheServerFails) {
    results_.buildTestResult(handle_, usbTestName, "usb1");
    results_.setResultProperty(usbTestName, "usb1", "TestState", CIMValue(Uint16(2)));
    server_->beforeCall = [](std::size_t) { throw std::runtime_error("broken"); };
    EXPECT_THROW(results_.checkForTestResult(handle_, usbTestName, "usb1", true),
                 std::runtime_error);
    ASSERT_EQ(results_.enumResultInstances().size(), 1U);
    EXPECT_EQ(propertyText(results_.enumResultInstances()[0], "TestState"), "uint16 2");
}

TEST_F(ZorvaUsbHcDiagResult, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagResult::buildTestResult), 2U);
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagResult::buildDefaultResultProperties), 3U);
}

}  // namespace
}  // namespace Pegasus
