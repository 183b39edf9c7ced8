// SPDX-License-Identifier: MIT
// Instances and their names in the one form in which the repository keeps them.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include "wire/cimxml/ClassDefinition.h"

namespace cimhost {

/// A new instance with every property of its class: those not given come first, with the class'
/// default value and marked propagated; those given follow, each with the class' spelling of its
/// name. References into the same namespace lose host and namespace. The path holds class and keys.
///
/// Throws CIMException: CIM_ERR_FAILED with "no such property: NAME" or "type mismatch" as
/// OpenPegasus does; CIM_ERR_INVALID_PARAMETER for a key without a value or an abstract class;
/// CIM_ERR_SERVER_LIMITS_EXCEEDED for a key or a path beyond wire/cimxml/ObjectLimits.h.
Pegasus::CIMInstance completeInstance(const wire::ClassDefinition& definition,
                                      const Pegasus::CIMInstance& given,
                                      const Pegasus::CIMNamespaceName& nameSpace);

/// The value that is stored where `given` is assigned to the property. Throws CIM_ERR_FAILED "type
/// mismatch" for a value of another type.
Pegasus::CIMValue storedValue(const wire::PropertyDefinition& property,
                              const Pegasus::CIMValue& given,
                              const Pegasus::CIMNamespaceName& nameSpace);

/// A text that is equal for two paths exactly if they name the same instance: host and namespace do
/// not count, nor do letter case of names, the order of keys, the spelling of numbers (0x2a is 42)
/// and whether a key that holds a path is typed as reference or as string.
std::string instanceIdentity(const Pegasus::CIMObjectPath& path);

}  // namespace cimhost
