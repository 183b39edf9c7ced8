// SPDX-License-Identifier: MIT
// Reads and makes single keys of an object path.
// Any thread may call these functions; a path is used by one thread at a time.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

namespace Pegasus {

/// The value of the path's first key of that name, ignoring case; empty if there is none.
String firstKeyValue(const CIMObjectPath& path, const String& name);

/// Sets `value` to the value of the path's last key of that name, ignoring case. If there is none,
/// `value` is left unchanged.
void readLastKeyValue(const CIMObjectPath& path, const String& name, String& value);

/// A key of the type string. Throws InvalidNameException if `name` cannot be a name.
CIMKeyBinding stringKey(const char* name, const String& value);

}  // namespace Pegasus
