// SPDX-License-Identifier: MIT
// Two values side by side, and arrays of them.
//
// OpenPegasus has a Pair of its own that its SDK does not offer, and an Array whose SDK form exists
// for its own element types only. Both are therefore declared here; the inline namespace keeps the
// symbols apart from those that the server's libraries export.
#pragma once

#include <utility>
#include <vector>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus {
inline namespace provider_interface {

/// Two values side by side.
template <class First, class Second>
struct Pair {
    Pair() : first(), second() {}
    Pair(First firstValue, Second secondValue)
        : first(std::move(firstValue)), second(std::move(secondValue)) {}

    First first;
    Second second;
};

}  // namespace provider_interface

/// An array of pairs, with the operations of the object model's Array that tables need.
///
/// Indices are checked: one past the end throws IndexOutOfBoundsException and changes nothing.
/// One array may be used by one thread at a time.
template <class First, class Second>
class Array<provider_interface::Pair<First, Second>> {
public:
    using Element = provider_interface::Pair<First, Second>;

    /// Number of elements.
    Uint32 size() const { return static_cast<Uint32>(elements_.size()); }

    /// Adds a copy of the element behind the last one.
    void append(const Element& element) { elements_.push_back(element); }

    /// Removes the element at the index; those behind it move up.
    void remove(Uint32 index) {
        check(index);
        elements_.erase(elements_.begin() + index);
    }

    /// Removes all elements.
    void clear() { elements_.clear(); }

    Element& operator[](Uint32 index) {
        check(index);
        return elements_[index];
    }

    const Element& operator[](Uint32 index) const {
        check(index);
        return elements_[index];
    }

private:
    void check(Uint32 index) const {
        if (index >= elements_.size()) {
            throw IndexOutOfBoundsException();
        }
    }

    std::vector<Element> elements_;
};

}  // namespace Pegasus
