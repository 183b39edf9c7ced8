// SPDX-License-Identifier: MIT
// The parts of an object path, and how they are read from its text.
#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// What an object path is made of.
struct PathParts {
    String host;
    CIMNamespaceName nameSpace;
    CIMName className;
    Array<CIMKeyBinding> keyBindings;
};

/// Whether all parts are equal; the keys must be in order in both.
bool operator==(const PathParts& x, const PathParts& y);

/// Puts the keys in the order of their names, ignoring case, in the array itself and in all copies
/// that share its elements. Keys that are in order are not written.
void sortKeys(const Array<CIMKeyBinding>& keys);

/// Reads the text of a path. Returns what is wrong with it, or an empty text; the parts before a
/// fault are then read, and there are no keys.
///
/// 1. A text that begins with "//" has a host, up to the next slash.
/// 2. A colon before the first dot ends the namespace; a host demands one.
/// 3. The class name goes to the first dot or the end.
/// 4. Behind the dot stand pairs of a key name, "=" and a value, with a comma behind each but the
///    last, where it is allowed.
/// 5. A value in quotes is a string, in which a backslash stands before each quote and backslash.
///    If what it says is itself the text of a path with keys, it is a reference.
/// 6. A value that begins with t or f (either case) is TRUE or FALSE, in any case.
/// 7. Any other value goes to the next comma and is an integer.
/// 8. At last the keys are put in order.
String parsePath(const String& text, PathParts& parts);

}  // namespace Pegasus
