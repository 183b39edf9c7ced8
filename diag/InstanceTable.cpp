// SPDX-License-Identifier: MIT
#include "diag/InstanceTable.h"

#include <Pegasus/Provider/ProviderExceptions.h>

namespace Pegasus {

CIMObjectPath tablePath(const CIMName& className, const Array<CIMKeyBinding>& keys) {
    return CIMObjectPath(String(), CIMNamespaceName(), className, keys);
}

void appendTo(InstanceTable& table, const CIMObjectPath& path, CIMInstance& instance) {
    instance.setPath(path);
    table.append(Pair<CIMObjectPath, CIMInstance>(path, instance));
}

Uint32 findPath(const InstanceTable& table, const CIMObjectPath& path) {
    const CIMObjectPath wanted = tablePath(path.getClassName(), path.getKeyBindings());
    for (Uint32 i = 0; i < table.size(); ++i) {
        if (table[i].first == wanted) {
            return i;
        }
    }
    return PEG_NOT_FOUND;
}

Array<CIMInstance> cloneOfInstance(const InstanceTable& table, Uint32 index) {
    Array<CIMInstance> copies;
    copies.append(table[index].second.clone());
    return copies;
}

Array<CIMInstance> cloneOfInstance(const InstanceTable& table, const CIMObjectPath& path) {
    const Uint32 index = findPath(table, path);
    if (index == PEG_NOT_FOUND) {
        throw BadReference("Invalid Reference");
    }
    return cloneOfInstance(table, index);
}

Array<CIMInstance> clonesOfInstances(const InstanceTable& table) {
    Array<CIMInstance> copies;
    copies.reserveCapacity(table.size());
    for (Uint32 i = 0; i < table.size(); ++i) {
        copies.append(table[i].second.clone());
    }
    return copies;
}

Array<CIMObjectPath> copiesOfPaths(const InstanceTable& table) {
    Array<CIMObjectPath> copies;
    copies.reserveCapacity(table.size());
    for (Uint32 i = 0; i < table.size(); ++i) {
        copies.append(table[i].first);
    }
    return copies;
}

}  // namespace Pegasus
