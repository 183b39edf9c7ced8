// SPDX-License-Identifier: MIT
// Names of the codes for what devices and interfaces are for.
#pragma once

#include <cstdint>
#include <string_view>

namespace devicelist {

/// The kernel's abbreviation of a class code, as Linux 6 prints it: "hub", "stor."; "unk." for a
/// code without one. Any thread may call it.
std::string_view abbreviationOfClass(std::uint8_t code);

/// What a class code says, in words: "hub", "mass storage"; empty for a code that no class has. Any
/// thread may call it.
std::string_view wordsOfClass(std::uint8_t code);

}  // namespace devicelist
