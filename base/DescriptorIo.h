// SPDX-License-Identifier: MIT
// Reading and writing by file descriptors, whatever number of calls it takes.
// Functions without state; any thread may call them, one at a time for the same descriptor.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

/// Where a process finds what its descriptor stands for ("/proc/self/fd/3"), also to open it once more.
std::string descriptorPath(int descriptor);

/// Appends to `content` what is read up to the end, `limit` bytes at most. Returns whether the end or the limit
/// was reached; if not, errno says why, and `content` holds what came before. A signal does not end it.
bool readUpTo(int descriptor, std::size_t limit, std::string& content);

/// Returns whether all of `content` was written; if not, errno says why. A signal does not end it.
bool writeAll(int descriptor, std::string_view content);

}  // namespace base
