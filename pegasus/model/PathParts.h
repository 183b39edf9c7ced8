// SPDX-License-Identifier: MIT
// The parts of an object path, and the parser of its text.
#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The parts of an object path; absent ones are empty or null. Threads: as for String.
struct PathParts {
    String host;
    CIMNamespaceName nameSpace;
    CIMName className;
    Array<CIMKeyBinding> keyBindings;
};

/// Whether all parts are equal, host and names ignoring case. The keys must be sorted in both.
bool operator==(const PathParts& x, const PathParts& y);

/// Sorts the keys by their names, ignoring case, in the array itself and in all copies that share
/// its elements, which no other thread may use meanwhile. Sorted keys are not written.
void sortKeys(const Array<CIMKeyBinding>& keys);

/// Parses the text of a path. Returns an empty text, or the reason why the text is malformed; then
/// the parts before the error are set, and there are no keys. Any thread may call it.
///
/// 1. A text that begins with "//" has a host, up to the next slash.
/// 2. A colon before the first dot ends the namespace, which is required after a host.
/// 3. The class name ends at the first dot or at the end.
/// 4. After the dot come pairs of a key name, "=" and a value, separated by commas. A comma after
///    the last pair is allowed.
/// 5. A value in quotes is a string, in which quotes and backslashes are escaped by a backslash. If
///    the string is itself the text of a path with keys, the value is a reference.
/// 6. Any other value ends at the next comma. It is TRUE or FALSE, in any case, or an integer.
/// 7. Finally the keys are sorted.
String parsePath(const String& text, PathParts& parts);

}  // namespace Pegasus
