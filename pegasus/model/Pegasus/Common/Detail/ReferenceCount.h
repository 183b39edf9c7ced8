// SPDX-License-Identifier: MIT
// The counting that lets handles share what they stand for, across threads and across libraries.
#pragma once

#include <atomic>
#include <utility>

#include <Pegasus/Common/Config.h>

namespace Pegasus::Detail {

/// How many handles share an object; an object is made with one.
///
/// The counter has no virtual function: an object may outlive the library whose code made it. Any
/// thread may count at any time.
class ReferenceCount {
public:
    ReferenceCount() = default;
    /// A copied object is a new one: it starts with one handle of its own.
    ReferenceCount(const ReferenceCount& /*other*/) noexcept {}
    ReferenceCount& operator=(const ReferenceCount&) = delete;
    ~ReferenceCount() = default;

    void retain() noexcept { count_.fetch_add(1, std::memory_order_relaxed); }

    /// Takes one handle away; true if it was the last, so that the caller deletes the object.
    [[nodiscard]] bool release() noexcept {
        // Nobody can make a handle of the last one but its own thread, so no count is needed then,
        // which would cost as much as the rest of the deletion.
        return !isShared() || count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

    /// Whether more than one handle is left. While the answer is false only its own thread can
    /// change that.
    bool isShared() const noexcept { return count_.load(std::memory_order_acquire) != 1; }

private:
    std::atomic<Uint32> count_{1};
};

/// A handle on a shared object, or on nothing. Rep has a member `references` of type ReferenceCount
/// and needs to be complete only where handles are copied or destroyed.
template <class Rep>
class SharedRep {
public:
    constexpr SharedRep() noexcept = default;
    /// Takes over a new object, whose count is one.
    explicit SharedRep(Rep* created) noexcept : rep_(created) {}
    SharedRep(const SharedRep& other) noexcept : rep_(other.rep_) {
        if (rep_ != nullptr) {
            rep_->references.retain();
        }
    }
    SharedRep(SharedRep&& other) noexcept : rep_(std::exchange(other.rep_, nullptr)) {}
    SharedRep& operator=(SharedRep other) noexcept {
        std::swap(rep_, other.rep_);
        return *this;
    }
    ~SharedRep() {
        if (rep_ != nullptr && rep_->references.release()) {
            delete rep_;
        }
    }

    Rep* get() const noexcept { return rep_; }
    Rep& operator*() const noexcept { return *rep_; }
    Rep* operator->() const noexcept { return rep_; }
    explicit operator bool() const noexcept { return rep_ != nullptr; }

private:
    Rep* rep_ = nullptr;
};

}  // namespace Pegasus::Detail
