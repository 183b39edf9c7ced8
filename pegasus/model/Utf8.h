// SPDX-License-Identifier: MIT
// Between the UTF-8 of char and the UTF-16 of Char16.
#pragma once

#include <cstddef>

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>

namespace Pegasus::Utf8 {

/// How far a conversion to UTF-16 came.
struct Decoded {
    std::size_t bytesRead;  ///< less than all: a sequence that is not UTF-8 begins there
    std::size_t unitsWritten;
};

/// Converts `size` bytes; `units` has room for as many code units. Surrogates, U+FFFE and U+FFFF
/// become U+FFFD; overlong sequences and code points beyond U+10FFFF are not UTF-8.
Decoded decode(const char* bytes, std::size_t size, Char16* units);

/// The bytes that encode() writes.
std::size_t encodedSize(const Char16* units, std::size_t size);

/// Converts `size` code units and returns the end of what it wrote; half a surrogate pair becomes
/// the three bytes of its number.
char* encode(const Char16* units, std::size_t size, char* bytes);

}  // namespace Pegasus::Utf8
