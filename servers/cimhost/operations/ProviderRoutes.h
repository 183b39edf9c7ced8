// SPDX-License-Identifier: MIT
// Which classes a provider serves.
#pragma once

#include <map>

#include <Pegasus/Common/CIMName.h>

#include "servers/cimhost/schema/NameOrder.h"
#include "servers/serving/ServedProvider.h"

namespace cimhost {

/// Classes and the provider that serves them. A class is served only where it is registered itself;
/// its subclasses are not. Filled before the host serves, then read by any number of threads.
class ProviderRoutes {
public:
    enum class Methods { none, served };

    /// Routes the instance operations of the class, and its methods if it has some, to the
    /// provider, which must outlive this object.
    void add(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
             Methods methods, serving::ServedProvider& provider);

    /// The provider of the class' instances, or null.
    serving::ServedProvider* instanceProvider(const Pegasus::CIMNamespaceName& nameSpace,
                                              const Pegasus::CIMName& className) const;

    /// The provider of the class' methods, or null.
    serving::ServedProvider* methodProvider(const Pegasus::CIMNamespaceName& nameSpace,
                                            const Pegasus::CIMName& className) const;

private:
    struct Route {
        serving::ServedProvider* provider = nullptr;
        Methods methods = Methods::none;
    };

    const Route* find(const Pegasus::CIMNamespaceName& nameSpace,
                      const Pegasus::CIMName& className) const;

    std::map<Pegasus::CIMNamespaceName, std::map<Pegasus::CIMName, Route, NameOrder>, NameOrder>
        routes_;
};

}  // namespace cimhost
