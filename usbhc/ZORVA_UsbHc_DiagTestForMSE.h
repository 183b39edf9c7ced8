// SPDX-License-Identifier: MIT
// The association of tests with the managed elements that they can run on.
#pragma once

#include "diag/ZORVA_AssociationBuilder.h"

namespace Pegasus {

/// Associates every test (role 1) with every managed element (role 2), and tells how long a test
/// takes and whether it must run alone on an element. Made for each request and used by its thread
/// only.
class ZORVA_UsbHc_DiagTestForMSE : public ZORVA_AssociationBuilder {
public:
    /// An association without a name and without instances.
    ZORVA_UsbHc_DiagTestForMSE() = default;
    /// Arguments as for ZORVA_AssociationBuilder. Calls the server to look up the host system and
    /// to enumerate the elements; exceptions of the enumeration propagate.
    ZORVA_UsbHc_DiagTestForMSE(CIMOMHandle& handle, String associationClass, String role1Property,
                               String role2Property, String role1ReferenceClass,
                               String role2ReferenceClass);
    ~ZORVA_UsbHc_DiagTestForMSE() override;

    /// The paths of all tests.
    Array<CIMObjectPath> getRole1References() override;
    /// The paths of all managed elements.
    Array<CIMObjectPath> getRole2References() override;

    /// The associations of all pairs, as getAssociations() makes them. Those of the first test also
    /// have "EstimatedTimeOfPerforming" and "IsExclusiveForMSE", after the references.
    Array<Pair<CIMObjectPath, CIMInstance>> getTestForMSEAssociations(
        Array<CIMObjectPath> tests, Array<CIMObjectPath> elements);

    /// The estimated time of a test: 0 for "UsbHc_GetUsbDeviceInformation" (ignoring case), 1040
    /// for any other test.
    Uint32 getEstimatedTimeOfPerforming(String testName);

    /// Whether the test must run alone on an element: false for "UsbHc_GetUsbDeviceInformation"
    /// (ignoring case), true for any other test.
    Boolean getIsExclusiveForMSE(String testName);

private:
    Uint32 estimatedTimeOfPerforming_ = 0;
    Boolean isExclusiveForMSE_ = false;
};

}  // namespace Pegasus
