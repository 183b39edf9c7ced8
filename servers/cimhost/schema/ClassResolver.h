// SPDX-License-Identifier: MIT
// Inheritance: the elements that a class takes over from its superclass.
//
// Functions without state; any thread may call them.
#pragma once

#include "wire/cimxml/ClassDefinition.h"

namespace cimhost {

/// Joins a class that holds its own elements with its resolved superclass (null for a root class).
///
/// Elements of the superclass come first and are marked propagated; an element that the class
/// declares itself comes after them, keeps the superclass' origin, and must have the
/// same type. Qualifiers are taken over unless they are restricted; one that must not be overridden
/// cannot get another value. What contradicts this throws CIM_ERR_INVALID_PARAMETER, naming class
/// and element.
wire::ClassDefinition resolveClass(const wire::ClassDefinition& own,
                                   const wire::ClassDefinition* superclass);

}  // namespace cimhost
