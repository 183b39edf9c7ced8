// SPDX-License-Identifier: MIT
// Bytes of unknown origin as CIM text.
#pragma once

#include <string>

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The text that bytes of a device list, or a name of the bundle, stand for.
///
/// Device names are whatever a device says: UTF-8, Latin-1, cut in the middle of a character, with
/// control characters. A String takes none but well-formed UTF-8, so:
/// 1. each well-formed UTF-8 sequence (shortest form, no surrogates, up to U+10FFFF) is the character
///    that it encodes;
/// 2. each other byte is one Windows-1252 character; the five bytes that Windows-1252 leaves
///    undefined (81, 8D, 8F, 90, 9D) keep their number;
/// 3. each character that XML 1.0 cannot carry (control characters but tab, line feed and carriage
///    return; U+FFFE and U+FFFF) becomes U+FFFD.
///
/// Fails for no input. Any thread may call it.
String textFromBytes(const std::string& bytes);

}  // namespace Pegasus
