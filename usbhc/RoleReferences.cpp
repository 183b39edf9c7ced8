// SPDX-License-Identifier: MIT
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
    return handle.enumerateInstanceNames(OperationContext(), CIMNamespaceName(providerNamespace),
                                         CIMName(className));
}

// What the two roles of an association are unless its class says otherwise. The framework leaves
// these two operations to the test that it is built into.

Array<CIMObjectPath> ZORVA_AssociationBuilder::getRole1References() {
    return testReferences(handle_);
}

Array<CIMObjectPath> ZORVA_AssociationBuilder::getRole2References() {
    return instanceReferences(handle_, class_names::managedElement);
}

}  // namespace Pegasus
