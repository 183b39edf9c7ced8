// SPDX-License-Identifier: MIT
// What runs before the XML parser: one pass over the bytes that rejects what is not well-formed
// and what is too large, before any memory is spent on it.
//
// Functions without state; any thread may call them.
#pragma once

#include <cstddef>
#include <string_view>

namespace wire {

/// How much XML is taken. A document at a limit is taken, one beyond it is refused.
struct XmlLimits {
    std::size_t depth = 64;         ///< of elements inside each other
    std::size_t elements = 50'000;  ///< in the whole document
    std::size_t attributes = 32;    ///< on one element
};

/// Looks through a document. Refused with XmlError:
/// 1. bytes that are not UTF-8 (notValid) and NUL bytes;
/// 2. a document that does not begin with an XML declaration (notValid);
/// 3. a document type declaration (notValid): so there are no entities but the predefined ones;
/// 4. tags that do not match, are not closed or are no tags, attributes without quotes or given
///    twice, references that XML does not define, text or elements outside the one root element;
/// 5. more elements, attributes or depth than the limits allow.
/// Messages name the line.
void scanXml(std::string_view document, const XmlLimits& limits = {});

}  // namespace wire
