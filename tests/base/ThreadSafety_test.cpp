// SPDX-License-Identifier: MIT
#include "base/ThreadSafety.h"

#include <chrono>
#include <future>
#include <thread>

#include <gtest/gtest.h>

namespace base {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds aMoment{20};
constexpr std::chrono::seconds patience{20};

std::chrono::steady_clock::time_point after(std::chrono::steady_clock::duration time) {
    return std::chrono::steady_clock::now() + time;
}

/// A thread that takes a lock, lets it go and ends.
template <class Lock, class Held>
std::future<void> takes(Held& mutex) {
    return std::async(std::launch::async, [&mutex] { const Lock lock(mutex); });
}

bool isThere(const std::future<void>& future, std::chrono::milliseconds limit) {
    return future.wait_for(limit) == std::future_status::ready;
}

TEST(MutexLock, KeepsOthersOutUntilItIsGone) {
    Mutex mutex;
    std::future<void> other;
    {
        const MutexLock lock(mutex);
        other = takes<MutexLock>(mutex);
        EXPECT_FALSE(isThere(other, aMoment));
    }
    EXPECT_TRUE(isThere(other, patience));
}

TEST(MutexLock, LetsOthersInWhileItWaits) {
    Mutex mutex;
    std::condition_variable changed;
    bool done = false;
    std::thread other([&] {
        const MutexLock lock(mutex);
        done = true;
        changed.notify_all();
    });
    {
        MutexLock lock(mutex);
        while (!done) {
            lock.wait(changed);
        }
    }
    other.join();
}

TEST(MutexLock, WaitsUntilAPointInTimeAtMost) {
    Mutex mutex;
    std::condition_variable never;
    std::future<void> other;
    {
        MutexLock lock(mutex);
        const auto end = after(aMoment);
        while (lock.waitUntil(never, end)) {
            // It may wake for no reason.
        }
        EXPECT_GE(std::chrono::steady_clock::now(), end);
        other = takes<MutexLock>(mutex);
        EXPECT_FALSE(isThere(other, aMoment));
    }
    EXPECT_TRUE(isThere(other, patience));
}

TEST(SharedMutex, IsHeldByManyReaders) {
    SharedMutex mutex;
    const SharedLock lock(mutex);
    EXPECT_TRUE(isThere(takes<SharedLock>(mutex), patience));
}

TEST(SharedMutex, IsHeldByOneWriterAlone) {
    SharedMutex mutex;
    std::future<void> reader;
    std::future<void> writer;
    {
        const ExclusiveLock lock(mutex);
        reader = takes<SharedLock>(mutex);
        writer = takes<ExclusiveLock>(mutex);
        EXPECT_FALSE(isThere(reader, aMoment));
        EXPECT_FALSE(isThere(writer, aMoment));
    }
    EXPECT_TRUE(isThere(reader, patience));
    EXPECT_TRUE(isThere(writer, patience));
}

TEST(SharedMutex, AReaderKeepsWritersOut) {
    SharedMutex mutex;
    std::future<void> writer;
    {
        const SharedLock lock(mutex);
        writer = takes<ExclusiveLock>(mutex);
        EXPECT_FALSE(isThere(writer, aMoment));
    }
    EXPECT_TRUE(isThere(writer, patience));
}

}  // namespace
}  // namespace base
