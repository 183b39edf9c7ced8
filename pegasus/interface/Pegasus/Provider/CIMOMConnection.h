// SPDX-License-Identifier: MIT
// The interface that a server implements for calls of its providers back into the server.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/OperationContext.h>

namespace Pegasus {

/// The server's side of a CIMOMHandle.
///
/// It uses only types of the object model, so that a translation unit that includes the server's
/// own handle class can implement it. Any number of threads may call a connection at the same time.
/// If the server rejects a request, it throws a CIMException with its status.
class CIMOMConnection {
public:
    CIMOMConnection() = default;
    CIMOMConnection(const CIMOMConnection&) = delete;
    CIMOMConnection& operator=(const CIMOMConnection&) = delete;
    virtual ~CIMOMConnection() = default;

    /// The paths of the instances of a class and its subclasses.
    virtual Array<CIMObjectPath> enumerateInstanceNames(const OperationContext& context,
                                                        const CIMNamespaceName& nameSpace,
                                                        const CIMName& className) = 0;

    /// The instance that the path designates; a null property list requests all properties.
    virtual CIMInstance getInstance(const OperationContext& context,
                                    const CIMNamespaceName& nameSpace,
                                    const CIMObjectPath& instanceName, Boolean localOnly,
                                    Boolean includeQualifiers, Boolean includeClassOrigin,
                                    const CIMPropertyList& propertyList) = 0;

    /// Asks the server not to unload the provider while it is idle.
    virtual void disallowProviderUnload() = 0;
};

}  // namespace Pegasus
