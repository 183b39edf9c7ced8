// SPDX-License-Identifier: MIT
// Asking the server for the computer system that it runs on.
#include "diag/ZORVA_SystemInfo.h"

#include "diag/InstanceProperties.h"
#include "diag/InstanceTable.h"
#include "diag/ProviderNamespace.h"
#include "diag/ZORVA_DiagUtils.h"

namespace Pegasus {
namespace {

constexpr char COMPUTER_SYSTEM_CLASS[] = "QUIRVO_ComputerSystem";

void appendIfPresent(Array<CIMProperty>& properties, CIMInstance& instance, const char* name) {
    const Uint32 position = instance.findProperty(CIMName(name));
    if (position != PEG_NOT_FOUND) {
        properties.append(instance.getProperty(position));
    }
}

}  // namespace

ZORVA_SystemInfo::~ZORVA_SystemInfo() = default;

Array<CIMProperty> ZORVA_SystemInfo::getSystemInfo(CIMOMHandle cimom) {
    ZORVA_DiagUtils::DEBUG_PRINT("  in SystemInfo \n");
    const CIMNamespaceName nameSpace(PROVIDER_NAMESPACE);
    Array<CIMProperty> properties;
    try {
        const Array<CIMObjectPath> names =
            cimom.enumerateInstanceNames(OperationContext(), nameSpace, COMPUTER_SYSTEM_CLASS);
        if (names.size() == 0) {
            return properties;
        }
        const CIMObjectPath name = tablePath(names[0].getClassName(), names[0].getKeyBindings());
        CIMInstance system = cimom.getInstance(OperationContext(), nameSpace, name, false, false,
                                               false, CIMPropertyList());
        if (hasProperties(system)) {
            appendIfPresent(properties, system, "Name");
            appendIfPresent(properties, system, "CreationClassName");
        }
    } catch (const CIMException&) {
        // A test can be described and run on a machine whose system nobody describes.
    }
    return properties;
}

}  // namespace Pegasus
