// SPDX-License-Identifier: MIT
// The method "RunTest", as far as it is the same for every test.
#include "diag/ZORVA_DiagRunTestMethod.h"

#include "diag/ProviderNamespace.h"
#include "diag/ReturnCode.h"
#include "diag/TestState.h"
#include "diag/ZORVA_DiagUtils.h"
#include "diag/ZORVA_InParameterHandler.h"

namespace Pegasus {

ExclusiveRuns ZORVA_DiagRunTestMethod::mse_test_assoc;

ZORVA_DiagRunTestMethod::ZORVA_DiagRunTestMethod(CIMOMHandle& handle, String testName,
                                                 Array<CIMParamValue> inParameters)
    : _handle(handle), _testName(testName), _inParameters(inParameters) {}

ZORVA_DiagRunTestMethod::~ZORVA_DiagRunTestMethod() = default;

CIMValue ZORVA_DiagRunTestMethod::processTest(Array<CIMParamValue>& outParameters) {
    if (const Uint32 code = verifyMSE()) {
        return CIMValue(code);
    }
    if (!doResultsExist()) {
        return CIMValue(ReturnCode::NO_RESULT_RECORD);
    }
    if (retrieveResultProperty("TestState") == CIMValue(TestState::IN_PROGRESS)) {
        return CIMValue(ReturnCode::TEST_IN_PROGRESS);
    }
    if (const Uint32 code = verifySettings()) {
        return CIMValue(code);
    }
    if (const Uint32 code = verifyExclusivity()) {
        return CIMValue(code);
    }
    CIMObjectPath reference = retrieveResultReference();
    reference.setNameSpace(CIMNamespaceName(PROVIDER_NAMESPACE));
    outParameters.append(CIMParamValue("Result", CIMValue(reference), true));
    return CIMValue(executeTest());
}

Uint32 ZORVA_DiagRunTestMethod::verifyMSE() {
    return ReturnCode::SUCCESS;
}

Uint32 ZORVA_DiagRunTestMethod::verifyExclusivity() {
    return ReturnCode::SUCCESS;
}

Uint32 ZORVA_DiagRunTestMethod::executeTest() {
    return ReturnCode::SUCCESS;
}

Uint32 ZORVA_DiagRunTestMethod::verifySettings() {
    ZORVA_DiagUtils::DEBUG_PRINT("         in verifySettings \n");
    ZORVA_InParameterHandler parameters(_inParameters);
    const CIMValue value = parameters.getInParameterValue("Setting");
    if (!parameters.isParamTypeReference(value)) {
        return ReturnCode::SUCCESS;
    }
    CIMInstance setting = parameters.getInParameterInstance(_handle, value);
    if (setting.isUninitialized()) {
        return ReturnCode::SUCCESS;
    }
    for (const char* name :
         {"QuickMode", "TestWarningLevel", "ReportSoftErrors", "ReportStatusMessages",
          "PercentOfTestCoverage", "HaltOnError", "LoopControl", "LoopControlParameter",
          "OtherLoopControlDescription"}) {
        putSettingInResult(setting, name);
    }
    return ReturnCode::SUCCESS;
}

void ZORVA_DiagRunTestMethod::putSettingInResult(CIMInstance& setting, String propertyName) {
    const Uint32 position = setting.findProperty(CIMName(propertyName));
    if (position != PEG_NOT_FOUND) {
        writeToResults(propertyName, setting.getProperty(position).getValue());
    }
}

}  // namespace Pegasus
