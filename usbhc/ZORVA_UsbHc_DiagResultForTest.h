// SPDX-License-Identifier: MIT
// The association of results with their tests.
#pragma once

#include "diag/ZORVA_AssociationBuilder.h"
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// Associates each result (role 1) with the tests (role 2) whose "Name" key equals its
/// "DiagnosticName" key, ignoring case. Made for each request and used by its thread only.
class ZORVA_UsbHc_DiagResultForTest : public ZORVA_AssociationBuilder {
public:
    /// An association without a name and without instances.
    ZORVA_UsbHc_DiagResultForTest() = default;
    /// Arguments as for ZORVA_AssociationBuilder, and the results to associate. Calls the server to
    /// look up the host system.
    ZORVA_UsbHc_DiagResultForTest(CIMOMHandle& handle, String associationClass,
                                  String role1Property, String role2Property,
                                  String role1ReferenceClass, String role2ReferenceClass,
                                  ZORVA_UsbHc_DiagResult& results);
    ~ZORVA_UsbHc_DiagResultForTest() override;

    /// The paths of all tests.
    Array<CIMObjectPath> getRole2References() override;
};

}  // namespace Pegasus
