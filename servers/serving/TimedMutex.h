// SPDX-License-Identifier: MIT
// A mutex that can be waited for until a point in time.
#pragma once

#include <chrono>
#include <condition_variable>

#include "base/ThreadSafety.h"

namespace serving {

/// A mutex whose wait is measured by the steady clock, which no change of the system's time moves.
///
/// Not std::timed_mutex: ThreadSanitizer does not see one that is locked by the steady clock, and
/// would report every access under it. Any thread may unlock it.
class ZORVA_CAPABILITY("mutex") TimedMutex {
public:
    /// Locks it; false if it is still locked at `end`. A mutex that is free is locked even if `end`
    /// has passed.
    bool lockUntil(std::chrono::steady_clock::time_point end) ZORVA_TRY_ACQUIRE(true) {
        base::MutexLock lock(mutex_);
        while (isLocked_ && lock.waitUntil(unlocked_, end)) {
        }
        if (isLocked_) {
            return false;
        }
        isLocked_ = true;
        return true;
    }

    void unlock() ZORVA_RELEASE() {
        {
            const base::MutexLock lock(mutex_);
            isLocked_ = false;
        }
        unlocked_.notify_one();
    }

private:
    base::Mutex mutex_;
    std::condition_variable unlocked_;
    bool isLocked_ ZORVA_GUARDED_BY(mutex_) = false;
};

}  // namespace serving
