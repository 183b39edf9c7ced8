// SPDX-License-Identifier: MIT
// The object model's dynamic array, with copy-on-write.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <utility>

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Detail/ReferenceCount.h>

namespace Pegasus {

namespace detail {
/// Throws IndexOutOfBoundsException. Defined elsewhere, because that exception has a String, which
/// contains an Array.
[[noreturn]] void throwIndexOutOfBounds();
}  // namespace detail

/// A dynamic array.
///
/// Copies share one buffer, with an atomic reference count, until one of them is written; that one
/// gets its own buffer. The non-const operator[] counts as writing. A reference that it returned
/// before the array was copied changes both copies. Indices are checked: an index past the end
/// throws IndexOutOfBoundsException and changes nothing. Arguments may be elements of the array
/// itself.
///
/// One array is used by one thread at a time, unless it is only read. Different arrays may be used
/// by different threads, even if they share a buffer.
template <class T>
class Array {
public:
    /// The largest capacity; a request for more throws std::bad_alloc.
    static constexpr Uint32 maximumCapacity = 0x3FFFFFFF;

    /// An empty array without a buffer.
    constexpr Array() noexcept = default;
    Array(const Array& other) noexcept : buffer_(other.buffer_) {
        if (buffer_ != nullptr) {
            buffer_->references.retain();
        }
    }
    Array(Array&& other) noexcept : buffer_(std::exchange(other.buffer_, nullptr)) {}
    /// `size` default elements; numbers are zero.
    Array(Uint32 size) : Array(size, T()) {}
    /// `size` copies of an element.
    Array(Uint32 size, const T& item) : Array() {
        buffer_ = makeBuffer(size);
        if (buffer_ != nullptr) {
            std::uninitialized_fill_n(elements(), size, item);
            buffer_->size = size;
        }
    }
    /// Copies of `size` consecutive elements.
    Array(const T* items, Uint32 size) : Array() {
        buffer_ = makeBuffer(size);
        if (buffer_ != nullptr) {
            std::uninitialized_copy_n(items, size, elements());
            buffer_->size = size;
        }
    }
    ~Array() { drop(); }

    Array& operator=(Array other) noexcept {
        swap(other);
        return *this;
    }

    /// Removes all elements. The capacity is kept unless the buffer is shared.
    void clear() {
        if (buffer_ == nullptr) {
            return;
        }
        if (buffer_->references.isShared()) {
            drop();
            buffer_ = nullptr;
        } else {
            std::destroy_n(elements(), buffer_->size);
            buffer_->size = 0;
        }
    }

    /// Makes room for at least `capacity` elements, rounded up to a power of two, at least 8.
    void reserveCapacity(Uint32 capacity) {
        if (capacity > getCapacity() || isShared()) {
            moveTo(makeBuffer(std::max(roundedUp(capacity), getCapacity())));
        }
    }

    /// Appends `size` copies of an element.
    void grow(Uint32 size, const T& item) { appendArray(Array(size, item)); }

    void swap(Array& other) noexcept { std::swap(buffer_, other.buffer_); }

    Uint32 size() const noexcept { return buffer_ == nullptr ? 0 : buffer_->size; }
    Uint32 getCapacity() const noexcept { return buffer_ == nullptr ? 0 : buffer_->capacity; }

    /// The elements, valid until the array is written; null if there is no buffer.
    const T* getData() const noexcept { return buffer_ == nullptr ? nullptr : elements(); }

    /// The element, for writing; valid until the array is written or copied.
    T& operator[](Uint32 index) {
        check(index < size());
        unshare();
        return elements()[index];
    }
    const T& operator[](Uint32 index) const {
        check(index < size());
        return elements()[index];
    }

    /// Adds one or several elements at the end.
    void append(const T& item) { append(&item, 1); }
    void append(T&& item) {
        T taken(std::move(item));  // before elements move: it may be one of them
        reserveCapacity(checkedSum(size(), 1));
        std::uninitialized_move_n(&taken, 1, elements() + buffer_->size);
        ++buffer_->size;
    }
    void append(const T* items, Uint32 size) {
        if (size == 0) {
            return;
        }
        // If the items are elements of this array, they must exist until they are copied.
        const Array keep = contains(items) ? *this : Array();
        reserveCapacity(checkedSum(this->size(), size));
        std::uninitialized_copy_n(items, size, elements() + buffer_->size);
        buffer_->size += size;
    }
    void appendArray(const Array& other) { append(other.getData(), other.size()); }

