// SPDX-License-Identifier: MIT
// The way from the library back into an OpenPegasus server.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "pegasus/interface/Pegasus/Provider/CIMOMConnection.h"

namespace openpegasus {

/// Passes each call on through a server handle of its own: a handle lets one call through at a
/// time, so a call that leads back into the library, which calls the server in its turn, would wait
/// for itself for ever on a shared one (a copy shares, too). Any thread may call it.
class OpenPegasusConnection : public Pegasus::CIMOMConnection {
public:
    /// `handle` is what the server gave at initialization; it must outlive this object.
    explicit OpenPegasusConnection(Pegasus::CIMOMHandle& handle) : handle_(handle) {}

    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::OperationContext& context, const Pegasus::CIMNamespaceName& nameSpace,
        const Pegasus::CIMName& className) override;

    Pegasus::CIMInstance getInstance(const Pegasus::OperationContext& context,
                                     const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& instanceName,
                                     Pegasus::Boolean localOnly, Pegasus::Boolean includeQualifiers,
                                     Pegasus::Boolean includeClassOrigin,
                                     const Pegasus::CIMPropertyList& propertyList) override;

    /// The one call that concerns the given handle: the server keeps its loading state there.
    void disallowProviderUnload() override;

private:
    Pegasus::CIMOMHandle& handle_;
};

}  // namespace openpegasus
