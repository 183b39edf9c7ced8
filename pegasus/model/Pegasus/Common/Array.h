// SPDX-License-Identifier: MIT
// The object model's growing array, whose copies share their elements until one of them is written.
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

namespace Detail {
/// Throws IndexOutOfBoundsException; apart because that exception's text is a String and a String
/// is made of an Array.
[[noreturn]] void throwIndexOutOfBounds();
}  // namespace Detail

/// A growing array.
///
/// A copy costs one counter: both arrays share one buffer until one of them is written, which gives
/// it a buffer of its own. Taking an element through the non-const operator[] counts as writing, so
/// a reference obtained before the array was copied reaches both copies. Indices are checked: one
/// past the end throws IndexOutOfBoundsException and changes nothing. Items handed in may be the
/// array's own. Different arrays may be used by different threads even where they share a buffer;
/// one array must not be written while another thread uses it.
template <class T>
class Array {
public:
    /// The most elements that a buffer is made for; a request for more throws std::bad_alloc.
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
    /// Copies of `size` elements that lie one behind the other.
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

    /// Removes all elements; an array that shares its buffer with no other keeps the capacity.
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

    /// Makes room for at least `capacity` elements: a power of two, from 8 on.
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

    /// The elements, one behind the other, valid until the array is written; null if there is no
    /// buffer.
    const T* getData() const noexcept { return buffer_ == nullptr ? nullptr : elements(); }

    /// The element, to be written; valid until the array is next written or copied.
    T& operator[](Uint32 index) {
        check(index < size());
        unshare();
        return elements()[index];
    }
    const T& operator[](Uint32 index) const {
        check(index < size());
        return elements()[index];
    }

    /// Adds an element, or several, behind the last one.
    void append(const T& item) { append(&item, 1); }
    void append(T&& item) {
        T taken(std::move(item));  // before elements move: it may be the array's own
        reserveCapacity(checkedSum(size(), 1));
        std::uninitialized_move_n(&taken, 1, elements() + buffer_->size);
        ++buffer_->size;
    }
    void append(const T* items, Uint32 size) {
        if (size == 0) {
            return;
        }
        // Whoever appends an array's own elements needs them in place until they are copied.
        const Array keep = contains(items) ? *this : Array();
        reserveCapacity(checkedSum(this->size(), size));
        std::uninitialized_copy_n(items, size, elements() + buffer_->size);
        buffer_->size += size;
    }
    void appendArray(const Array& other) { append(other.getData(), other.size()); }

    /// Adds an element, or several, before the first one.
    void prepend(const T& item) { insert(0, &item, 1); }
    void prepend(const T* items, Uint32 size) { insert(0, items, size); }

    /// Adds an element, or several, before the one at the index; index size() appends.
    void insert(Uint32 index, const T& item) { insert(index, &item, 1); }
    void insert(Uint32 index, const T* items, Uint32 size) {
        const Uint32 oldSize = this->size();
        check(index <= oldSize);
        append(items, size);
        if (size != 0) {
            std::rotate(elements() + index, elements() + oldSize, elements() + buffer_->size);
        }
    }

    /// Removes the element at the index, or `size` elements from there on. Removing none is allowed
    /// at any index.
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
    /// Head of a buffer; the elements follow at elementOffset.
    struct Buffer {
        Detail::ReferenceCount references;
        Uint32 size = 0;
        Uint32 capacity = 0;
    };
    static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
    static constexpr std::size_t elementOffset =
        (sizeof(Buffer) + alignof(T) - 1) / alignof(T) * alignof(T);

    static void check(bool isInBounds) {
        if (!isInBounds) {
            Detail::throwIndexOutOfBounds();
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

    /// Takes the elements, copied where others share them, into a new buffer of enough capacity.
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
