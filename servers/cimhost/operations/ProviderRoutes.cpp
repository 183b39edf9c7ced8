// SPDX-License-Identifier: MIT
#include "servers/cimhost/operations/ProviderRoutes.h"

namespace cimhost {

void ProviderRoutes::add(const Pegasus::CIMNamespaceName& nameSpace,
                         const Pegasus::CIMName& className, Methods methods,
                         serving::ServedProvider& provider) {
    routes_[nameSpace][className] = Route{&provider, methods};
}

const ProviderRoutes::Route* ProviderRoutes::find(const Pegasus::CIMNamespaceName& nameSpace,
                                                  const Pegasus::CIMName& className) const {
    const auto routes = routes_.find(nameSpace);
    if (routes == routes_.end()) {
        return nullptr;
    }
    const auto route = routes->second.find(className);
    return route == routes->second.end() ? nullptr : &route->second;
}

serving::ServedProvider* ProviderRoutes::instanceProvider(
    const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className) const {
    const Route* const route = find(nameSpace, className);
    return route == nullptr ? nullptr : route->provider;
}

serving::ServedProvider* ProviderRoutes::methodProvider(const Pegasus::CIMNamespaceName& nameSpace,
                                                        const Pegasus::CIMName& className) const {
    const Route* const route = find(nameSpace, className);
    return route == nullptr || route->methods == Methods::none ? nullptr : route->provider;
}

}  // namespace cimhost
