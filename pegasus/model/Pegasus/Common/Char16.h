// SPDX-License-Identifier: MIT
// The code units of a String.
#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus {

/// A UTF-16 code unit: a character of the basic multilingual plane, or a surrogate. A plain value.
class Char16 {
public:
    constexpr Char16() noexcept = default;
    constexpr Char16(Uint16 code) noexcept : code_(code) {}
    constexpr operator Uint16() const noexcept { return code_; }

private:
    Uint16 code_ = 0;
};

constexpr Boolean operator==(const Char16& x, const Char16& y) noexcept {
    return Uint16(x) == Uint16(y);
}
constexpr Boolean operator==(const Char16& x, char y) noexcept {
    return Uint16(x) == static_cast<Uint8>(y);
}
constexpr Boolean operator==(char x, const Char16& y) noexcept {
    return y == x;
}
constexpr Boolean operator!=(const Char16& x, const Char16& y) noexcept {
    return !(x == y);
}
constexpr Boolean operator!=(const Char16& x, char y) noexcept {
    return !(x == y);
}
constexpr Boolean operator!=(char x, const Char16& y) noexcept {
    return !(y == x);
}

}  // namespace Pegasus
