// SPDX-License-Identifier: MIT
#include "diag/ZORVA_SystemInfo.h"

#include "diag/InstanceProperties.h"
#include "diag/InstanceTable.h"
#include "diag/ProviderNamespace.h"
#include "diag/ZORVA_DiagUtils.h"

namespace Pegasus {
namespace {

constexpr char computerSystemClass[] = "QUIRVO_ComputerSystem";

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
    const CIMNamespaceName nameSpace(providerNamespace);
    Array<CIMProperty> properties;
    try {
        const Array<CIMObjectPath> names =
            cimom.enumerateInstanceNames(OperationContext(), nameSpace, computerSystemClass);
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
        // Tests can be listed and run without the names of the system.
    }
    return properties;
}

}  // namespace Pegasus
