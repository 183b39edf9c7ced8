// SPDX-License-Identifier: MIT
#include "servers/serving/UnlockingConnection.h"

#include <utility>

#include "servers/serving/RequestScope.h"

using namespace Pegasus;

namespace serving {

namespace {

const OperationContext& requestContext(const OperationContext& otherwise) {
    const RequestScope* request = RequestScope::current();
    return request == nullptr ? otherwise : request->context();
}

}  // namespace

UnlockingConnection::UnlockingConnection(std::shared_ptr<CIMOMConnection> server)
    : server_(std::move(server)) {}

Array<CIMObjectPath> UnlockingConnection::enumerateInstanceNames(const OperationContext& context,
                                                                 const CIMNamespaceName& nameSpace,
                                                                 const CIMName& className) {
    const OperationContext& effective = requestContext(context);
    return callServer(
        [&] { return server_->enumerateInstanceNames(effective, nameSpace, className); });
}

CIMInstance UnlockingConnection::getInstance(const OperationContext& context,
                                             const CIMNamespaceName& nameSpace,
                                             const CIMObjectPath& instanceName, Boolean localOnly,
                                             Boolean includeQualifiers, Boolean includeClassOrigin,
                                             const CIMPropertyList& propertyList) {
    const OperationContext& effective = requestContext(context);
    return callServer([&] {
        return server_->getInstance(effective, nameSpace, instanceName, localOnly,
                                    includeQualifiers, includeClassOrigin, propertyList);
    });
}

void UnlockingConnection::disallowProviderUnload() {
    // Leads to no other request, so nothing has to be given back.
    server_->disallowProviderUnload();
}

}  // namespace serving
