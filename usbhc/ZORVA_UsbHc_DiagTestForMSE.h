// SPDX-License-Identifier: MIT
// The association of tests with the managed elements that they can run against.
#pragma once

#include "diag/ZORVA_AssociationBuilder.h"

namespace Pegasus {

/// Associates every test (role 1) with every managed element (role 2), and says how long a test
/// takes and whether it must run alone on an element. Made afresh for each request, on one thread.
class ZORVA_UsbHc_DiagTestForMSE : public ZORVA_AssociationBuilder {
public:
    /// An association without a name and without instances.
    ZORVA_UsbHc_DiagTestForMSE() = default;
    /// Arguments as of ZORVA_AssociationBuilder. Asks the server for the host system and the
    /// elements; exceptions of the latter pass.
    ZORVA_UsbHc_DiagTestForMSE(CIMOMHandle& handle, String associationClass, String role1Property,
                               String role2Property, String role1ReferenceClass,
                               String role2ReferenceClass);
    ~ZORVA_UsbHc_DiagTestForMSE() override;

    /// The paths of all tests.
    Array<CIMObjectPath> getRole1References() override;
    /// The paths of all managed elements.
    Array<CIMObjectPath> getRole2References() override;

    /// The associations of every pair, as getAssociations() makes them. Those of the first test
    /// also carry "EstimatedTimeOfPerforming" and "IsExclusiveForMSE", behind the references.
    Array<Pair<CIMObjectPath, CIMInstance>> getTestForMSEAssociations(
        Array<CIMObjectPath> tests, Array<CIMObjectPath> elements);

    /// The estimated time of "UsbHc_GetUsbDeviceInformation" (ignoring case), which is 0; 1040 for
    /// any other test.
    Uint32 getEstimatedTimeOfPerforming(String testName);

    /// Whether the test must run alone on an element: false for "UsbHc_GetUsbDeviceInformation"
    /// (ignoring case), true for any other test.
    Boolean getIsExclusiveForMSE(String testName);

private:
    Uint32 estimatedTimeOfPerforming_ = 0;
    Boolean isExclusiveForMSE_ = false;
};

}  // namespace Pegasus
