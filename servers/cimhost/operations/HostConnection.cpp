// SPDX-License-Identifier: MIT
#include "servers/cimhost/operations/HostConnection.h"

namespace cimhost {

Pegasus::Array<Pegasus::CIMObjectPath> HostConnection::enumerateInstanceNames(
    const Pegasus::OperationContext& /*context*/, const Pegasus::CIMNamespaceName& nameSpace,
    const Pegasus::CIMName& className) {
    return operations_.enumerateInstanceNames(nameSpace, className);
}

Pegasus::CIMInstance HostConnection::getInstance(const Pegasus::OperationContext& /*context*/,
                                                 const Pegasus::CIMNamespaceName& nameSpace,
                                                 const Pegasus::CIMObjectPath& instanceName,
                                                 Pegasus::Boolean localOnly,
                                                 Pegasus::Boolean includeQualifiers,
                                                 Pegasus::Boolean includeClassOrigin,
                                                 const Pegasus::CIMPropertyList& propertyList) {
    ElementOptions options;
    options.localOnly = localOnly;
    options.includeQualifiers = includeQualifiers;
    options.includeClassOrigin = includeClassOrigin;
    options.propertyList = propertyList;
    return operations_.getInstance(nameSpace, instanceName, options);
}

}  // namespace cimhost
