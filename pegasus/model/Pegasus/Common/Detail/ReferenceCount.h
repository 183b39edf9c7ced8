// SPDX-License-Identifier: MIT
// Reference counting for objects that handles share across threads and libraries.
#pragma once

#include <atomic>
#include <utility>

#include <Pegasus/Common/Config.h>

namespace Pegasus::detail {

/// The number of handles that share an object, 1 for a new object.
///
/// It has no virtual functions, since an object may outlive the library that made it. Any thread
/// may call it at any time.
class ReferenceCount {
public:
    ReferenceCount() = default;
    /// The copy of an object is a new object, with one handle.
    ReferenceCount(const ReferenceCount& /*other*/) noexcept {}
    ReferenceCount& operator=(const ReferenceCount&) = delete;
    ~ReferenceCount() = default;

    void retain() noexcept { count_.fetch_add(1, std::memory_order_relaxed); }

    /// Removes one handle. Returns true if it was the last one; the caller must delete the object.
    [[nodiscard]] bool release() noexcept {
        // Only the thread of the last handle could copy it, so the last release needs no atomic
        // decrement, which would cost as much as the rest of the deletion.
        return !isShared() || count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

    /// Whether there is more than one handle. If not, only the thread of that handle can change it.
    bool isShared() const noexcept { return count_.load(std::memory_order_acquire) != 1; }

private:
    std::atomic<Uint32> count_{1};
};

/// A handle on a shared object, or a null handle. Rep has a member `references` of type
/// ReferenceCount, and must be complete only where handles are copied or destroyed. One handle is
/// used by one thread at a time; different handles on one object by any threads.
template <class Rep>
class SharedRep {
public:
    constexpr SharedRep() noexcept = default;
    /// Takes ownership of a new object.
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

}  // namespace Pegasus::detail
