// SPDX-License-Identifier: MIT
// Escaping text for XML and back, so that what goes out comes back.
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>

#include <Pegasus/Common/String.h>

namespace wire {

/// Appends `text` as it may stand in an element or in an attribute of either quote:
/// 1. & < > " ' become the predefined entities.
/// 2. The control characters 1 to 31 and 127 become numeric references.
/// 3. A space that is first, last or follows a space written plainly becomes "&#32;", since readers
///    drop white space at the ends.
/// 4. What XML cannot carry (NUL, half a surrogate pair, U+FFFE and U+FFFF) becomes U+FFFD.
/// 5. Everything else is UTF-8.
void appendText(std::string& out, const Pegasus::String& text);

/// The same for text that is UTF-8 already. Bytes that are not UTF-8 are passed on.
void appendText(std::string& out, std::string_view utf8);

/// Appends ` name="text"`.
void appendAttribute(std::string& out, std::string_view name, std::string_view utf8);
void appendAttribute(std::string& out, std::string_view name, const Pegasus::String& text);

/// Appends what raw text of a document stands for: the predefined entities and numeric references
/// are replaced, everything else is taken as it is. Throws XmlError (notWellFormed) for any other
/// reference, and for one to a character that XML cannot carry; control characters other than NUL
/// are taken, since servers send them.
void appendDecoded(std::string& out, std::string_view raw);

}  // namespace wire
