// SPDX-License-Identifier: MIT
#include "servers/serving/RequestScope.h"

#include <algorithm>

#include "servers/serving/ProviderBusy.h"

namespace serving {

namespace {

// A plain pointer: it needs no destructor, so the library can be unloaded while threads live on.
thread_local RequestScope* currentScope = nullptr;

}  // namespace

RequestScope::RequestScope(ProviderLocks& locks, const Pegasus::OperationContext& context, Time end,
                           std::optional<std::chrono::milliseconds> timePerCall)
    : table_(locks.table),
      context_(context),
      outer_(currentScope),
      end_(end),
      timePerCall_(timePerCall) {
    if (outer_ != nullptr) {
        end_ = std::min(end_, outer_->end_);
    }
    holdsTable_ = table_.lockUntil(end_);
    if (!holdsTable_) {
        throw ProviderBusy();
    }
    currentScope = this;
}

RequestScope::~RequestScope() {
    currentScope = outer_;
    if (holdsTable_) {
        table_.unlock();
    }
}

RequestScope* RequestScope::current() {
    return currentScope;
}

void RequestScope::giveTableBack() {
    if (timePerCall_) {
        end_ = std::chrono::steady_clock::now() + *timePerCall_;
    }
    holdsTable_ = false;
    table_.unlock();
}

void RequestScope::takeTableAgain() {
    holdsTable_ = table_.lockUntil(end_);
    if (!holdsTable_) {
        throw RequestAbandoned();
    }
}

}  // namespace serving
