// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

#include <Pegasus/Common/CIMDateTime.h>

#include "base/Ascii.h"
#include "base/Integers.h"

namespace Pegasus {

namespace {

constexpr Sint64 microsecondsPerSecond = 1000000;
constexpr Sint64 microsecondsPerMinute = 60 * microsecondsPerSecond;
constexpr Sint64 microsecondsPerHour = 60 * microsecondsPerMinute;
constexpr Sint64 microsecondsPerDay = 24 * microsecondsPerHour;
constexpr Sint64 daysInFourCenturies = 146097;

constexpr Sint64 tooLongInterval = 100000000 * microsecondsPerDay;
constexpr Sint64 tooLatePoint = 25 * daysInFourCenturies * microsecondsPerDay;
constexpr const char* tooLateMessage =
    "Cannot create a CIMDateTime point in time after the year 9999";
constexpr Sint64 unixEpoch = 719528 * microsecondsPerDay;

// The text: 14 digits, a dot, 6 digits, the sign of the offset or a colon, 3 digits.
constexpr std::size_t textSize = 25;
constexpr std::size_t dotIndex = 14;
constexpr std::size_t signIndex = 21;
constexpr std::size_t digitCount = 20;

struct Field {
    std::size_t begin;
    std::size_t size;
};
constexpr Field yearField{0, 4};
constexpr Field monthField{4, 2};
constexpr Field dayField{6, 2};
constexpr Field intervalDaysField{0, 8};
constexpr Field hoursField{8, 2};
constexpr Field minutesField{10, 2};
constexpr Field secondsField{12, 2};
constexpr Field microsecondsField{14, 6};

constexpr bool isLeapYear(Sint64 year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr Sint64 daysInMonth(Sint64 year, Sint64 month) {
    constexpr std::array<Sint64, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : days.at(static_cast<std::size_t>(month - 1));
}

/// The days from the begin of the year 0, which is a leap year, to the begin of a year.
constexpr Sint64 daysBeforeYear(Sint64 year) {
    return 365 * year + (year + 3) / 4 - (year + 99) / 100 + (year + 399) / 400;
}

struct Date {
    Sint64 year;
    Sint64 month;
    Sint64 day;
};

Sint64 daysBefore(const Date& date) {
    Sint64 days = daysBeforeYear(date.year) + date.day - 1;
    for (Sint64 month = 1; month < date.month; ++month) {
        days += daysInMonth(date.year, month);
    }
    return days;
}

Date dateAfter(Sint64 days) {
    Date date{days * 400 / daysInFourCenturies, 1, 1};
    while (daysBeforeYear(date.year) > days) {
        --date.year;
    }
    while (daysBeforeYear(date.year + 1) <= days) {
        ++date.year;
    }
    Sint64 left = days - daysBeforeYear(date.year);
    while (left >= daysInMonth(date.year, date.month)) {
        left -= daysInMonth(date.year, date.month);
        ++date.month;
    }
    date.day = left + 1;
    return date;
}

/// The text as ASCII, or nothing if it cannot be a date.
std::string asciiOf(const String& text) {
    std::string ascii;
    if (text.size() == textSize) {
        std::transform(
            text.getChar16Data(), text.getChar16Data() + textSize, std::back_inserter(ascii),
            [](Uint16 unit) { return base::isAscii(unit) ? static_cast<char>(unit) : '?'; });
    }
    return ascii;
}

/// The number of the 20 digits before the offset that are not asterisks. Throws
/// InvalidDateTimeFormatException if something else follows an asterisk, or if asterisks replace a
/// part of a field other than the microseconds.
std::size_t countDigits(std::string_view digits, bool isInterval) {
    const std::size_t count = std::min(digits.find('*'), digitCount);
    const std::size_t firstField = isInterval ? intervalDaysField.size : yearField.size;
    const bool endsField =
        count >= microsecondsField.begin || count == 0 || (count >= firstField && count % 2 == 0);
    if (!endsField || !std::all_of(digits.begin(), digits.begin() + count, base::isDigit) ||
        digits.find_first_not_of('*', count) != std::string_view::npos) {
        throw InvalidDateTimeFormatException();
    }
    return count;
}

/// The number in a field, where asterisks count as zeros; `otherwise` if there are only asterisks.
Sint64 numberIn(std::string_view digits, const Field& field, Sint64 otherwise = 0) {
    const std::string_view text = digits.substr(field.begin, field.size);
    if (text[0] == '*') {
        return otherwise;
    }
    Sint64 number = 0;
    for (const char c : text) {
        number = number * 10 + (c == '*' ? 0 : c - '0');
    }
    return number;
}

void requireRange(bool isInRange, const char* message) {
    if (!isInRange) {
        throw DateTimeOutOfRangeException(message);
    }
}

Sint64 timeOfDayIn(std::string_view digits) {
    const Sint64 hours = numberIn(digits, hoursField);
    const Sint64 minutes = numberIn(digits, minutesField);
    const Sint64 seconds = numberIn(digits, secondsField);
    requireRange(hours < 24, "illegal hours number ");
    requireRange(minutes < 60, "illegal minutes number ");
    requireRange(seconds < 60, "illegal seconds number ");
    return hours * microsecondsPerHour + minutes * microsecondsPerMinute +
           seconds * microsecondsPerSecond + numberIn(digits, microsecondsField);
}

Sint64 daysIn(std::string_view digits) {
    const Date date{numberIn(digits, yearField), numberIn(digits, monthField, 1),
                    numberIn(digits, dayField, 1)};
    requireRange(date.month >= 1 && date.month <= 12, "illegal month number");
    requireRange(date.day >= 1 && date.day <= daysInMonth(date.year, date.month),
                 "illegal day number");
    return daysBefore(date);
}

}  // namespace

CIMDateTime::CIMDateTime(const String& text) {
    const std::string ascii = asciiOf(text);
    const bool isFormed = !ascii.empty() && ascii[dotIndex] == '.' &&
                          std::string_view("+-:").find(ascii[signIndex]) != std::string_view::npos;
    const auto offset =
        isFormed ? base::parseDigits<Uint16>(std::string_view(ascii).substr(signIndex + 1))
                 : std::nullopt;
    if (!offset) {
        throw InvalidDateTimeFormatException();
    }
    const std::string digits =
        ascii.substr(0, dotIndex) + ascii.substr(dotIndex + 1, signIndex - dotIndex - 1);
    isInterval_ = ascii[signIndex] == ':';
    digits_ = static_cast<Uint8>(countDigits(digits, isInterval_));
    if (isInterval_) {
        if (*offset != 0) {
            throw InvalidDateTimeFormatException();
        }
        microseconds_ = static_cast<Uint64>(
            numberIn(digits, intervalDaysField) * microsecondsPerDay + timeOfDayIn(digits));
        return;
    }
    utcOffset_ = static_cast<Sint16>(ascii[signIndex] == '-' ? -*offset : *offset);
    const Sint64 days = daysIn(digits);
    const Sint64 microseconds =
        days * microsecondsPerDay + timeOfDayIn(digits) - utcOffset_ * microsecondsPerMinute;
    requireRange(microseconds >= 0, "point in time before the year 0 in UTC");
    microseconds_ = static_cast<Uint64>(microseconds);
}

CIMDateTime::CIMDateTime(Uint64 microseconds, Boolean isInterval)
    : microseconds_(microseconds), isInterval_(isInterval) {
    if (isInterval) {
        requireRange(microseconds < Uint64{tooLongInterval},
                     "Cannot create a CIMDateTime interval greater than 100 million days");
    } else {
        requireRange(microseconds < Uint64{tooLatePoint}, tooLateMessage);
    }
}

Sint64 CIMDateTime::localMicroseconds() const {
    return static_cast<Sint64>(microseconds_) + utcOffset_ * microsecondsPerMinute;
}

String CIMDateTime::toString() const {
    const Sint64 total = localMicroseconds();
    const Sint64 days = total / microsecondsPerDay;
    std::array<char, 64> text{};
    if (isInterval_) {
        std::snprintf(text.data(), text.size(), "%08lld", days);
    } else {
        const Date date = dateAfter(days);
        std::snprintf(text.data(), text.size(), "%04lld%02lld%02lld", date.year, date.month,
                      date.day);
    }
    std::snprintf(text.data() + hoursField.begin, text.size() - hoursField.begin,
                  "%02lld%02lld%02lld.%06lld", total / microsecondsPerHour % 24,
                  total / microsecondsPerMinute % 60, total / microsecondsPerSecond % 60,
                  total % microsecondsPerSecond);
    if (isInterval_) {
        std::snprintf(text.data() + signIndex, text.size() - signIndex, ":000");
    } else {
        std::snprintf(text.data() + signIndex, text.size() - signIndex, "%c%03d",
                      utcOffset_ < 0 ? '-' : '+', std::abs(utcOffset_));
    }
    for (std::size_t digit = digits_; digit < digitCount; ++digit) {
        text.at(digit < dotIndex ? digit : digit + 1) = '*';
    }
    return {text.data(), textSize};
}

void CIMDateTime::set(const String& text) {
    clear();
    *this = CIMDateTime(text);
}

CIMDateTime CIMDateTime::getCurrentDateTime() {
    std::timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    std::tm local{};
    localtime_r(&now.tv_sec, &local);
    CIMDateTime current(
        static_cast<Uint64>(unixEpoch + now.tv_sec * microsecondsPerSecond + now.tv_nsec / 1000),
        false);
    current.utcOffset_ = static_cast<Sint16>(local.tm_gmtoff / 60);
    return current;
}

Sint64 CIMDateTime::getDifference(CIMDateTime startTime, CIMDateTime finishTime) {
    if (startTime.isInterval_ != finishTime.isInterval_) {
        throw InvalidDateTimeFormatException();
    }
    return static_cast<Sint64>(finishTime.microseconds_ - startTime.microseconds_);
}

void CIMDateTime::requireSameKind(const CIMDateTime& other) const {
    if (isInterval_ != other.isInterval_) {
        throw TypeMismatchException("Trying to compare CIMDateTime objects of differing types");
    }
}

Boolean CIMDateTime::equal(const CIMDateTime& other) const {
    requireSameKind(other);
    return microseconds_ == other.microseconds_;
}

Boolean CIMDateTime::operator<(const CIMDateTime& other) const {
    requireSameKind(other);
    return microseconds_ < other.microseconds_;
}

CIMDateTime CIMDateTime::operator+(const CIMDateTime& interval) const {
    if (!interval.isInterval_) {
        throw TypeMismatchException("only an interval can be added to a CIMDateTime");
    }
    // Neither operand reaches 2^63, so their sum cannot overflow.
    CIMDateTime sum(microseconds_ + interval.microseconds_, isInterval_);
    sum.utcOffset_ = utcOffset_;
    sum.digits_ = std::min(digits_, interval.digits_);
    requireRange(sum.isInterval_ || sum.localMicroseconds() < tooLatePoint, tooLateMessage);
    return sum;
}

CIMDateTime& CIMDateTime::operator+=(const CIMDateTime& interval) {
    return *this = *this + interval;
}

}  // namespace Pegasus
