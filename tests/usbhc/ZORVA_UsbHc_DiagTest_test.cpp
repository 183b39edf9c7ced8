// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagTest.h"

#include "tests/support/LibraryTest.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagTest : public LibraryTest {};

Texts propertiesOnSystem(const std::string& name, const std::string& creationClassName) {
    return {"Name: string GetUsbDeviceInformation",
            "SystemName: string " + name,
            "SystemCreationClassName: string " + creationClassName,
            "CreationClassName: string ZORVA_UsbHc_DiagTest",
            "Description: string ZORVA USB Cdrom Diagnostics ",
            "Caption: string Usb SubSystem Information",
            "Status: string Unknown",
            "StartMode: string Manual",
            "OtherCharacteristicDescription: string ",
            "Characteristics: uint16[] 2 5 8 ",
            "ResourcesUsed: uint16[] 0 1 8 3 ",
            "IsInUse: boolean FALSE",
            "Started: boolean FALSE",
            "InstallDate: datetime 20020308070100.000000-240"};
}

TEST_F(ZorvaUsbHcDiagTest, OneTestHasAllPropertiesInOrder) {
    const Array<CIMInstance> tests = ZORVA_UsbHc_DiagTest(handle_).enumTestInstances();
    ASSERT_EQ(tests.size(), 1U);
    EXPECT_EQ(text(tests[0].getClassName()), "ZORVA_UsbHc_DiagTest");
    EXPECT_EQ(propertiesOf(tests[0]), propertiesOnSystem("host1", "QUIRVO_ComputerSystem"));
}

TEST_F(ZorvaUsbHcDiagTest, PathHasFourStringKeysAndNeitherHostNorNamespace) {
    const Array<CIMObjectPath> paths = ZORVA_UsbHc_DiagTest(handle_).enumTestReferences();
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_EQ(text(paths[0]), testPathText());
    const Array<CIMKeyBinding> keys = paths[0].getKeyBindings();
    ASSERT_EQ(keys.size(), 4U);
    for (Uint32 i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].getType(), CIMKeyBinding::STRING);
    }
}

TEST_F(ZorvaUsbHcDiagTest, InstanceHasItsPath) {
    EXPECT_EQ(text(ZORVA_UsbHc_DiagTest(handle_).enumTestInstances()[0].getPath()), testPathText());
}

TEST_F(ZorvaUsbHcDiagTest, ConstructionIsLogged) {
    ZORVA_UsbHc_DiagTest tests(handle_);
    EXPECT_EQ(folder_.take(), testTableLog());
}

TEST_F(ZorvaUsbHcDiagTest, WithoutAComputerSystemTheSystemNamesAreEmpty) {
    CIMOMHandle bare(std::make_shared<TestServer>());
    const Array<CIMInstance> tests = ZORVA_UsbHc_DiagTest(bare).enumTestInstances();
    ASSERT_EQ(tests.size(), 1U);
    EXPECT_EQ(propertiesOf(tests[0]), propertiesOnSystem("", ""));
    EXPECT_EQ(text(tests[0].getPath()),
              "ZORVA_UsbHc_DiagTest.CreationClassName=\"ZORVA_UsbHc_DiagTest\","
              "Name=\"GetUsbDeviceInformation\",SystemCreationClassName=\"\",SystemName=\"\"");
}

TEST_F(ZorvaUsbHcDiagTest, FailedLookupOfTheSystemLeavesItsNamesEmpty) {
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_FAILED, "no"); };
    EXPECT_EQ(propertiesOf(ZORVA_UsbHc_DiagTest(handle_).enumTestInstances()[0]),
              propertiesOnSystem("", ""));
}

TEST_F(ZorvaUsbHcDiagTest, SystemIsLookedUpForEachTable) {
    ZORVA_UsbHc_DiagTest first(handle_);
    ZORVA_UsbHc_DiagTest second(handle_);
    EXPECT_EQ(callTexts(), (Texts{"enumerateInstanceNames root/kavex QUIRVO_ComputerSystem",
                                  "getInstance root/kavex QUIRVO_ComputerSystem.Name=\"host1\"",
                                  "enumerateInstanceNames root/kavex QUIRVO_ComputerSystem",
                                  "getInstance root/kavex QUIRVO_ComputerSystem.Name=\"host1\""}));
}

TEST_F(ZorvaUsbHcDiagTest, UseIsNotRecorded) {
    ZORVA_UsbHc_DiagTest tests(handle_);
    EXPECT_FALSE(tests.getDiagTestProperty(usbTestName, "IsInUse"));
    tests.setDiagTestProperty(usbTestName, "IsInUse", true);
    tests.setDiagTestProperty(usbTestName, "Started", true);
    EXPECT_FALSE(tests.getDiagTestProperty(usbTestName, "IsInUse"));
    EXPECT_FALSE(tests.getDiagTestProperty("no such test", "no such property"));
    EXPECT_EQ(text(tests.getTestProperty(usbTestName, "IsInUse")), "boolean FALSE");
    EXPECT_EQ(text(ZORVA_UsbHc_DiagTest(handle_).getTestProperty(usbTestName, "Started")),
              "boolean FALSE");
}

TEST_F(ZorvaUsbHcDiagTest, TestIsExclusiveByItsCharacteristics) {
    ZORVA_UsbHc_DiagTest tests(handle_);
    EXPECT_TRUE(tests.getHasCharacteristic(usbTestName, 2));
    EXPECT_TRUE(tests.getHasCharacteristic(usbTestName, 5));
    EXPECT_TRUE(tests.getHasCharacteristic(usbTestName, 8));
    EXPECT_FALSE(tests.getHasCharacteristic(usbTestName, 3));
}

TEST_F(ZorvaUsbHcDiagTest, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagTest::buildTests), 2U);
}

}  // namespace
}  // namespace Pegasus
