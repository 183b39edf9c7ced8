// SPDX-License-Identifier: MIT
// Memory that runs out at a call of choice: takes the place of the program's operator new and delete, and
// of those of every library that it loads.
// One allocation may fail at a time; memory may be taken and given back by any thread.
#pragma once

#include <cstddef>
#include <functional>

namespace failing_allocator {

/// What fails.
enum class Mode {
    once,    ///< one call; the next succeeds
    onwards  ///< it and all after it
};

/// Whose calls are counted and fail.
enum class Threads { all, others };

/// Does `work` with the call of that number, from 1, failing. What `work` throws propagates.
void run(std::size_t failing, Mode mode, const std::function<void()>& work,
         Threads threads = Threads::all);

/// Whether a call failed during the last run().
bool hasFailed();

/// How many pieces of memory were taken and not given back so far.
long piecesInUse();

}  // namespace failing_allocator
