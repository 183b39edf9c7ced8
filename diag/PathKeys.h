// SPDX-License-Identifier: MIT
// Single keys of an object path.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

namespace Pegasus {

/// The value of the path's first key of that name, ignoring case; empty where the path has none.
String firstKeyValue(const CIMObjectPath& path, const String& name);

/// Sets `value` to that of the path's last key of that name, ignoring case; leaves it as it is where
/// the path has none.
void readLastKeyValue(const CIMObjectPath& path, const String& name, String& value);

/// A key of the type string.
CIMKeyBinding stringKey(const char* name, const String& value);

}  // namespace Pegasus
