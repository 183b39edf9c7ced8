// SPDX-License-Identifier: MIT
#include "servers/serving/RequestScope.h"

#include "servers/serving/ProviderBusy.h"

namespace serving {

namespace {

// A plain pointer: it needs no destructor, so the library can be unloaded while threads live on.
thread_local RequestScope* currentScope = nullptr;

}  // namespace

std::unique_lock<std::timed_mutex> lockWithin(std::timed_mutex& mutex,
                                              std::chrono::milliseconds limit) {
    // By the system's clock: ThreadSanitizer does not see locks that are taken by the steady one.
    std::unique_lock<std::timed_mutex> lock(mutex, std::chrono::system_clock::now() + limit);
    if (!lock.owns_lock()) {
        throw ProviderBusy("the provider is still at work on an earlier request");
    }
    return lock;
}

RequestScope::RequestScope(ProviderLocks& locks, const Pegasus::OperationContext& context,
                           std::chrono::milliseconds limit)
    : tableLock_(lockWithin(locks.table, limit)), context_(context), outer_(currentScope) {
    currentScope = this;
}

RequestScope::~RequestScope() {
    currentScope = outer_;
}

RequestScope* RequestScope::current() {
    return currentScope;
}

ServerCallScope::ServerCallScope() : request_(currentScope) {
    if (request_ != nullptr) {
        request_->tableLock_.unlock();
    }
}

ServerCallScope::~ServerCallScope() {
    if (request_ != nullptr) {
        request_->tableLock_.lock();
    }
}

}  // namespace serving