    /// Adds one or several elements at the front.
    void prepend(const T& item) { insert(0, &item, 1); }
    void prepend(const T* items, Uint32 size) { insert(0, items, size); }

    /// Adds one or several elements before the one at the index; the index size() appends.
    void insert(Uint32 index, const T& item) { insert(index, &item, 1); }
    void insert(Uint32 index, const T* items, Uint32 size) {
        const Uint32 oldSize = this->size();
        check(index <= oldSize);
        append(items, size);
        if (size != 0) {
            std::rotate(elements() + index, elements() + oldSize, elements() + buffer_->size);
        }
    }

    /// Removes the element at the index, or `size` elements from there on. Any index is allowed if
    /// `size` is 0.
    void remove(Uint32 index) { remove(index, 1); }
    void remove(Uint32 index, Uint32 size) {
        if (size == 0) {
            return;
        }
        check(index < this->size() && size <= this->size() - index);
        unshare();
        T* const end = elements() + buffer_->size;
        T* const newEnd = std::move(elements() + index + size, end, elements() + index);
        std::destroy(newEnd, end);
        buffer_->size -= size;
    }

private:
    /// The header of a buffer; the elements follow at elementOffset.
    struct Buffer {
        detail::ReferenceCount references;
        Uint32 size = 0;
        Uint32 capacity = 0;
    };
    static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
    static constexpr std::size_t elementOffset =
        (sizeof(Buffer) + alignof(T) - 1) / alignof(T) * alignof(T);

    static void check(bool isInBounds) {
        if (!isInBounds) {
            detail::throwIndexOutOfBounds();
        }
    }

    static Uint32 checkedSum(Uint32 x, Uint32 y) {
        if (y > maximumCapacity - x) {
            throw std::bad_alloc();
        }
        return x + y;
    }

    static Uint32 roundedUp(Uint32 capacity) {
        if (capacity > maximumCapacity) {
            throw std::bad_alloc();
        }
        Uint32 power = 8;
        while (power < capacity) {
            power *= 2;
        }
        return power;
    }

    static Buffer* makeBuffer(Uint32 capacity) {
        if (capacity == 0) {
            return nullptr;
        }
        if (capacity > maximumCapacity + 1) {
            throw std::bad_alloc();
        }
        auto* const buffer = new (::operator new(elementOffset + capacity * sizeof(T))) Buffer;
        buffer->capacity = capacity;
        return buffer;
    }

    static T* elementsOf(Buffer* buffer) noexcept {
        return reinterpret_cast<T*>(reinterpret_cast<char*>(buffer) + elementOffset);
    }
    T* elements() const noexcept { return elementsOf(buffer_); }

    bool isShared() const noexcept { return buffer_ != nullptr && buffer_->references.isShared(); }

    bool contains(const T* item) const noexcept {
        return buffer_ != nullptr && !std::less<const T*>()(item, elements()) &&
               std::less<const T*>()(item, elements() + buffer_->size);
    }

    void unshare() {
        if (isShared()) {
            moveTo(makeBuffer(buffer_->capacity));
        }
    }

    /// Moves the elements, or copies them if they are shared, to a new buffer of sufficient
    /// capacity.
    void moveTo(Buffer* buffer) {
        Array target;
        target.buffer_ = buffer;
        if (buffer_ != nullptr) {
            if (isShared()) {
                std::uninitialized_copy_n(elements(), buffer_->size, target.elements());
            } else {
                std::uninitialized_move_n(elements(), buffer_->size, target.elements());
            }
            buffer->size = buffer_->size;
        }
        swap(target);
    }

    void drop() noexcept {
        if (buffer_ != nullptr && buffer_->references.release()) {
            std::destroy_n(elements(), buffer_->size);
            buffer_->~Buffer();
            ::operator delete(buffer_);
        }
    }

    Buffer* buffer_ = nullptr;
};

}  // namespace Pegasus
