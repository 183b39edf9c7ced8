// SPDX-License-Identifier: MIT
// The handle for calls of a provider back into the server that loaded it.
#pragma once

#include <memory>
#include <utility>

#include <Pegasus/Provider/CIMOMConnection.h>

namespace Pegasus {
inline namespace provider_interface {

/// A handle on the server; copies are cheap and use the same connection.
///
/// The server makes it from a connection and gives it to the provider by initialize(). A handle
/// without a connection throws a CIMException (status 1, failed) in every call. Any thread may call
/// a handle, but must not assign to it while another thread uses it.
class CIMOMHandle {
public:
    /// A handle without a connection.
    CIMOMHandle() = default;

    /// A handle that uses the connection.
    explicit CIMOMHandle(std::shared_ptr<CIMOMConnection> connection)
        : connection_(std::move(connection)) {}

    /// The paths of the instances of a class and its subclasses in the namespace. Throws what the
    /// connection throws, as the other operations do.
    Array<CIMObjectPath> enumerateInstanceNames(const OperationContext& context,
                                                const CIMNamespaceName& nameSpace,
                                                const CIMName& className) {
        return connection().enumerateInstanceNames(context, nameSpace, className);
    }

    /// The instance that the path designates; a null property list requests all properties.
    CIMInstance getInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                            const CIMObjectPath& instanceName, Boolean localOnly,
                            Boolean includeQualifiers, Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList) {
        return connection().getInstance(context, nameSpace, instanceName, localOnly,
                                        includeQualifiers, includeClassOrigin, propertyList);
    }

    /// Asks the server not to unload the provider while it is idle.
    void disallowProviderUnload() { connection().disallowProviderUnload(); }

private:
    CIMOMConnection& connection() const {
        if (!connection_) {
            throw CIMException(CIM_ERR_FAILED, "the provider is not connected to a CIM server");
        }
        return *connection_;
    }

    std::shared_ptr<CIMOMConnection> connection_;
};

}  // namespace provider_interface
}  // namespace Pegasus
