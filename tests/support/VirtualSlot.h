// SPDX-License-Identifier: MIT
// Finds the position of a virtual function in the vtable, for classes whose order is fixed.
#pragma once

#include <cstddef>
#include <cstring>

/// The number of the function's slot, from 0; a destructor takes two. Relies on the Itanium C++ ABI
/// of x86-64, where a pointer to a virtual member function holds the offset in the vtable plus 1.
template <class Operation>
std::size_t slotOf(Operation operation) {
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    return static_cast<std::size_t>(offset - 1) / sizeof(void*);
}
