// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagResultForTest.h"

#include "diag/ZORVA_DiagUtils.h"
#include "usbhc/RoleReferences.h"

namespace Pegasus {

ZORVA_UsbHc_DiagResultForTest::ZORVA_UsbHc_DiagResultForTest(
    CIMOMHandle& handle, String associationClass, String role1Property, String role2Property,
    String role1ReferenceClass, String role2ReferenceClass, ZORVA_UsbHc_DiagResult& results) {
    describe(handle, associationClass, role1Property, role2Property, role1ReferenceClass,
             role2ReferenceClass);
    const Array<CIMObjectPath> resultPaths = results.enumResultReferences();
    const Array<CIMObjectPath> testPaths = ZORVA_UsbHc_DiagResultForTest::getRole2References();
    ZORVA_DiagUtils::DEBUG_PRINT("         In DiagResultForTest constructor \n");
    associations_ =
        ZORVA_AssociationBuilder::getAssociations(resultPaths, testPaths, "DiagnosticName", "Name");
}

ZORVA_UsbHc_DiagResultForTest::~ZORVA_UsbHc_DiagResultForTest() = default;

Array<CIMObjectPath> ZORVA_UsbHc_DiagResultForTest::getRole2References() {
    return testReferences(handle_);
}

}  // namespace Pegasus
