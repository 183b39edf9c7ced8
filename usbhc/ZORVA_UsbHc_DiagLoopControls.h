// SPDX-License-Identifier: MIT
// The loop settings of one run of the USB host-controller test.
#pragma once

#include "diag/ZORVA_DiagLoopControls.h"
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// Loop controls that use the result record of one test and element. One thread at a time.
class ZORVA_UsbHc_DiagLoopControls : public ZORVA_DiagLoopControls {
public:
    /// The loop controls of the result of that test for the element with that device ID.
    ZORVA_UsbHc_DiagLoopControls(String testName, String deviceId);
    ~ZORVA_UsbHc_DiagLoopControls() override;

    /// As ZORVA_DiagnosticResultBuilder::getResultProperty().
    CIMValue retrieveResultProperty(String propertyName) override;
    /// As ZORVA_DiagnosticResultBuilder::setResultProperty().
    void writeToResults(String propertyName, CIMValue value) override;

private:
    String testName_;
    String deviceId_;
    ZORVA_UsbHc_DiagResult results_;
};

}  // namespace Pegasus
