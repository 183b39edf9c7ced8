// SPDX-License-Identifier: MIT
// The association of tests with their software.
#pragma once

#include "diag/ZORVA_AssociationBuilder.h"

namespace Pegasus {

/// Associates every software element (role 1) with every test (role 2). Made for each request and
/// used by its thread only.
class ZORVA_UsbHc_DiagTestSoftwareAssoc : public ZORVA_AssociationBuilder {
public:
    /// An association without a name and without instances.
    ZORVA_UsbHc_DiagTestSoftwareAssoc() = default;
    /// Arguments as for ZORVA_AssociationBuilder. Calls the server to look up the host system and
    /// to enumerate the software elements; exceptions of the enumeration propagate.
    ZORVA_UsbHc_DiagTestSoftwareAssoc(CIMOMHandle& handle, String associationClass,
                                      String role1Property, String role2Property,
                                      String role1ReferenceClass, String role2ReferenceClass);
    ~ZORVA_UsbHc_DiagTestSoftwareAssoc() override;

    /// The paths of all instances of the role-1 reference class.
    Array<CIMObjectPath> getRole1References() override;
    /// The paths of all tests.
    Array<CIMObjectPath> getRole2References() override;
};

}  // namespace Pegasus
