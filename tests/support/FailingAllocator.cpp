// SPDX-License-Identifier: MIT
#include "tests/support/FailingAllocator.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> inUse{0};
std::atomic<bool> isArmed{false};
std::atomic<long> callsLeft{0};  // until the one that fails, which brings it to 0
std::atomic<bool> failsOnwards{false};
std::atomic<bool> failed{false};
thread_local bool isSpared = false;

bool failsNow() {
    if (!isArmed || isSpared) {
        return false;
    }
    const long left = --callsLeft;
    if (left > 0 || (left < 0 && !failsOnwards)) {
        return false;
    }
    failed = true;
    return true;
}

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++inUse;
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        --inUse;
        std::free(memory);
    }
}

// The library's default forms of the others call those above, but these, which compilers warn of.
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

namespace failing_allocator {

void run(std::size_t failing, Mode mode, const std::function<void()>& work, Threads threads) {
    class Armed {
    public:
        Armed() { isArmed = true; }
        Armed(const Armed&) = delete;
        Armed& operator=(const Armed&) = delete;
        ~Armed() {
            isArmed = false;
            isSpared = false;
        }
    };
    callsLeft = static_cast<long>(failing);
    failsOnwards = mode == Mode::onwards;
    failed = false;
    isSpared = threads == Threads::others;
    const Armed armed;
    work();
}

bool hasFailed() {
    return failed;
}

long piecesInUse() {
    return inUse;
}

}  // namespace failing_allocator
