// SPDX-License-Identifier: MIT
// The computer system whose names are keys of tests and results.
// Any thread may use these.
#pragma once

#include <Pegasus/Common/CIMProperty.h>

namespace Pegasus {

/// The two names of the host computer system; empty if unknown.
struct HostSystem {
    String name;
    String creationClassName;
};

/// Takes the names from the properties that ZORVA_SystemInfo found: "Name" and "CreationClassName",
/// ignoring case. If there are several of a name, the last one counts; a null changes nothing.
/// Throws TypeMismatchException if one is no string.
HostSystem hostSystemOf(const Array<CIMProperty>& properties);

}  // namespace Pegasus
