// SPDX-License-Identifier: MIT
// What the provider library gets when it calls back into the host.
#pragma once

#include <Pegasus/Provider/CIMOMConnection.h>

#include "servers/cimhost/operations/Operations.h"

namespace cimhost {

/// Answers the calls of providers from the operations that clients use, so that repository and
/// provider instances are found alike. Any number of threads may call it.
class HostConnection : public Pegasus::CIMOMConnection {
public:
    /// The operations must outlive the connection.
    explicit HostConnection(Operations& operations) : operations_(operations) {}

    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::OperationContext& context, const Pegasus::CIMNamespaceName& nameSpace,
        const Pegasus::CIMName& className) override;

    Pegasus::CIMInstance getInstance(const Pegasus::OperationContext& context,
                                     const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& instanceName,
                                     Pegasus::Boolean localOnly, Pegasus::Boolean includeQualifiers,
                                     Pegasus::Boolean includeClassOrigin,
                                     const Pegasus::CIMPropertyList& propertyList) override;

    /// Nothing to do: the host never unloads an idle provider.
    void disallowProviderUnload() override {}

private:
    Operations& operations_;
};

}  // namespace cimhost
