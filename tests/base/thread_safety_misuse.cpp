// SPDX-License-Identifier: MIT
// What clang must refuse; thread_safety_test.sh compiles it once for each kind of misuse.
#include "base/ThreadSafety.h"

namespace {

class Counter {
public:
    void add() {
        const base::MutexLock lock(mutex_);
        ++count_;
    }
    int read() const {
        const base::SharedLock lock(shared_);
        return readHeld();
    }
    void write(int value) {
        const base::ExclusiveLock lock(shared_);
        value_ = value;
    }

#if MISUSE == 1
    int unguarded() const {
        return count_;
    }
#elif MISUSE == 2
    void writeUnderReader() {
        const base::SharedLock lock(shared_);
        ++value_;
    }
#elif MISUSE == 3
    int callUnguarded() const {
        return readHeld();
    }
#elif MISUSE == 4
    void lockTwice() {
        const base::MutexLock lock(mutex_);
        const base::MutexLock again(mutex_);
    }
#endif

private:
    int readHeld() const ZORVA_REQUIRES_SHARED(shared_) {
        return value_;
    }

    base::Mutex mutex_;
    int count_ ZORVA_GUARDED_BY(mutex_) = 0;
    mutable base::SharedMutex shared_;
    int value_ ZORVA_GUARDED_BY(shared_) = 0;
};

}  // namespace

int main() {
    Counter counter;
    counter.add();
    counter.write(1);
    return counter.read();
}
