// SPDX-License-Identifier: MIT
// Reads, changes and adds properties of instances.
// Any thread may call these functions; an instance is used by one thread at a time.
#pragma once

#include <Pegasus/Common/CIMInstance.h>

namespace Pegasus {

/// Whether the instance has at least one property. False for a null instance.
bool hasProperties(const CIMInstance& instance);

/// Converts a text from a client to a property name. Throws NoSuchProperty with the text if it
/// cannot be a name.
CIMName toPropertyName(const String& text);

/// The property of that name, ignoring case: a handle, through which the instance can be changed.
/// Throws NoSuchProperty with the name if there is none.
CIMProperty propertyOf(CIMInstance& instance, const CIMName& name);

/// The value of the property of that name, ignoring case. Throws NoSuchProperty with the name if
/// there is none.
CIMValue propertyValueOf(const CIMInstance& instance, const CIMName& name);

/// Whether the property of that name, ignoring case, has that value. Values of different types
/// differ. Throws NoSuchProperty with the name if there is none.
bool hasPropertyValue(const CIMInstance& instance, const CIMName& name, const CIMValue& value);

/// Adds a property of the value's type, without a reference class. Throws AlreadyExistsException if
/// the instance has a property of that name.
void addProperty(CIMInstance& instance, const CIMName& name, const CIMValue& value);

}  // namespace Pegasus
