// SPDX-License-Identifier: MIT
// Parses integers in the form that keys of an object path have.
#pragma once

#include <optional>

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// An integer of sign and 64 bits; zero is never negative.
struct KeyInteger {
    bool isNegative;
    Uint64 magnitude;
};

/// The signs that a decimal number may have.
enum class Sign { minusOnly, plusOrMinus };

/// Parses a decimal number without leading zeros, or a hexadecimal one ("0x1F", without a sign).
/// Returns nothing if the text is anything else, or if the number is greater than the largest
/// Uint64 or less than the smallest Sint64. Any thread may call it.
std::optional<KeyInteger> parseKeyInteger(const String& text, Sign sign);

}  // namespace Pegasus
