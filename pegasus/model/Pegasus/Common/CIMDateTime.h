// SPDX-License-Identifier: MIT
// Points in time and intervals.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// A point in time, as text "yyyymmddhhmmss.mmmmmm+utc" with the offset from UTC in minutes, or an
/// interval, as text "ddddddddhhmmss.mmmmmm:000".
///
/// Trailing fields, and trailing digits of the microseconds, may be asterisks; they count as the
/// smallest value and are kept in the text. Operations on a point in time and an interval throw. A
/// plain value: one thread at a time, unless it is only read.
class CIMDateTime {
public:
    /// The interval of length zero.
    CIMDateTime() = default;
    /// Parses the text. Throws InvalidDateTimeFormatException, or DateTimeOutOfRangeException if a
    /// field is too large or the day does not exist.
    CIMDateTime(const String& text);
    /// An interval in microseconds, or a point in time in microseconds since the begin of the year
    /// 0, in UTC. Throws DateTimeOutOfRangeException for intervals of 100 million days or more, and
    /// for points in time after the year 9999.
    CIMDateTime(Uint64 microseconds, Boolean isInterval);

    /// The text, always 25 characters.
    String toString() const;

    /// Parses the text as the constructor does. If that throws, this becomes the interval of length
    /// zero.
    void set(const String& text);
    /// Makes this the interval of length zero.
    void clear() { *this = CIMDateTime(); }

    /// The current time, with the offset of the local time zone.
    static CIMDateTime getCurrentDateTime();

    /// Microseconds from start to finish; throws InvalidDateTimeFormatException if one of them is
    /// an interval and the other is not.
    static Sint64 getDifference(CIMDateTime startTime, CIMDateTime finishTime);

    Boolean isInterval() const { return isInterval_; }

    /// The length of an interval, or the time since the begin of the year 0 in UTC.
    Uint64 toMicroSeconds() const { return microseconds_; }

    /// Whether both are the same point in time, even with different offsets, or intervals of the
    /// same length. Like all comparisons, throws TypeMismatchException if one is an interval and
    /// the other is not.
    Boolean equal(const CIMDateTime& other) const;
    Boolean operator!=(const CIMDateTime& other) const { return !equal(other); }
    Boolean operator<(const CIMDateTime& other) const;
    Boolean operator<=(const CIMDateTime& other) const { return !(other < *this); }
    Boolean operator>(const CIMDateTime& other) const { return other < *this; }
    Boolean operator>=(const CIMDateTime& other) const { return !(*this < other); }

    /// The sum of this and an interval, with the offset of this. Throws TypeMismatchException if
    /// `interval` is a point in time, DateTimeOutOfRangeException if the sum is out of range.
    CIMDateTime operator+(const CIMDateTime& interval) const;
    CIMDateTime& operator+=(const CIMDateTime& interval);

private:
    void requireSameKind(const CIMDateTime& other) const;
    Sint64 localMicroseconds() const;

    Uint64 microseconds_ = 0;
    Sint16 utcOffset_ = 0;  // in minutes
    // The number of the 20 digits before the offset that are not asterisks.
    Uint8 digits_ = 20;
    Boolean isInterval_ = true;
};

inline Boolean operator==(const CIMDateTime& x, const CIMDateTime& y) {
    return x.equal(y);
}

}  // namespace Pegasus
