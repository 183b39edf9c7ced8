// SPDX-License-Identifier: MIT
// Where a virtual operation stands in its class's table, for classes whose order others rely on.
#pragma once

#include <cstddef>
#include <cstring>

/// The number of the operation's slot, from 0 on; a destructor takes two. By the Itanium C++ ABI of
/// x86-64, where a pointer to a virtual member holds the offset in the table plus 1.
template <class Operation>
std::size_t slotOf(Operation operation) {
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    return static_cast<std::size_t>(offset - 1) / sizeof(void*);
}
