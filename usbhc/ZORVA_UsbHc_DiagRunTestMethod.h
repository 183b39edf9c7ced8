// SPDX-License-Identifier: MIT
// The method "RunTest" of the USB host-controller test.
#pragma once

#include <string>

#include "diag/ZORVA_DiagRunTestMethod.h"
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// One call of RunTest: checks the element, keeps the result record, runs the device information
/// test. One object serves one call on one thread, and no two calls overlap.
class ZORVA_UsbHc_DiagRunTestMethod : public ZORVA_DiagRunTestMethod {
public:
    /// Arguments as of ZORVA_DiagRunTestMethod.
    ZORVA_UsbHc_DiagRunTestMethod(CIMOMHandle& handle, String testName,
                                  Array<CIMParamValue> inParameters);
    ~ZORVA_UsbHc_DiagRunTestMethod() override;

    // The record of this test and element in the result table, by the operations of
    // ZORVA_DiagnosticResultBuilder of a like name. doResultsExist() replaces a record that is
    // there by a fresh one.
    Boolean doResultsExist() override;
    CIMValue retrieveResultProperty(String propertyName) override;
    CIMObjectPath retrieveResultReference() override;
    void writeToResults(String propertyName, CIMValue value) override;
    void writeTestResults(String line) override;

    /// Fetches the instance of the in-parameter "SystemElement" and takes its "DeviceID": 0, or
    /// 1044 if there is no such instance or it has no properties. Throws NoSuchProperty "DeviceID"
    /// for an instance without one, TypeMismatchException for one that is no string.
    Uint32 verifyMSE() override;

    /// Whether the test may run: 0, or 1034 while an exclusive test runs on the element. This
    /// test records no use, so it may always run.
    Uint32 verifyExclusivity() override;

    /// Marks the record in progress, runs the test of this name (no other than
    /// "GetUsbDeviceInformation", ignoring case, does anything) once, whatever the loop settings
    /// say, and stamps the times. Returns 0: a test that fails says so in its record.
    Uint32 executeTest() override;

    /// The device information test: reads the kernel's USB device list, writes a block of lines
    /// for every device into the report and marks the record passed, whatever the list holds.
    ///
    /// @param text only goes to the debug log
    void UsbHc_GetUsbDeviceInformation(std::string text);

private:
    ZORVA_UsbHc_DiagResult results_;
};

}  // namespace Pegasus
