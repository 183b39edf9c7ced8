// SPDX-License-Identifier: MIT
// Converts bytes of unknown encoding to CIM text.
#pragma once

#include <string>

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Converts bytes of a device list, or a name of the bundle, to text.
///
/// A device name can be anything that the device sends: UTF-8, Latin-1, cut in the middle of a
/// character, with control characters. A String accepts only well-formed UTF-8, so:
/// 1. each well-formed UTF-8 sequence (shortest form, no surrogates, up to U+10FFFF) is the
///    character that it encodes;
/// 2. each other byte is one Windows-1252 character; the five bytes that Windows-1252 leaves
///    undefined (81, 8D, 8F, 90, 9D) keep their number;
/// 3. each character that XML 1.0 cannot carry (control characters except tab, line feed and
///    carriage return; U+FFFE and U+FFFF) becomes U+FFFD.
///
/// Never fails. Any thread may call it.
String textFromBytes(const std::string& bytes);

}  // namespace Pegasus
