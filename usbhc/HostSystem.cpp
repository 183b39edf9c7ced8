// SPDX-License-Identifier: MIT
#include "usbhc/HostSystem.h"

namespace Pegasus {

HostSystem hostSystemOf(const Array<CIMProperty>& properties) {
    HostSystem system;
    for (Uint32 i = 0; i < properties.size(); ++i) {
        const String name = properties[i].getName().getString();
        if (String::equalNoCase(name, "Name")) {
            properties[i].getValue().get(system.name);
        } else if (String::equalNoCase(name, "CreationClassName")) {
            properties[i].getValue().get(system.creationClassName);
        }
    }
    return system;
}

}  // namespace Pegasus
