// SPDX-License-Identifier: MIT
// Asking the server for the computer system that it runs on.
#pragma once

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {

/// Looks up the host computer system, whose names tests and results carry among their keys.
class ZORVA_SystemInfo {
public:
    ZORVA_SystemInfo() = default;
    virtual ~ZORVA_SystemInfo();

    /// The properties "Name" and "CreationClassName", in this order, of the first computer system
    /// that the server names; those that it lacks are left out.
    ///
    /// An empty array where the server has no computer system, where that one has no properties and
    /// where the server refuses with a CIMException; other exceptions pass. Makes up to two calls
    /// to the server.
    Array<CIMProperty> getSystemInfo(CIMOMHandle cimom);
};

}  // namespace Pegasus
