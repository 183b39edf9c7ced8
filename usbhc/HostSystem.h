// SPDX-License-Identifier: MIT
// The computer system that tests and results name.
#pragma once

#include <Pegasus/Common/CIMProperty.h>

namespace Pegasus {

/// The two names of the host computer system; empty where it is not known.
struct HostSystem {
    String name;
    String creationClassName;
};

/// The names among the properties that ZORVA_SystemInfo found: "Name" and "CreationClassName",
/// ignoring case; of several of a name the last one counts. Throws TypeMismatchException where one
/// is no string.
HostSystem hostSystemOf(const Array<CIMProperty>& properties);

}  // namespace Pegasus
