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

void* allocate(std::size_t size) {
    void* const memory = failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    inUse += memory == nullptr ? 0 : 1;
    return memory;
}

void giveBack(void* memory) {
    if (memory != nullptr) {
        --inUse;
        std::free(memory);
    }
}

}  // namespace

// All forms but the aligned ones: where one is left out, a sanitizer's own does not call those that are here.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}

void* operator new(std::size_t size) {
    void* const memory = allocate(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    giveBack(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    giveBack(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    giveBack(memory);
}

void operator delete[](void* memory) noexcept {
    giveBack(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    giveBack(memory);
}

void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept {
    giveBack(memory);
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
