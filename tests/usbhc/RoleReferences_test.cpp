// SPDX-License-Identifier: MIT
#include "usbhc/RoleReferences.h"

#include "diag/ZORVA_AssociationBuilder.h"
#include "tests/support/LibraryTest.h"

namespace Pegasus {
namespace {

class RoleReferences : public LibraryTest {};

TEST_F(RoleReferences, TestsAreThoseOfANewTable) {
    EXPECT_EQ(texts(testReferences(handle_)), Texts{testPathText()});
}

TEST_F(RoleReferences, InstancesAreEnumeratedInTheProvidersNamespace) {
    server_->addElement("usb1");
    server_->addElement("usb2");
    EXPECT_EQ(texts(instanceReferences(handle_, "ZORVA_UsbHc")),
              (Texts{"root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\"",
                     "root/kavex:ZORVA_UsbHc.DeviceID=\"usb2\""}));
    EXPECT_EQ(callTexts(), Texts{"enumerateInstanceNames root/kavex ZORVA_UsbHc"});
}

TEST_F(RoleReferences, ExceptionOfTheServerPropagates) {
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_INVALID_CLASS, "no"); };
    EXPECT_EQ(thrownBy<CIMException>([&] { instanceReferences(handle_, "ZORVA_UsbHc"); }), "no");
}

TEST_F(RoleReferences, DefaultRolesOfAnAssociationAreTestsAndElements) {
    server_->addElement("usb1");
    ZORVA_AssociationBuilder builder(handle_, "Assoc", "Ante", "Dep", "A", "D");
    EXPECT_EQ(texts(builder.getRole1References()), Texts{testPathText()});
    EXPECT_EQ(texts(builder.getRole2References()),
              Texts{"root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\""});
}

}  // namespace
}  // namespace Pegasus
