// SPDX-License-Identifier: MIT
// What a server implements so that the providers it loads can call back into it.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/OperationContext.h>

namespace Pegasus {

/// The server's side of a CIMOMHandle.
///
/// Only object-model types appear here, so that a unit that knows the server's own handle class can
/// implement it. Any number of threads may call one connection at once. Refusals are thrown as
/// CIMException with the server's status.
class CIMOMConnection {
public:
    CIMOMConnection() = default;
    CIMOMConnection(const CIMOMConnection&) = delete;
    CIMOMConnection& operator=(const CIMOMConnection&) = delete;
    virtual ~CIMOMConnection() = default;

    /// Paths of the instances of a class and its subclasses.
    virtual Array<CIMObjectPath> enumerateInstanceNames(const OperationContext& context,
                                                        const CIMNamespaceName& nameSpace,
                                                        const CIMName& className) = 0;

    /// The instance that the path designates; a null property list asks for every property.
    virtual CIMInstance getInstance(const OperationContext& context,
                                    const CIMNamespaceName& nameSpace,
                                    const CIMObjectPath& instanceName, Boolean localOnly,
                                    Boolean includeQualifiers, Boolean includeClassOrigin,
                                    const CIMPropertyList& propertyList) = 0;

    /// Asks the server to keep the provider loaded however long it is idle.
    virtual void disallowProviderUnload() = 0;
};

}  // namespace Pegasus
