// SPDX-License-Identifier: MIT
// Pairs of values, and arrays of pairs.
//
// Declared here for both builds: the OpenPegasus SDK does not contain that project's Pair, and
// offers Array only for its own element types. The inline namespace keeps the symbols distinct from
// those that the server's libraries export.
#pragma once

#include <utility>
#include <vector>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus {
inline namespace provider_interface {

/// A pair of values. One thread at a time, unless it is only read.
template <class First, class Second>
struct Pair {
    Pair() : first(), second() {}
    Pair(First firstValue, Second secondValue)
        : first(std::move(firstValue)), second(std::move(secondValue)) {}

    First first;
    Second second;
};

}  // namespace provider_interface

/// An array of pairs, with the operations of the object model's Array that tables need. Copies are
/// independent and copy all elements.
///
/// Indices are checked: an index past the end throws IndexOutOfBoundsException and changes nothing.
/// One thread at a time, unless it is only read.
template <class First, class Second>
class Array<provider_interface::Pair<First, Second>> {
public:
    using Element = provider_interface::Pair<First, Second>;

    /// Number of elements.
    Uint32 size() const { return static_cast<Uint32>(elements_.size()); }

    /// Adds a copy of the element at the end.
    void append(const Element& element) { elements_.push_back(element); }

    /// Removes the element at the index; later elements move up.
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
