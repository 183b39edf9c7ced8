// SPDX-License-Identifier: MIT
// The elements that the associations of the USB host-controller test lead to.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {

/// The paths of all tests. Asks the server for the host system.
Array<CIMObjectPath> testReferences(const CIMOMHandle& handle);

/// The paths of the instances of a class in the provider's namespace, from the server. Exceptions
/// of that call pass.
Array<CIMObjectPath> instanceReferences(CIMOMHandle& handle, const String& className);

}  // namespace Pegasus
