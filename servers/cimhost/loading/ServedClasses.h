// SPDX-License-Identifier: MIT
// What the provider library serves: the host's counterpart of a registration.
#pragma once

#include "servers/cimhost/operations/ProviderRoutes.h"

namespace cimhost {

/// The name by which the library's factory knows its provider, and the namespace of its classes.
constexpr const char* providerName = "ZORVA_UsbHc_DiagProvider";
constexpr const char* providerNamespace = "root/kavex";

struct ServedClass {
    const char* name;
    ProviderRoutes::Methods methods;
};

/// Every class that the library serves, and no other.
constexpr ServedClass servedClasses[] = {
    {"ZORVA_UsbHc_DiagTest", ProviderRoutes::Methods::Served},
    {"ZORVA_UsbHc_DiagResult", ProviderRoutes::Methods::None},
    {"ZORVA_UsbHc_DiagResultForMSE", ProviderRoutes::Methods::None},
    {"ZORVA_UsbHc_DiagResultForTest", ProviderRoutes::Methods::None},
    {"ZORVA_UsbHc_DiagTestForMSE", ProviderRoutes::Methods::None},
    {"ZORVA_UsbHc_DiagTestSoftwareAssoc", ProviderRoutes::Methods::None},
};

}  // namespace cimhost
