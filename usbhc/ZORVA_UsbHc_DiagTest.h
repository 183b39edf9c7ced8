// SPDX-License-Identifier: MIT
// The test that this provider offers.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/ZORVA_DiagnosticTestBuilder.h"

namespace Pegasus {

/// The table of the one test, "GetUsbDeviceInformation". Made afresh for each request, on one
/// thread.
class ZORVA_UsbHc_DiagTest : public ZORVA_DiagnosticTestBuilder {
public:
    /// Builds the table; asks the server for the host system.
    explicit ZORVA_UsbHc_DiagTest(CIMOMHandle cimom);
    ~ZORVA_UsbHc_DiagTest() override;

    /// The table of tests: one entry, with empty system names where the server knows no system.
    Array<Pair<CIMObjectPath, CIMInstance>> buildTests() override;

    /// False, whatever is asked: this test does not record its use.
    bool getDiagTestProperty(String testName, String propertyName);

    /// Does nothing: this test does not record its use.
    void setDiagTestProperty(String testName, String propertyName, bool value);

private:
    // What "IsInUse" and "Started" of the test show. Nothing sets them.
    static bool GetUsbDeviceInformation_IsInUse;
    static bool GetUsbDeviceInformation_Started;

    CIMOMHandle _cimom;
};

}  // namespace Pegasus
