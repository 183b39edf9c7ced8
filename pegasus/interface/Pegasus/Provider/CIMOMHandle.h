// SPDX-License-Identifier: MIT
// The handle through which a provider calls back into the server that loaded it.
#pragma once

#include <memory>
#include <utility>

#include <Pegasus/Provider/CIMOMConnection.h>

namespace Pegasus {
inline namespace provider_interface {

/// A handle on the server, cheap to copy; all copies reach the same connection.
///
/// The server makes it from a connection and hands it over with initialize(). A handle without a
/// connection answers every call with a CIMException (status 1, failed). Any thread may call a
/// handle; one handle must not be assigned while another thread uses it.
class CIMOMHandle {
public:
    /// A handle without a connection.
    CIMOMHandle() = default;

    /// A handle on the server behind the connection.
    explicit CIMOMHandle(std::shared_ptr<CIMOMConnection> connection)
        : connection_(std::move(connection)) {}

    /// Paths of the instances of a class and its subclasses in the namespace.
    Array<CIMObjectPath> enumerateInstanceNames(const OperationContext& context,
                                                const CIMNamespaceName& nameSpace,
                                                const CIMName& className) {
        return connection().enumerateInstanceNames(context, nameSpace, className);
    }

    /// The instance that the path designates; a null property list asks for every property.
    CIMInstance getInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                            const CIMObjectPath& instanceName, Boolean localOnly,
                            Boolean includeQualifiers, Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList) {
        return connection().getInstance(context, nameSpace, instanceName, localOnly,
                                        includeQualifiers, includeClassOrigin, propertyList);
    }

    /// Asks the server to keep the provider loaded however long it is idle.
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
