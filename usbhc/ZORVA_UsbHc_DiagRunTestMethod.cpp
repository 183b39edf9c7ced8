// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagRunTestMethod.h"

#include <utility>

#include <Pegasus/Common/CIMDateTime.h>

#include "diag/InstanceProperties.h"
#include "diag/LogValue.h"
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

// The value of "Characteristics" for a test that must run alone.
constexpr Uint16 exclusiveCharacteristic = 2;

}  // namespace

ZORVA_UsbHc_DiagRunTestMethod::ZORVA_UsbHc_DiagRunTestMethod(CIMOMHandle& handle, String testName,
                                                             Array<CIMParamValue> inParameters)
    : ZORVA_DiagRunTestMethod(handle, testName, inParameters) {}

ZORVA_UsbHc_DiagRunTestMethod::~ZORVA_UsbHc_DiagRunTestMethod() = default;

Boolean ZORVA_UsbHc_DiagRunTestMethod::doResultsExist() {
    return results_.checkForTestResult(handle_, testName_, deviceId_, true);
}

CIMValue ZORVA_UsbHc_DiagRunTestMethod::retrieveResultProperty(String propertyName) {
    return results_.getResultProperty(testName_, deviceId_, propertyName);
}

CIMObjectPath ZORVA_UsbHc_DiagRunTestMethod::retrieveResultReference() {
    return results_.getTestResultReference(testName_, deviceId_);
}

void ZORVA_UsbHc_DiagRunTestMethod::writeToResults(String propertyName, CIMValue value) {
    results_.setResultProperty(testName_, deviceId_, propertyName, value);
}

void ZORVA_UsbHc_DiagRunTestMethod::writeTestResults(String line) {
    results_.setResultPropertyTestResults(testName_, deviceId_, line);
}

Uint32 ZORVA_UsbHc_DiagRunTestMethod::verifyMSE() {
    ZORVA_InParameterHandler parameters(inParameters_);
    const CIMInstance element =
        parameters.getInParameterInstance(handle_, parameters.getInParameterValue("SystemElement"));
    if (!hasProperties(element)) {
        return return_code::noSuchElement;
    }
    propertyValueOf(element, "DeviceID").get(deviceId_);
    ZORVA_DiagUtils::DEBUG_PRINT(String("         DeviceID is: ") + logValue(deviceId_) + " \n");
    return return_code::success;
}

Uint32 ZORVA_UsbHc_DiagRunTestMethod::verifyExclusivity() {
    ZORVA_UsbHc_DiagTest tests(handle_);
    ExclusivityFacts facts = {};
    facts.isInUse = tests.getDiagTestProperty(testName_, "IsInUse");
    // Only for a test in use: getHasCharacteristic() throws for an unknown test, which must run.
    facts.isExclusive =
        facts.isInUse && tests.getHasCharacteristic(testName_, exclusiveCharacteristic);
    facts.isExclusiveForElement = ZORVA_UsbHc_DiagTestForMSE().getIsExclusiveForMSE(testName_);
    return checkExclusivity(facts, mse_test_assoc, deviceId_, testName_);
}

Uint32 ZORVA_UsbHc_DiagRunTestMethod::executeTest() {
    ZORVA_DiagUtils::DEBUG_PRINT("         in executeTest \n");
    ZORVA_UsbHc_DiagTest tests(handle_);
    tests.setDiagTestProperty(testName_, "IsInUse", true);

    writeToResults("TestState", CIMValue(test_state::inProgress));
    const CIMValue start(ZORVA_DiagUtils::getCurrentDateTime());
    writeToResults("TestStartTime", start);
    writeToResults("TimeStamp", start);

    // Only for its exceptions: settings that cannot be read end the run. Loops are not run yet.
    ZORVA_UsbHc_DiagLoopControls(testName_, deviceId_).getThisTestLoopControl();
    if (String::equalNoCase(testName_, deviceInformationTestName)) {
        UsbHc_GetUsbDeviceInformation(std::string());
    }

    ZORVA_DiagUtils::DEBUG_PRINT("      TEST COMPLETE \n");
    const CIMValue end(ZORVA_DiagUtils::getCurrentDateTime());
    writeToResults("TestCompletionTime", end);
    writeToResults("TimeStamp", end);

    tests.setDiagTestProperty(testName_, "IsInUse", false);
    forgetExclusiveRun(mse_test_assoc, deviceId_, testName_);
    return return_code::success;
}

}  // namespace Pegasus
