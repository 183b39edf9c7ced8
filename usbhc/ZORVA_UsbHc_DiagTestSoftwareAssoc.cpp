// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagTestSoftwareAssoc.h"

#include "usbhc/RoleReferences.h"

namespace Pegasus {

ZORVA_UsbHc_DiagTestSoftwareAssoc::ZORVA_UsbHc_DiagTestSoftwareAssoc(
    CIMOMHandle& handle, String associationClass, String role1Property, String role2Property,
    String role1ReferenceClass, String role2ReferenceClass) {
    describe(handle, associationClass, role1Property, role2Property, role1ReferenceClass,
             role2ReferenceClass);
    const Array<CIMObjectPath> software = ZORVA_UsbHc_DiagTestSoftwareAssoc::getRole1References();
    const Array<CIMObjectPath> tests = ZORVA_UsbHc_DiagTestSoftwareAssoc::getRole2References();
    associations_ = ZORVA_AssociationBuilder::getAssociations(software, tests);
}

ZORVA_UsbHc_DiagTestSoftwareAssoc::~ZORVA_UsbHc_DiagTestSoftwareAssoc() = default;

Array<CIMObjectPath> ZORVA_UsbHc_DiagTestSoftwareAssoc::getRole1References() {
    return instanceReferences(handle_, role1ReferenceClass_);
}

Array<CIMObjectPath> ZORVA_UsbHc_DiagTestSoftwareAssoc::getRole2References() {
    return testReferences(handle_);
}

}  // namespace Pegasus
