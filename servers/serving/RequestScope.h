// SPDX-License-Identifier: MIT
// What a request holds while it is inside the library, and gives back while it is out of it.
#pragma once

#include <chrono>
#include <optional>

#include <Pegasus/Common/OperationContext.h>

#include "base/ThreadSafety.h"
#include "servers/serving/ProviderLocks.h"

namespace serving {

/// Thrown through the library when a request that has called back into the server does not get the
/// table lock again in time.
///
/// No exception of the object model on purpose: the library takes those of a call back for its
/// answer and would go on, without the lock. This one it does not catch.
class RequestAbandoned {};

/// A request's stay inside the library: holds the table lock from construction to destruction,
/// except during callServer(). Belongs to the thread that made it.
///
/// Scopes of one thread nest, since a call back into the server may lead to the library again. A
/// nested one has no more time than the one around it.
class ZORVA_SCOPED_CAPABILITY RequestScope {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Waits until `end` for the library to be free, then throws ProviderBusy. `end` holds for the
    /// whole request; with `timePerCall`, for requests that go on after their client has given up,
    /// each call back has that much time of its own.
    RequestScope(ProviderLocks& locks, const Pegasus::OperationContext& context, Time end,
                 std::optional<std::chrono::milliseconds> timePerCall = std::nullopt)
        ZORVA_ACQUIRE(locks.table);
    RequestScope(const RequestScope&) = delete;
    RequestScope& operator=(const RequestScope&) = delete;
    ~RequestScope() ZORVA_RELEASE();

    const Pegasus::OperationContext& context() const { return context_; }

    /// The scope that this thread is in, or null.
    static RequestScope* current();

private:
    template <class Call>
    friend auto callServer(Call call);

    // These two change what the scope holds, which clang's analysis cannot follow.
    void giveTableBack() ZORVA_NO_THREAD_SAFETY_ANALYSIS;
    /// Throws RequestAbandoned if the table is not free again in time.
    void takeTableAgain() ZORVA_NO_THREAD_SAFETY_ANALYSIS;

    TimedMutex& table_;
    bool holdsTable_ = false;
    const Pegasus::OperationContext& context_;
    RequestScope* outer_;
    Time end_;
    const std::optional<std::chrono::milliseconds> timePerCall_;
};

/// Calls into the server out of the library: the current request of this thread, if there is one,
/// gives the table lock back meanwhile. Returns what the call returns and throws what it throws, or
/// RequestAbandoned.
template <class Call>
auto callServer(Call call) {
    RequestScope* request = RequestScope::current();
    if (request == nullptr) {
        return call();
    }
    request->giveTableBack();
    auto answer = [&] {
        try {
            return call();
        } catch (...) {
            request->takeTableAgain();
            throw;
        }
    }();
    request->takeTableAgain();
    return answer;
}

}  // namespace serving
