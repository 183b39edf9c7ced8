// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagTestForMSE.h"

#include "tests/support/LibraryTest.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagTestForMSE : public LibraryTest {
protected:
    ZORVA_UsbHc_DiagTestForMSE associations() {
        return ZORVA_UsbHc_DiagTestForMSE(handle_, "ZORVA_UsbHc_DiagTestForMSE", "Antecedent",
                                          "Dependent", "ZORVA_UsbHc_DiagTest", "ZORVA_UsbHc");
    }

    static Array<CIMObjectPath> paths(const Texts& texts) {
        Array<CIMObjectPath> all;
        for (const std::string& text : texts) {
            all.append(CIMObjectPath(String(text.c_str())));
        }
        return all;
    }
};

TEST_F(ZorvaUsbHcDiagTestForMSE, WithoutElementsThereAreNoAssociations) {
    EXPECT_EQ(associations().enumAssocInstances().size(), 0U);
    EXPECT_EQ(associations().enumAssocReferences().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagTestForMSE, TestIsAssociatedWithEveryElementWithTwoMoreProperties) {
    server_->addElement("usb1");
    server_->addElement("usb2");
    const Array<CIMInstance> instances = associations().enumAssocInstances();
    ASSERT_EQ(instances.size(), 2U);
    for (Uint32 i = 0; i < 2; ++i) {
        EXPECT_EQ(
            propertiesOf(instances[i]),
            (Texts{"Dependent: reference root/kavex:ZORVA_UsbHc.DeviceID=\"usb" +
                       std::to_string(i + 1) + "\"",
                   "Antecedent: reference " + testPathText(), "EstimatedTimeOfPerforming: uint32 0",
                   "IsExclusiveForMSE: boolean FALSE"}));
    }
}

TEST_F(ZorvaUsbHcDiagTestForMSE, OnlyTheFirstTestHasTheTwoMoreProperties) {
    ZORVA_UsbHc_DiagTestForMSE builder = associations();
    const auto table = builder.getTestForMSEAssociations(paths({"T.k=1", "T.k=2", "T.k=3"}),
                                                         paths({"E.k=1", "E.k=2"}));
    ASSERT_EQ(table.size(), 6U);
    for (Uint32 i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i].second.getPropertyCount(), i % 3 == 0 ? 4U : 2U) << i;
    }
    EXPECT_EQ(propertyText(table[4].second, "Antecedent"), "reference T.k=2");
    EXPECT_EQ(propertyText(table[4].second, "Dependent"), "reference E.k=2");
}

TEST_F(ZorvaUsbHcDiagTestForMSE, WithoutTestsOrElementsNoAssociationsAreMade) {
    ZORVA_UsbHc_DiagTestForMSE builder = associations();
    EXPECT_EQ(builder.getTestForMSEAssociations(paths({}), paths({"E.k=1"})).size(), 0U);
    EXPECT_EQ(builder.getTestForMSEAssociations(paths({"T.k=1"}), paths({})).size(), 0U);
    EXPECT_EQ(builder.getTestForMSEAssociations(paths({}), paths({})).size(), 0U);
}

TEST_F(ZorvaUsbHcDiagTestForMSE, EstimatedTimeIsZeroForTheKnownTestAnd1040ForAnyOther) {
    ZORVA_UsbHc_DiagTestForMSE builder;
    EXPECT_EQ(builder.getEstimatedTimeOfPerforming("UsbHc_GetUsbDeviceInformation"), 0U);
    EXPECT_EQ(builder.getEstimatedTimeOfPerforming("usbhc_getusbdeviceinformation"), 0U);
    EXPECT_EQ(builder.getEstimatedTimeOfPerforming("GetUsbDeviceInformation"), 1040U);
    EXPECT_EQ(builder.getEstimatedTimeOfPerforming(""), 1040U);
}

TEST_F(ZorvaUsbHcDiagTestForMSE, AnyOtherTestIsExclusive) {
    ZORVA_UsbHc_DiagTestForMSE builder;
    EXPECT_FALSE(builder.getIsExclusiveForMSE("UsbHc_GetUsbDeviceInformation"));
    EXPECT_FALSE(builder.getIsExclusiveForMSE("USBHC_GETUSBDEVICEINFORMATION"));
    EXPECT_TRUE(builder.getIsExclusiveForMSE("GetUsbDeviceInformation"));
    EXPECT_TRUE(builder.getIsExclusiveForMSE(""));
}

TEST_F(ZorvaUsbHcDiagTestForMSE, DefaultConstructedAssociationIsEmptyAndLogsNothing) {
    ZORVA_UsbHc_DiagTestForMSE empty;
    EXPECT_EQ(empty.enumAssocInstances().size(), 0U);
    EXPECT_EQ(folder_.take(), "");
}

TEST_F(ZorvaUsbHcDiagTestForMSE, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagTestForMSE::getRole1References), 4U);
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagTestForMSE::getRole2References), 5U);
}

}  // namespace
}  // namespace Pegasus
