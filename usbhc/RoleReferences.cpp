// SPDX-License-Identifier: MIT
// The elements that the associations of the USB host-controller test lead to.
#include "usbhc/RoleReferences.h"

#include "diag/ProviderNamespace.h"
#include "diag/ZORVA_AssociationBuilder.h"
#include "usbhc/ClassNames.h"
#include "usbhc/ZORVA_UsbHc_DiagTest.h"

namespace Pegasus {

Array<CIMObjectPath> testReferences(const CIMOMHandle& handle) {
    return ZORVA_UsbHc_DiagTest(handle).enumTestReferences();
}

Array<CIMObjectPath> instanceReferences(CIMOMHandle& handle, const String& className) {
    return handle.enumerateInstanceNames(OperationContext(), CIMNamespaceName(PROVIDER_NAMESPACE),
                                         CIMName(className));
}

// What the two roles of an association are unless its class says otherwise. The framework leaves
// these two operations to the test that it is built into.

Array<CIMObjectPath> ZORVA_AssociationBuilder::getRole1References() {
    return testReferences(_handle);
}

Array<CIMObjectPath> ZORVA_AssociationBuilder::getRole2References() {
    return instanceReferences(_handle, ClassNames::MANAGED_ELEMENT);
}

}  // namespace Pegasus
