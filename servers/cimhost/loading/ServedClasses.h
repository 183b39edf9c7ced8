// SPDX-License-Identifier: MIT
// What the provider library serves: the host's counterpart of a registration.
#pragma once

#include "contract/Names.h"
#include "servers/cimhost/operations/ProviderRoutes.h"

namespace cimhost {

/// A class, and whether the library serves its methods, too.
struct ServedClass {
    const char* name;
    ProviderRoutes::Methods methods;
};

/// Every class that the library serves, and no other. Constant: any thread may read it.
constexpr ServedClass servedClasses[] = {
    {contract::classes::test, ProviderRoutes::Methods::served},
    {contract::classes::result, ProviderRoutes::Methods::none},
    {contract::classes::resultForMSE, ProviderRoutes::Methods::none},
    {contract::classes::resultForTest, ProviderRoutes::Methods::none},
    {contract::classes::testForMSE, ProviderRoutes::Methods::none},
    {contract::classes::testSoftwareAssoc, ProviderRoutes::Methods::none},
};

}  // namespace cimhost
