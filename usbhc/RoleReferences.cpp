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

// The default roles of an association. They are defined here because the framework knows no classes
// of a test.

Array<CIMObjectPath> ZORVA_AssociationBuilder::getRole1References() {
    return testReferences(handle_);
}

Array<CIMObjectPath> ZORVA_AssociationBuilder::getRole2References() {
    return instanceReferences(handle_, class_names::managedElement);
}

}  // namespace Pegasus
