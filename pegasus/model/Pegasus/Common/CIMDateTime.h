// SPDX-License-Identifier: MIT
// Points in time and intervals, in the text form of CIM.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// A point in time ("yyyymmddhhmmss.mmmmmm+utc", the offset in minutes) or an interval
/// ("ddddddddhhmmss.mmmmmm:000").
///
/// Asterisks may stand for the trailing fields, and for trailing digits of the microseconds; they
/// count as the smallest value and are kept in the text. Comparing or subtracting a point in time
/// and an interval throws.
class CIMDateTime {
public:
    /// The interval of length zero.
    CIMDateTime() = default;
    /// Reads the text form. Throws InvalidDateTimeFormatException or, for a field that is too
    /// large or a day that does not exist, DateTimeOutOfRangeException.
    CIMDateTime(const String& text);
    /// An interval of so many microseconds, or the point in time so many microseconds after the
    /// begin of the year 0, in UTC. Throws DateTimeOutOfRangeException from 100 million days, or
    /// the year 10000, on.
    CIMDateTime(Uint64 microseconds, Boolean isInterval);

    /// The text form, always 25 characters.
    String toString() const;

    /// Reads the text form as the constructor does; if that throws, this becomes the interval of
    /// length zero.
    void set(const String& text);
    /// Makes this the interval of length zero.
    void clear() { *this = CIMDateTime(); }

    /// The current time, with the offset of the machine's time zone.
    static CIMDateTime getCurrentDateTime();

    /// Microseconds from start to finish; throws InvalidDateTimeFormatException if one of them is
    /// an interval and the other is not.
    static Sint64 getDifference(CIMDateTime startTime, CIMDateTime finishTime);

    Boolean isInterval() const { return isInterval_; }

    /// Length of an interval, or time since the begin of the year 0 in UTC.
    Uint64 toMicroSeconds() const { return microseconds_; }

    /// Whether both are the same point in time, whatever their offsets, or equally long. Like all
    /// comparisons it throws TypeMismatchException if one is an interval and the other is not.
    Boolean equal(const CIMDateTime& other) const;
    Boolean operator!=(const CIMDateTime& other) const { return !equal(other); }
    Boolean operator<(const CIMDateTime& other) const;
    Boolean operator<=(const CIMDateTime& other) const { return !(other < *this); }
    Boolean operator>(const CIMDateTime& other) const { return other < *this; }
    Boolean operator>=(const CIMDateTime& other) const { return !(*this < other); }

    /// This plus an interval, keeping the offset; throws TypeMismatchException if `interval` is a
    /// point in time, DateTimeOutOfRangeException if the sum is out of range.
    CIMDateTime operator+(const CIMDateTime& interval) const;
    CIMDateTime& operator+=(const CIMDateTime& interval);

private:
    void requireSameKind(const CIMDateTime& other) const;
    Sint64 localMicroseconds() const;

    Uint64 microseconds_ = 0;
    Sint16 utcOffset_ = 0;  // minutes
    // How many of the 20 digits before the offset are no asterisks.
    Uint8 digits_ = 20;
    Boolean isInterval_ = true;
};

inline Boolean operator==(const CIMDateTime& x, const CIMDateTime& y) {
    return x.equal(y);
}

}  // namespace Pegasus
