// SPDX-License-Identifier: MIT
// The association of results with managed elements.
#pragma once

#include "diag/ZORVA_AssociationBuilder.h"
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// Associates every result (role 1) with every managed element (role 2), not only with the element
/// that was tested. Made for each request and used by its thread only.
class ZORVA_UsbHc_DiagResultForMSE : public ZORVA_AssociationBuilder {
public:
    /// An association without a name and without instances.
    ZORVA_UsbHc_DiagResultForMSE() = default;
    /// Arguments as for ZORVA_AssociationBuilder, and the results to associate. Calls the server to
    /// enumerate the elements; exceptions of that call propagate.
    ZORVA_UsbHc_DiagResultForMSE(CIMOMHandle& handle, String associationClass, String role1Property,
                                 String role2Property, String role1ReferenceClass,
                                 String role2ReferenceClass, ZORVA_UsbHc_DiagResult& results);
    ~ZORVA_UsbHc_DiagResultForMSE() override;

    /// The paths of all managed elements.
    Array<CIMObjectPath> getRole2References() override;
};

}  // namespace Pegasus
