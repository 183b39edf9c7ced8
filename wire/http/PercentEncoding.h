// SPDX-License-Identifier: MIT
// Percent-encoding, which carries any text in header fields and URLs.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>

namespace wire {

/// Every byte but letters, digits and - . _ ~ as %XX.
std::string percentEncoded(std::string_view text);

/// Replaces each %XX by its byte. A percent sign without two hexadecimal digits stays.
std::string percentDecoded(std::string_view text);

}  // namespace wire
