// SPDX-License-Identifier: MIT
// Asks the server for the computer system that it runs on.
#pragma once

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {

/// Looks up the host computer system, whose names are keys of tests and results. One object may be
/// used by any thread: it has no state.
class ZORVA_SystemInfo {
public:
    ZORVA_SystemInfo() = default;
    virtual ~ZORVA_SystemInfo();

    /// The properties "Name" and "CreationClassName", in this order, of the first computer system
    /// that the server enumerates; a missing property is left out.
    ///
    /// Returns an empty array if the server has no computer system, if that has no properties, or
    /// if the server throws a CIMException. Other exceptions propagate. Makes up to two calls to
    /// the server.
    Array<CIMProperty> getSystemInfo(CIMOMHandle cimom);
};

}  // namespace Pegasus
