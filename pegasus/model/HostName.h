// SPDX-License-Identifier: MIT
// Which texts can be the host of an object path.
#pragma once

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Whether the text is a host name, an IPv4 address or an IPv6 address in brackets, each with or
/// without a colon and a port behind it. A name is made of labels joined by dots; a label begins
/// with a letter, digit or underscore, in which hyphens may follow. A name whose last label is a
/// number must be an IPv4 address.
bool isHostName(const String& text);

}  // namespace Pegasus
