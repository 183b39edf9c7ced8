// SPDX-License-Identifier: MIT
// The table of tests that this provider offers.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/ZORVA_DiagnosticTestBuilder.h"

namespace Pegasus {

/// The table of tests, with the one test "GetUsbDeviceInformation". Made for each request and used
/// by its thread only.
class ZORVA_UsbHc_DiagTest : public ZORVA_DiagnosticTestBuilder {
public:
    /// Builds the table. Calls the server to look up the host system.
    explicit ZORVA_UsbHc_DiagTest(CIMOMHandle cimom);
    ~ZORVA_UsbHc_DiagTest() override;

    /// A table of one entry. Its system names are empty if the server knows no computer system.
    Array<Pair<CIMObjectPath, CIMInstance>> buildTests() override;

    /// Always false: this test does not record its use.
    bool getDiagTestProperty(String testName, String propertyName);

    /// Does nothing: this test does not record its use.
    void setDiagTestProperty(String testName, String propertyName, bool value);

private:
    // The values of the test's "IsInUse" and "Started". Nothing sets them.
    static bool GetUsbDeviceInformation_IsInUse;
    static bool GetUsbDeviceInformation_Started;

    CIMOMHandle _cimom;
};

}  // namespace Pegasus
