// SPDX-License-Identifier: MIT
// What an instance takes of the memory that the repository may fill.
//
// Functions without state; any thread may call them.
#pragma once

#include <cstddef>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMValue.h>

namespace cimhost {

/// The bytes of a value: its elements and their texts.
std::size_t sizeOf(const Pegasus::CIMValue& value);

/// The bytes of an instance: its path, its values, and an estimate for what holds them together.
std::size_t sizeOf(const Pegasus::CIMInstance& instance);

}  // namespace cimhost
