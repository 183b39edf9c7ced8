// SPDX-License-Identifier: MIT
// What a request holds while it is inside the library, and gives back while it is out of it.
#pragma once

#include <chrono>
#include <mutex>

#include <Pegasus/Common/OperationContext.h>

#include "servers/serving/ProviderLocks.h"

namespace serving {

/// Locks a mutex of ProviderLocks. Throws ProviderBusy where `limit` passes before it is free.
std::unique_lock<std::timed_mutex> lockWithin(std::timed_mutex& mutex,
                                              std::chrono::milliseconds limit);

/// A request's stay inside the library: holds the table lock from construction to destruction.
///
/// Scopes of one thread nest, since a call back into the server may lead to the library again.
class RequestScope {
public:
    /// Waits up to `limit` until the library is free, then throws ProviderBusy.
    RequestScope(ProviderLocks& locks, const Pegasus::OperationContext& context,
                 std::chrono::milliseconds limit);
    RequestScope(const RequestScope&) = delete;
    RequestScope& operator=(const RequestScope&) = delete;
    ~RequestScope();

    const Pegasus::OperationContext& context() const { return context_; }

    /// The scope that this thread is in, or null.
    static RequestScope* current();

private:
    friend class ServerCallScope;

    std::unique_lock<std::timed_mutex> tableLock_;
    const Pegasus::OperationContext& context_;
    RequestScope* outer_;
};

/// A stay of the current request outside the library, in the server: the table lock is given back
/// from construction to destruction. Does nothing on a thread that is in no request.
class ServerCallScope {
public:
    ServerCallScope();
    ServerCallScope(const ServerCallScope&) = delete;
    ServerCallScope& operator=(const ServerCallScope&) = delete;
    ~ServerCallScope();

private:
    RequestScope* request_;
};

}  // namespace serving
