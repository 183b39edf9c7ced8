// SPDX-License-Identifier: MIT
// Class definitions as CIM-XML.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>

#include "wire/cimxml/ClassDefinition.h"

namespace wire {

/// Appends the CLASS element of a definition with all that the definition holds: what a client did
/// not ask for has been left out before.
void appendClass(std::string& out, const ClassDefinition& definition);

}  // namespace wire
