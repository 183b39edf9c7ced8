// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

#include <Pegasus/Provider/KeyBinding.h>

#include "diag/InstanceProperties.h"
#include "diag/PathKeys.h"
#include "diag/ZORVA_DiagUtils.h"
#include "diag/ZORVA_SystemInfo.h"
#include "usbhc/ClassNames.h"
#include "usbhc/HostSystem.h"

namespace Pegasus {

ZORVA_UsbHc_DiagResult::~ZORVA_UsbHc_DiagResult() = default;

void ZORVA_UsbHc_DiagResult::buildTestResult(CIMOMHandle handle, String diagnosticName,
                                             String executionId) {
    ZORVA_DiagUtils::DEBUG_PRINT("      In ZORVA_UsbHc_DiagResult::buildTestResult\n");
    ZORVA_DiagUtils::DEBUG_PRINT("      btr point 1 \n");
    const HostSystem system = hostSystemOf(ZORVA_SystemInfo().getSystemInfo(handle));

    CIMInstance instance(class_names::result);
    addProperty(instance, "DiagnosticName", CIMValue(diagnosticName));
    addProperty(instance, "DiagnosticCreationClassName", CIMValue(String(class_names::test)));
    addProperty(instance, "ExecutionID", CIMValue(executionId));
    ZORVA_DiagUtils::DEBUG_PRINT("      btr point 3 \n");
    addProperty(instance, "DiagSystemName", CIMValue(system.name));
    addProperty(instance, "DiagSystemCreationClassName", CIMValue(system.creationClassName));
    buildDefaultResultProperties(instance);

    Array<KeyBinding> keys;
    keys.append(stringKey("DiagnosticName", diagnosticName));
    keys.append(stringKey("DiagnosticCreationClassName", class_names::test));
    keys.append(stringKey("ExecutionID", executionId));
    keys.append(stringKey("DiagSystemName", system.name));
    keys.append(stringKey("DiagSystemCreationClassName", system.creationClassName));
    appendTo(res_ref_inst, tablePath(class_names::result, keys), instance);
}

void ZORVA_UsbHc_DiagResult::buildDefaultResultProperties(CIMInstance& instance) {
    ZORVA_DiagnosticResultBuilder::buildDefaultResultProperties(instance);
}

}  // namespace Pegasus
