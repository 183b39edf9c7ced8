// SPDX-License-Identifier: MIT
// Checks the host of an object path.
#pragma once

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Whether the text is a host name, an IPv4 address or an IPv6 address in brackets, optionally
/// followed by a colon and, optionally, a port. A name consists of labels separated by dots; a
/// label consists of letters, digits, underscores and hyphens, and does not begin with a hyphen. A
/// name whose last label is a number must be an IPv4 address. Any thread may call it.
bool isHostName(const String& text);

}  // namespace Pegasus
