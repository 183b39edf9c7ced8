// SPDX-License-Identifier: MIT
// The elements that the associations of the USB host-controller test refer to.
// Any thread may call these functions.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {

/// The paths of all tests. Calls the server to look up the host system.
Array<CIMObjectPath> testReferences(const CIMOMHandle& handle);

/// The paths of the instances of a class in the provider's namespace, as the server enumerates
/// them. Exceptions of that call propagate.
Array<CIMObjectPath> instanceReferences(CIMOMHandle& handle, const String& className);

}  // namespace Pegasus
