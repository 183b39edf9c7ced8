// SPDX-License-Identifier: MIT
#include "devicelist/LineFields.h"

#include <algorithm>
#include <limits>

namespace devicelist {

namespace {

constexpr bool isSeparator(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == ',';
}

std::size_t inkOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !isSeparator(c); }));
}

std::optional<int> parseSigned(std::string_view text) {
    const bool isNegative = !text.empty() && text.front() == '-';
    const auto digits = base::parseDigits<unsigned>(text.substr(isNegative ? 1 : 0));
    if (!digits || *digits > static_cast<unsigned>(std::numeric_limits<int>::max())) {
        return std::nullopt;
    }
    const int number = static_cast<int>(*digits);
    return isNegative ? -number : number;
}

}  // namespace

std::optional<int> LineFields::signedDecimal(std::string_view label, std::string_view unit) {
    return checked(label, parseSigned(withoutUnit(word(label), unit)));
}

std::optional<std::pair<int, int>> LineFields::signedPair(std::string_view label) {
    const std::size_t begin = find(label);
    const auto slash = std::min(text_.find('/', begin), text_.size());
    const std::size_t second = skipBlanks(std::min(slash + 1, text_.size()));
    const std::size_t end = endOfWord(second);
    take(begin, end);
    const auto left = parseSigned(text_.substr(begin, slash - begin));
    const auto right = parseSigned(text_.substr(second, end - second));
    return checked(label, left && right ? std::optional(std::pair(*left, *right)) : std::nullopt);
}

std::optional<std::uint8_t> LineFields::namedHexadecimal(std::string_view label,
                                                         std::string& name) {
    constexpr std::size_t longestName = 5;
    const std::size_t begin = find(label);
    std::size_t end = std::min(endOfWord(begin), text_.find('(', begin));
    const auto number = base::parseDigits<std::uint8_t>(text_.substr(begin, end - begin), 16);
    const auto bracket = text_.substr(end, longestName + 2);
    const auto close = bracket.find(')');
    if (!bracket.empty() && bracket.front() == '(' && close != std::string_view::npos) {
        if (number) {
            name = bracket.substr(1, close - 1);
            name.erase(name.find_last_not_of(' ') + 1);
        }
        end += close + 1;
    } else if (isFound_) {
        note(label, "has no name");
    }
    take(begin, end);
    return checked(label, number);
}

std::optional<std::uint16_t> LineFields::version(std::string_view label) {
    const std::string_view value = word(label);
    const auto dot = std::min(value.find('.'), value.size());
    const auto major = base::parseDigits<std::uint8_t>(value.substr(0, dot), 16);
    const auto minor = value.size() == dot + 3
                           ? base::parseDigits<std::uint8_t>(value.substr(dot + 1), 16)
                           : std::nullopt;
    return checked(label, major && minor
                              ? std::optional(static_cast<std::uint16_t>(*major << 8U | *minor))
                              : std::nullopt);
}

std::optional<double> LineFields::speed(std::string_view label) {
    const std::string_view value = word(label);
    if (value == "??") {
        return std::nullopt;
    }
    const auto dot = std::min(value.find('.'), value.size());
    const auto whole = base::parseDigits<std::uint32_t>(value.substr(0, dot));
    const auto tenths = dot == value.size() ? std::optional<std::uint32_t>(0)
                        : value.size() == dot + 2
                            ? base::parseDigits<std::uint32_t>(value.substr(dot + 1))
                            : std::nullopt;
    constexpr double inTenths = 10;
    return checked(label,
                   whole && tenths ? std::optional(*whole + *tenths / inTenths) : std::nullopt);
}

std::optional<std::int64_t> LineFields::microseconds(std::string_view label) {
    constexpr std::int64_t inMilliseconds = 1000;
    const std::string_view value = word(label);
    const bool isFine = value.size() > 2 && value.substr(value.size() - 2) == "us";
    const auto number = parseSigned(withoutUnit(value, isFine ? "us" : "ms"));
    return checked(label,
                   number ? std::optional(*number * (isFine ? 1 : inMilliseconds)) : std::nullopt);
}

void LineFields::note(std::string_view label, std::string_view what) {
    damage_.append(damage_.empty() ? "\"" : ", \"").append(label).append("\" ").append(what);
}

std::string LineFields::damage() const {
    // What was missed or counted twice has been noted already, or is of no field.
    if (damage_.empty() && taken_ != inkOf(text_)) {
        return "it holds text of no known field";
    }
    return damage_;
}

std::string_view LineFields::word(std::string_view label) {
    const std::size_t begin = find(label);
    const std::size_t end = endOfWord(begin);
    take(begin, end);
    return text_.substr(begin, end - begin);
}

std::size_t LineFields::find(std::string_view label) {
    auto at = findLabel(label, next_);
    if (at == std::string_view::npos) {
        at = findLabel(label, 0);
    }
    isFound_ = at != std::string_view::npos;
    if (!isFound_) {
        note(label, "is missing");
        return text_.size();
    }
    taken_ += inkOf(label);
    return skipBlanks(at + label.size());
}

std::size_t LineFields::findLabel(std::string_view label, std::size_t start) const {
    auto at = text_.find(label, start);
    while (at != std::string_view::npos && at != 0 && !isSeparator(text_[at - 1])) {
        at = text_.find(label, at + 1);
    }
    return at;
}

std::size_t LineFields::skipBlanks(std::size_t at) const {
    return std::min(text_.find_first_not_of(" \t", at), text_.size());
}

std::size_t LineFields::endOfWord(std::size_t at) const {
    while (at < text_.size() && !isSeparator(text_[at])) {
        ++at;
    }
    return at;
}

void LineFields::take(std::size_t begin, std::size_t end) {
    taken_ += inkOf(text_.substr(begin, end - begin));
    next_ = end;
}

std::string_view LineFields::withoutUnit(std::string_view value, std::string_view unit) {
    const bool hasUnit =
        value.size() >= unit.size() && value.substr(value.size() - unit.size()) == unit;
    return hasUnit ? value.substr(0, value.size() - unit.size()) : std::string_view();
}

}  // namespace devicelist
