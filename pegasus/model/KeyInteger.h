// SPDX-License-Identifier: MIT
// Integers as the keys of an object path write them, stricter than other texts.
#pragma once

#include <optional>

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// An integer of up to 64 bits besides its sign; zero is never negative.
struct KeyInteger {
    bool isNegative;
    Uint64 magnitude;
};

/// Which signs may stand before a decimal number.
enum class Sign { MinusOnly, PlusOrMinus };

/// Reads a decimal number without leading zeros or a hexadecimal one ("0x1F", without a sign).
/// Nothing if the text is anything else, or a number beyond Uint64 or below Sint64.
std::optional<KeyInteger> parseKeyInteger(const String& text, Sign sign);

}  // namespace Pegasus
