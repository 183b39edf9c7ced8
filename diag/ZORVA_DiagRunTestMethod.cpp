// SPDX-License-Identifier: MIT
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
    : handle_(handle), testName_(testName), inParameters_(inParameters) {}

ZORVA_DiagRunTestMethod::~ZORVA_DiagRunTestMethod() = default;

CIMValue ZORVA_DiagRunTestMethod::processTest(Array<CIMParamValue>& outParameters) {
    if (const Uint32 code = verifyMSE()) {
        return CIMValue(code);
    }
    if (!doResultsExist()) {
        return CIMValue(return_code::noResultRecord);
    }
    if (retrieveResultProperty("TestState") == CIMValue(test_state::inProgress)) {
        return CIMValue(return_code::testInProgress);
    }
    if (const Uint32 code = verifySettings()) {
        return CIMValue(code);
    }
    if (const Uint32 code = verifyExclusivity()) {
        return CIMValue(code);
    }
    CIMObjectPath reference = retrieveResultReference();
    reference.setNameSpace(CIMNamespaceName(providerNamespace));
    outParameters.append(CIMParamValue("Result", CIMValue(reference), true));
    return CIMValue(executeTest());
}

Uint32 ZORVA_DiagRunTestMethod::verifyMSE() {
    return return_code::success;
}

Uint32 ZORVA_DiagRunTestMethod::verifyExclusivity() {
    return return_code::success;
}

Uint32 ZORVA_DiagRunTestMethod::executeTest() {
    return return_code::success;
}

Uint32 ZORVA_DiagRunTestMethod::verifySettings() {
    ZORVA_DiagUtils::DEBUG_PRINT("         in verifySettings \n");
    ZORVA_InParameterHandler parameters(inParameters_);
    const CIMValue value = parameters.getInParameterValue("Setting");
    if (!parameters.isParamTypeReference(value)) {
        return return_code::success;
    }
    CIMInstance setting = parameters.getInParameterInstance(handle_, value);
    if (setting.isUninitialized()) {
        return return_code::success;
    }
    for (const char* name :
         {"QuickMode", "TestWarningLevel", "ReportSoftErrors", "ReportStatusMessages",
          "PercentOfTestCoverage", "HaltOnError", "LoopControl", "LoopControlParameter",
          "OtherLoopControlDescription"}) {
        putSettingInResult(setting, name);
    }
    return return_code::success;
}

void ZORVA_DiagRunTestMethod::putSettingInResult(CIMInstance& setting, String propertyName) {
    const Uint32 position = setting.findProperty(CIMName(propertyName));
    if (position != PEG_NOT_FOUND) {
        writeToResults(propertyName, setting.getProperty(position).getValue());
    }
}

}  // namespace Pegasus
