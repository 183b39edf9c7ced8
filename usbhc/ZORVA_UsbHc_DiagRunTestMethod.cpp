// SPDX-License-Identifier: MIT
// The method "RunTest" of the USB host-controller test.
#include "usbhc/ZORVA_UsbHc_DiagRunTestMethod.h"

#include <utility>

#include <Pegasus/Common/CIMDateTime.h>

#include "diag/InstanceProperties.h"
#include "diag/ReturnCode.h"
#include "diag/TestState.h"
#include "diag/ZORVA_DiagUtils.h"
#include "diag/ZORVA_InParameterHandler.h"
#include "usbhc/ClassNames.h"
#include "usbhc/ZORVA_UsbHc_DiagLoopControls.h"
#include "usbhc/ZORVA_UsbHc_DiagTest.h"
#include "usbhc/ZORVA_UsbHc_DiagTestForMSE.h"

namespace Pegasus {
namespace {

// The value of "Characteristics" that marks a test which must run alone.
constexpr Uint16 IS_EXCLUSIVE = 2;

}  // namespace

ZORVA_UsbHc_DiagRunTestMethod::ZORVA_UsbHc_DiagRunTestMethod(CIMOMHandle& handle, String testName,
                                                             Array<CIMParamValue> inParameters)
    : ZORVA_DiagRunTestMethod(handle, testName, inParameters) {}

ZORVA_UsbHc_DiagRunTestMethod::~ZORVA_UsbHc_DiagRunTestMethod() = default;

Boolean ZORVA_UsbHc_DiagRunTestMethod::doResultsExist() {
    return results_.checkForTestResult(_handle, _testName, _deviceId, true);
}

CIMValue ZORVA_UsbHc_DiagRunTestMethod::retrieveResultProperty(String propertyName) {
    return results_.getResultProperty(_testName, _deviceId, propertyName);
}

CIMObjectPath ZORVA_UsbHc_DiagRunTestMethod::retrieveResultReference() {
    return results_.getTestResultReference(_testName, _deviceId);
}

void ZORVA_UsbHc_DiagRunTestMethod::writeToResults(String propertyName, CIMValue value) {
    results_.setResultProperty(_testName, _deviceId, propertyName, value);
}

void ZORVA_UsbHc_DiagRunTestMethod::writeTestResults(String line) {
    results_.setResultPropertyTestResults(_testName, _deviceId, line);
}

Uint32 ZORVA_UsbHc_DiagRunTestMethod::verifyMSE() {
    ZORVA_InParameterHandler parameters(_inParameters);
    const CIMInstance element =
        parameters.getInParameterInstance(_handle, parameters.getInParameterValue("SystemElement"));
    if (!hasProperties(element)) {
        return ReturnCode::NO_SUCH_ELEMENT;
    }
    propertyValueOf(element, "DeviceID").get(_deviceId);
    ZORVA_DiagUtils::DEBUG_PRINT(String("         DeviceID is: ") + _deviceId + " \n");
    return ReturnCode::SUCCESS;
}

Uint32 ZORVA_UsbHc_DiagRunTestMethod::verifyExclusivity() {
    ZORVA_UsbHc_DiagTest tests(_handle);
    ExclusivityFacts facts = {};
    facts.isInUse = tests.getDiagTestProperty(_testName, "IsInUse");
    // Asked of a test in use alone: a name that is in no table must not end the request here.
    facts.isExclusive = facts.isInUse && tests.getHasCharacteristic(_testName, IS_EXCLUSIVE);
    facts.isExclusiveForElement = ZORVA_UsbHc_DiagTestForMSE().getIsExclusiveForMSE(_testName);
    return checkExclusivity(facts, mse_test_assoc, _deviceId, _testName);
}

Uint32 ZORVA_UsbHc_DiagRunTestMethod::executeTest() {
    ZORVA_DiagUtils::DEBUG_PRINT("         in executeTest \n");
    ZORVA_UsbHc_DiagTest tests(_handle);
    tests.setDiagTestProperty(_testName, "IsInUse", true);

    writeToResults("TestState", CIMValue(TestState::IN_PROGRESS));
    const CIMValue start(ZORVA_DiagUtils::getCurrentDateTime());
    writeToResults("TestStartTime", start);
    writeToResults("TimeStamp", start);

    // Settings that cannot be read end the run here; what they say does not matter yet.
    ZORVA_UsbHc_DiagLoopControls(_testName, _deviceId).getThisTestLoopControl();
    if (String::equalNoCase(_testName, GET_USB_DEVICE_INFORMATION)) {
        UsbHc_GetUsbDeviceInformation(std::string());
    }

    ZORVA_DiagUtils::DEBUG_PRINT("      TEST COMPLETE \n");
    const CIMValue end(ZORVA_DiagUtils::getCurrentDateTime());
    writeToResults("TestCompletionTime", end);
    writeToResults("TimeStamp", end);

    tests.setDiagTestProperty(_testName, "IsInUse", false);
    forgetExclusiveRun(mse_test_assoc, _deviceId, _testName);
    return ReturnCode::SUCCESS;
}

}  // namespace Pegasus
