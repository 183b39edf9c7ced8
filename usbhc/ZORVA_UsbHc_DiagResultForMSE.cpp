// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagResultForMSE.h"

#include "usbhc/ClassNames.h"
#include "usbhc/RoleReferences.h"

namespace Pegasus {

ZORVA_UsbHc_DiagResultForMSE::ZORVA_UsbHc_DiagResultForMSE(
    CIMOMHandle& handle, String associationClass, String role1Property, String role2Property,
    String role1ReferenceClass, String role2ReferenceClass, ZORVA_UsbHc_DiagResult& results) {
    describe(handle, associationClass, role1Property, role2Property, role1ReferenceClass,
             role2ReferenceClass);
    const Array<CIMObjectPath> resultPaths = results.enumResultReferences();
    const Array<CIMObjectPath> elements = ZORVA_UsbHc_DiagResultForMSE::getRole2References();
    associations_ = ZORVA_AssociationBuilder::getAssociations(resultPaths, elements);
}

ZORVA_UsbHc_DiagResultForMSE::~ZORVA_UsbHc_DiagResultForMSE() = default;

Array<CIMObjectPath> ZORVA_UsbHc_DiagResultForMSE::getRole2References() {
    return instanceReferences(handle_, class_names::managedElement);
}

}  // namespace Pegasus
