// SPDX-License-Identifier: MIT
// What a client asked to see of a class.
//
// Functions without state; any thread may call them.
#pragma once

#include <Pegasus/Common/CIMPropertyList.h>

#include "wire/cimxml/ClassDefinition.h"

namespace cimhost {

/// A copy of the class without what is not wanted: with `localOnly` elements taken over from the
/// superclass as they are, without `includeQualifiers` every qualifier, without
/// `includeClassOrigin` the class origins, and properties outside the list unless it is null.
wire::ClassDefinition filteredClass(const wire::ClassDefinition& definition, bool localOnly,
                                    bool includeQualifiers, bool includeClassOrigin,
                                    const Pegasus::CIMPropertyList& propertyList);

}  // namespace cimhost
