// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagTestSoftwareAssoc.h"

#include "tests/support/LibraryTest.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagTestSoftwareAssoc : public LibraryTest {
protected:
    ZORVA_UsbHc_DiagTestSoftwareAssoc associations(const char* softwareClass) {
        return ZORVA_UsbHc_DiagTestSoftwareAssoc(handle_, "ZORVA_UsbHc_DiagTestSoftwareAssoc",
                                                 "Antecedent", "Dependent", softwareClass,
                                                 "ZORVA_UsbHc_DiagTest");
    }
};

TEST_F(ZorvaUsbHcDiagTestSoftwareAssoc, SoftwareIsAssociatedWithTheTest) {
    const Array<CIMInstance> instances =
        associations("ZORVA_UsbHc_TestSoftware").enumAssocInstances();
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(propertiesOf(instances[0]),
              (Texts{"Dependent: reference " + testPathText(),
                     "Antecedent: reference "
                     "root/kavex:ZORVA_UsbHc_TestSoftware.Name=\"usbhc-diagnostics\""}));
}

TEST_F(ZorvaUsbHcDiagTestSoftwareAssoc, SoftwareIsThatOfTheRole1ReferenceClass) {
    server_->add("OtherSoftware", "Name", "other");
    const Array<CIMInstance> instances = associations("OtherSoftware").enumAssocInstances();
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(propertyText(instances[0], "Antecedent"),
              "reference root/kavex:OtherSoftware.Name=\"other\"");
    EXPECT_EQ(associations("NoSoftware").enumAssocInstances().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagTestSoftwareAssoc, ExceptionOfTheServerPropagatesFromTheConstructor) {
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_INVALID_CLASS, "no"); };
    EXPECT_EQ(thrownBy<CIMException>([&] { associations("ZORVA_UsbHc_TestSoftware"); }), "no");
}

TEST_F(ZorvaUsbHcDiagTestSoftwareAssoc, DefaultConstructedAssociationIsEmpty) {
    ZORVA_UsbHc_DiagTestSoftwareAssoc empty;
    EXPECT_EQ(empty.enumAssocInstances().size(), 0U);
}

TEST_F(ZorvaUsbHcDiagTestSoftwareAssoc, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagTestSoftwareAssoc::getRole1References), 4U);
    EXPECT_EQ(slotOf(&ZORVA_UsbHc_DiagTestSoftwareAssoc::getRole2References), 5U);
}

}  // namespace
}  // namespace Pegasus
