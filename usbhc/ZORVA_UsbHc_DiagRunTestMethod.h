// SPDX-License-Identifier: MIT
// The method "RunTest" of the USB host-controller test.
#pragma once

#include <string>

#include "diag/ZORVA_DiagRunTestMethod.h"
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// One call of RunTest: checks the element, maintains the result record, runs the device
/// information test. One object serves one call on one thread, and no two calls overlap.
class ZORVA_UsbHc_DiagRunTestMethod : public ZORVA_DiagRunTestMethod {
public:
    /// Arguments as for ZORVA_DiagRunTestMethod.
    ZORVA_UsbHc_DiagRunTestMethod(CIMOMHandle& handle, String testName,
                                  Array<CIMParamValue> inParameters);
    ~ZORVA_UsbHc_DiagRunTestMethod() override;

    // These act on the record of this test and element in the result table, as the operations of
    // ZORVA_DiagnosticResultBuilder do. doResultsExist() replaces an existing record by a new one.
    Boolean doResultsExist() override;
    CIMValue retrieveResultProperty(String propertyName) override;
    CIMObjectPath retrieveResultReference() override;
    void writeToResults(String propertyName, CIMValue value) override;
    void writeTestResults(String line) override;

    /// Fetches the instance that the in-parameter "SystemElement" refers to, and takes its
    /// "DeviceID". Returns 0, or 1044 if there is no such instance or it has no properties. Throws
    /// NoSuchProperty "DeviceID" if the instance has none, TypeMismatchException if that is no
    /// string.
    Uint32 verifyMSE() override;

    /// Returns 0 if the test may run, 1034 if an exclusive test is running on the element. Always 0
    /// in practice, since this test does not record its use.
    Uint32 verifyExclusivity() override;

    /// Marks the record in progress, runs the test once, ignoring the loop settings, and records
    /// the times. Tests other than "GetUsbDeviceInformation" (ignoring case) do nothing. Returns 0:
    /// a failed test is recorded in its result. Throws what getThisTestLoopControl() throws; the
    /// record then stays in progress.
    Uint32 executeTest() override;

    /// The device information test: reads the kernel's USB device list, writes a block of lines for
    /// each device to the report and marks the record passed, even if the list is empty or missing.
    ///
    /// @param text only written to the debug log
    void UsbHc_GetUsbDeviceInformation(std::string text);

private:
    ZORVA_UsbHc_DiagResult results_;
};

}  // namespace Pegasus
