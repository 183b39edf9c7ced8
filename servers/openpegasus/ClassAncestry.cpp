// SPDX-License-Identifier: MIT
#include "servers/openpegasus/ClassAncestry.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Provider/CIMOMHandle.h>

using namespace Pegasus;

namespace openpegasus {

bool ClassAncestry::isA(const OperationContext& context, const CIMNamespaceName& nameSpace,
                        const CIMName& className, const CIMName& ancestor) {
    CIMName current = className;
    while (!current.isNull()) {
        if (current.equal(ancestor)) {
            return true;
        }
        current = superClass(context, nameSpace, current);
    }
    return false;
}

CIMName ClassAncestry::superClass(const OperationContext& context,
                                  const CIMNamespaceName& nameSpace, const CIMName& className) {
    String key = nameSpace.getString();
    key.append(":").append(className.getString());
    key.toLower();
    {
        const base::MutexLock lock(mutex_);
        const auto known = superClasses_.find(key);
        if (known != superClasses_.end()) {
            return known->second;
        }
    }
    // Outside the lock: the server may be slow, and its answer is the same for all who ask.
    CIMName found;
    try {
        found = CIMOMHandle()
                    .getClass(context, nameSpace, className, /*localOnly=*/true,
                              /*includeQualifiers=*/false, /*includeClassOrigin=*/false,
                              CIMPropertyList(Array<CIMName>()))
                    .getSuperClassName();
    } catch (const CIMException& refusal) {
        if (refusal.getCode() != CIM_ERR_NOT_FOUND && refusal.getCode() != CIM_ERR_INVALID_CLASS) {
            throw;
        }
        return CIMName();  // Not remembered: the class may be loaded later.
    }
    const base::MutexLock lock(mutex_);
    superClasses_[key] = found;
    return found;
}

}  // namespace openpegasus
