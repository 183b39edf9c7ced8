// SPDX-License-Identifier: MIT
// The library's way back into the server: out of the library's lock, in the request's own context.
#pragma once

#include <memory>

#include <Pegasus/Provider/CIMOMConnection.h>

namespace serving {

/// Passes each call on to the server's connection while the calling request gives the table lock
/// back, with the context of that request in place of the empty one that the library passes. Any
/// number of threads may call it.
class UnlockingConnection : public Pegasus::CIMOMConnection {
public:
    explicit UnlockingConnection(std::shared_ptr<Pegasus::CIMOMConnection> server);

    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::OperationContext& context, const Pegasus::CIMNamespaceName& nameSpace,
        const Pegasus::CIMName& className) override;

    Pegasus::CIMInstance getInstance(const Pegasus::OperationContext& context,
                                     const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& instanceName,
                                     Pegasus::Boolean localOnly, Pegasus::Boolean includeQualifiers,
                                     Pegasus::Boolean includeClassOrigin,
                                     const Pegasus::CIMPropertyList& propertyList) override;

    void disallowProviderUnload() override;

private:
    std::shared_ptr<Pegasus::CIMOMConnection> server_;
};

}  // namespace serving
