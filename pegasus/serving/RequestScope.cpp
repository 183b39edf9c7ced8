// SPDX-License-Identifier: MIT
#include "pegasus/serving/RequestScope.h"

namespace serving {

namespace {

// A plain pointer: it needs no destructor, so the library can be unloaded while threads live on.
thread_local RequestScope* currentScope = nullptr;

}  // namespace

RequestScope::RequestScope(ProviderLocks& locks, const Pegasus::OperationContext& context)
    : tableLock_(locks.table), context_(context), outer_(currentScope) {
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
