// SPDX-License-Identifier: MIT
// Reading and building the properties of instances.
#pragma once

#include <Pegasus/Common/CIMInstance.h>

namespace Pegasus {

/// Whether the instance has at least one property; a null instance has none.
bool hasProperties(const CIMInstance& instance);

/// A text from outside as the name of a property. Throws NoSuchProperty with the text where no
/// property can be called so.
CIMName toPropertyName(const String& text);

/// The property of that name, ignoring case: a handle, through which the instance can be changed.
/// Throws NoSuchProperty with the name where the instance has none.
CIMProperty propertyOf(CIMInstance& instance, const CIMName& name);

/// The value of the property of that name, ignoring case. Throws NoSuchProperty with the name where
/// the instance has none.
CIMValue propertyValueOf(const CIMInstance& instance, const CIMName& name);

/// Whether the property of that name, ignoring case, has that value; of another type, too, values
/// differ. Throws NoSuchProperty with the name where the instance has none.
bool hasPropertyValue(const CIMInstance& instance, const CIMName& name, const CIMValue& value);

/// Adds a property of the value's type, with no reference class.
void addProperty(CIMInstance& instance, const CIMName& name, const CIMValue& value);

}  // namespace Pegasus
