// SPDX-License-Identifier: MIT
#include "servers/openpegasus/OpenPegasusConnection.h"

using namespace Pegasus;

namespace openpegasus {

Array<CIMObjectPath> OpenPegasusConnection::enumerateInstanceNames(
    const OperationContext& context, const CIMNamespaceName& nameSpace, const CIMName& className) {
    return CIMOMHandle().enumerateInstanceNames(context, nameSpace, className);
}

CIMInstance OpenPegasusConnection::getInstance(const OperationContext& context,
                                               const CIMNamespaceName& nameSpace,
                                               const CIMObjectPath& instanceName, Boolean localOnly,
                                               Boolean includeQualifiers,
                                               Boolean includeClassOrigin,
                                               const CIMPropertyList& propertyList) {
    return CIMOMHandle().getInstance(context, nameSpace, instanceName, localOnly, includeQualifiers,
                                     includeClassOrigin, propertyList);
}

void OpenPegasusConnection::disallowProviderUnload() {
    handle_.disallowProviderUnload();
}

}  // namespace openpegasus
