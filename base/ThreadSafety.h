// SPDX-License-Identifier: MIT
// Mutexes, and what they guard, in words that clang checks (-Wthread-safety). Other compilers skip the words.
#pragma once

#include <condition_variable>
#include <mutex>
#include <shared_mutex>

#ifdef __clang__
#define ZORVA_THREAD_SAFETY(attribute) __attribute__((attribute))
#else
#define ZORVA_THREAD_SAFETY(attribute)
#endif

// A class whose objects can be held, and one that holds one for its scope.
#define ZORVA_CAPABILITY(name) ZORVA_THREAD_SAFETY(capability(name))
#define ZORVA_SCOPED_CAPABILITY ZORVA_THREAD_SAFETY(scoped_lockable)
// Of a variable: it is used only while the mutex is held.
#define ZORVA_GUARDED_BY(mutex) ZORVA_THREAD_SAFETY(guarded_by(mutex))
// Of a function: its caller holds the mutexes; SHARED: for reading at least.
#define ZORVA_REQUIRES(...) ZORVA_THREAD_SAFETY(requires_capability(__VA_ARGS__))
#define ZORVA_REQUIRES_SHARED(...) ZORVA_THREAD_SAFETY(requires_shared_capability(__VA_ARGS__))
// Of a function: it takes or releases the mutexes; TRY_ACQUIRE: if it returns its first argument.
#define ZORVA_ACQUIRE(...) ZORVA_THREAD_SAFETY(acquire_capability(__VA_ARGS__))
#define ZORVA_ACQUIRE_SHARED(...) ZORVA_THREAD_SAFETY(acquire_shared_capability(__VA_ARGS__))
#define ZORVA_TRY_ACQUIRE(...) ZORVA_THREAD_SAFETY(try_acquire_capability(__VA_ARGS__))
#define ZORVA_RELEASE(...) ZORVA_THREAD_SAFETY(release_capability(__VA_ARGS__))
#define ZORVA_RELEASE_GENERIC(...) ZORVA_THREAD_SAFETY(release_generic_capability(__VA_ARGS__))
// Of a function that takes or releases depending on what it finds: its body is not checked.
#define ZORVA_NO_THREAD_SAFETY_ANALYSIS ZORVA_THREAD_SAFETY(no_thread_safety_analysis)

namespace base {

/// std::mutex, held by a MutexLock.
class ZORVA_CAPABILITY("mutex") Mutex {
    friend class MutexLock;
    std::mutex mutex_;
};

/// Holds a Mutex from construction to destruction, except while it waits.
class ZORVA_SCOPED_CAPABILITY MutexLock {
public:
    explicit MutexLock(Mutex& mutex) ZORVA_ACQUIRE(mutex) : lock_(mutex.mutex_) {}
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;
    ~MutexLock() ZORVA_RELEASE() = default;

    /// Waits until the condition variable is notified, or for no reason: to be called in a loop that
    /// looks whether what is waited for has happened.
    void wait(std::condition_variable& condition) { condition.wait(lock_); }

    /// The same until a point in time at most; false once that has passed.
    template <class Time>
    bool waitUntil(std::condition_variable& condition, const Time& end) {
        return condition.wait_until(lock_, end) == std::cv_status::no_timeout;
    }

private:
    std::unique_lock<std::mutex> lock_;
};

/// std::shared_mutex, held by one ExclusiveLock or by any number of SharedLocks.
class ZORVA_CAPABILITY("mutex") SharedMutex {
    friend class ExclusiveLock;
    friend class SharedLock;
    std::shared_mutex mutex_;
};

/// Holds a SharedMutex for writing, from construction to destruction.
class ZORVA_SCOPED_CAPABILITY ExclusiveLock {
public:
    explicit ExclusiveLock(SharedMutex& mutex) ZORVA_ACQUIRE(mutex) : lock_(mutex.mutex_) {}
    ExclusiveLock(const ExclusiveLock&) = delete;
    ExclusiveLock& operator=(const ExclusiveLock&) = delete;
    ~ExclusiveLock() ZORVA_RELEASE() = default;

private:
    std::unique_lock<std::shared_mutex> lock_;
};

/// Holds a SharedMutex for reading, from construction to destruction.
class ZORVA_SCOPED_CAPABILITY SharedLock {
public:
    explicit SharedLock(SharedMutex& mutex) ZORVA_ACQUIRE_SHARED(mutex) : lock_(mutex.mutex_) {}
    SharedLock(const SharedLock&) = delete;
    SharedLock& operator=(const SharedLock&) = delete;
    ~SharedLock() ZORVA_RELEASE_GENERIC() = default;

private:
    std::shared_lock<std::shared_mutex> lock_;
};

}  // namespace base
