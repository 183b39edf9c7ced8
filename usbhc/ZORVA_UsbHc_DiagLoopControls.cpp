// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagLoopControls.h"

namespace Pegasus {

ZORVA_UsbHc_DiagLoopControls::ZORVA_UsbHc_DiagLoopControls(String testName, String deviceId)
    : testName_(testName), deviceId_(deviceId) {}

ZORVA_UsbHc_DiagLoopControls::~ZORVA_UsbHc_DiagLoopControls() = default;

CIMValue ZORVA_UsbHc_DiagLoopControls::retrieveResultProperty(String propertyName) {
    return results_.getResultProperty(testName_, deviceId_, propertyName);
}

void ZORVA_UsbHc_DiagLoopControls::writeToResults(String propertyName, CIMValue value) {
    results_.setResultProperty(testName_, deviceId_, propertyName, value);
}

}  // namespace Pegasus
