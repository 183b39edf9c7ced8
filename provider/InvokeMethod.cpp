// SPDX-License-Identifier: MIT
// The method operations of the provider.
#include <Pegasus/Provider/ProviderExceptions.h>

#include "diag/PathKeys.h"
#include "diag/TestState.h"
#include "diag/ZORVA_DiagUtils.h"
#include "diag/ZORVA_InParameterHandler.h"
#include "provider/ZORVA_UsbHc_DiagProvider.h"
#include "usbhc/ZORVA_UsbHc_DiagRunTestMethod.h"

namespace Pegasus {

void ZORVA_UsbHc_DiagProvider::invokeMethod(const OperationContext& /*context*/,
                                            const CIMObjectPath& ref, const String& methodName,
                                            const Array<CIMParamValue>& inParameters,
                                            Array<CIMParamValue>& outParameters,
                                            ResponseHandler<CIMValue>& handler) {
    ZORVA_DiagUtils::DEBUG_PRINT("\n\n\nIn Invoke Method\n");
    handler.processing();
    if (String::equalNoCase(ref.getClassName().getString(), DIAG_TEST)) {
        const String testName = firstKeyValue(ref, "Name");
        if (String::equalNoCase(methodName, "RunTest")) {
            ZORVA_UsbHc_DiagRunTestMethod run(_cimom, testName, inParameters);
            handler.deliver(run.processTest(outParameters));
        } else if (String::equalNoCase(methodName, "ClearResults")) {
            handler.deliver(_diagResult->clearResultElement(testName, inParameters, outParameters));
        } else if (String::equalNoCase(methodName, "DiscontinueTest")) {
            discontinueTest(testName, inParameters, outParameters);
        } else if (String::equalNoCase(methodName, "StartService")) {
            ZORVA_DiagUtils::DEBUG_PRINT("      In invokeMethod StartService\n");
            throw NotSupported("ZORVA_UsbHc_DiagProvider::StartService");
        } else if (String::equalNoCase(methodName, "StopService")) {
            ZORVA_DiagUtils::DEBUG_PRINT("      In invokeMethod StopService\n");
            throw NotSupported("ZORVA_UsbHc_DiagProvider::StopService");
        }
    }
    handler.complete();
}

// Only the record is changed; a running test is not stopped. A null reference names no element, so
// there is no record to change.
void ZORVA_UsbHc_DiagProvider::discontinueTest(const String& testName,
                                               const Array<CIMParamValue>& inParameters,
                                               Array<CIMParamValue>& outParameters) {
    ZORVA_DiagUtils::DEBUG_PRINT("      In invokeMethod DiscontinueTest\n");
    const CIMValue value =
        ZORVA_InParameterHandler(inParameters).getInParameterValue("SystemElement");
    CIMObjectPath element;
    value.get(element);
    const String deviceId = firstKeyValue(element, "DeviceID");
    if (!value.isNull() && _diagResult->getRefInstIndex(testName, deviceId) !=
                               ZORVA_DiagnosticResultBuilder::resultNotFound) {
        _diagResult->setResultProperty(testName, deviceId, "TestState",
                                       CIMValue(test_state::stopped));
    }
    outParameters.append(CIMParamValue("TestingStopped", CIMValue(Boolean(true)), true));
}

}  // namespace Pegasus
