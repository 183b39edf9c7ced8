// SPDX-License-Identifier: MIT
// The labelled values of one line of a device list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/Integers.h"

namespace devicelist {

/// Reads fields like "Lev=00" and "MxPS= 8" from a line, and keeps account of what is wrong with it:
/// fields that are missing or unreadable, and text that belongs to no field asked for.
///
/// Labels are given with their "=". Blanks, tabs, carriage returns and commas separate fields;
/// blanks and tabs may stand between a label and its value; the order of the fields does not
/// matter. For one thread.
class LineFields {
public:
    /// `text`: the line after its letter, colon and mark. It must outlive this object.
    explicit LineFields(std::string_view text) : text_(text) {}

    /// A decimal number with `unit` right after it.
    template <typename Unsigned = unsigned>
    std::optional<Unsigned> decimal(std::string_view label, std::string_view unit = {}) {
        return checked(label, base::parseDigits<Unsigned>(withoutUnit(word(label), unit)));
    }

    /// A decimal number that may be negative, with `unit` right after it.
    std::optional<int> signedDecimal(std::string_view label, std::string_view unit = {});

    /// Two numbers that may be negative, with a slash and perhaps blanks between them.
    std::optional<std::pair<int, int>> signedPair(std::string_view label);

    /// A hexadecimal number.
    template <typename Unsigned>
    std::optional<Unsigned> hexadecimal(std::string_view label) {
        return checked(label, base::parseDigits<Unsigned>(word(label), 16));
    }

    /// A hexadecimal number followed by a text in brackets, at most 5 characters, which is put into
    /// `name` without the blanks at its end if the number can be read.
    std::optional<std::uint8_t> namedHexadecimal(std::string_view label, std::string& name);

    /// Binary coded decimal: " 1.10" is 0x0110.
    std::optional<std::uint16_t> version(std::string_view label);

    /// A speed in Mb/s with at most one decimal place. "??" is no value, and nothing wrong.
    std::optional<double> speed(std::string_view label);

    /// A time in ms or us, returned in us.
    std::optional<std::int64_t> microseconds(std::string_view label);

    /// Notes something else that is wrong with the field.
    void note(std::string_view label, std::string_view what);

    /// Whether any value was read.
    bool anyRead() const { return anyRead_; }

    /// What is wrong with the line, in words that hold nothing of its values; empty if nothing is.
    std::string damage() const;

private:
    /// The value of the field, up to the next separator; empty if there is no such field.
    std::string_view word(std::string_view label);
    /// Where the value of the field begins; at the end, which is noted, if there is no such field.
    std::size_t find(std::string_view label);
    std::size_t findLabel(std::string_view label, std::size_t start) const;
    std::size_t skipBlanks(std::size_t at) const;
    std::size_t endOfWord(std::size_t at) const;
    void take(std::size_t begin, std::size_t end);
    static std::string_view withoutUnit(std::string_view value, std::string_view unit);

    template <typename Value>
    std::optional<Value> checked(std::string_view label, std::optional<Value> value) {
        if (value.has_value()) {
            anyRead_ = true;
        } else if (isFound_) {
            note(label, "is unreadable");
        }
        return value;
    }

    std::string_view text_;
    std::size_t next_ = 0;   ///< after the last field: there the kernel has the next one
    std::size_t taken_ = 0;  ///< how many characters, separators apart, were understood
    bool isFound_ = false;   ///< whether the field last asked for is there
    bool anyRead_ = false;
    std::string damage_;
};

}  // namespace devicelist
