// SPDX-License-Identifier: MIT
#include "devicelist/Redaction.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <functional>
#include <map>
#include <utility>

#include "devicelist/RecordLines.h"

namespace devicelist {

namespace {

bool isVisible(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code > 0x20 && code != 0x7f;
}

bool isTopology(std::string_view line) {
    return line.substr(0, 2) == "T:";
}

/// Whether the line begins as those of a list do.
bool isListLine(std::string_view line) {
    constexpr std::string_view letters = "TBDPSCAIE";
    return (line.size() >= 2 && line[1] == ':' &&
            letters.find(line[0]) != std::string_view::npos) ||
           line.substr(0, line.find('\r')) == "(truncated)";
}

/// The number with "X" before it, in `length` characters; the last of its digits if it has more.
std::string placeholder(std::size_t number, std::size_t length) {
    constexpr int base = 36;
    std::array<char, 16> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number, base).ptr;
    std::string text(digits.data(), end);
    text.insert(0, length - std::min(length, text.size()), 'X');
    return text.substr(text.size() - length);
}

/// Sees to one list, line by line; its text must outlive this object.
class Redaction {
public:
    /// The line, which has no line feed, as it may be published.
    std::string publishable(std::string_view line);

private:
    bool isOfRootHub() const;
    std::string replaced(std::string_view serial);

    std::map<std::string, std::string, std::less<>> placeholders_;
    std::map<std::size_t, std::size_t> counts_;  ///< of placeholders, by their length
    std::string_view topology_;   ///< the last "T:" line, which is read only for a serial number
    bool isAfterSerial_ = false;  ///< no line that a list has stands since
};

std::string Redaction::publishable(std::string_view line) {
    constexpr std::string_view label = "SerialNumber=";
    if (isTopology(line)) {
        topology_ = line.substr(2);
    }
    const auto found = line.find(label);
    if (found == std::string_view::npos && (isListLine(line) || !isAfterSerial_)) {
        isAfterSerial_ = false;
        return std::string(line);
    }
    isAfterSerial_ = true;
    const auto begin = found == std::string_view::npos ? 0 : found + label.size();
    const auto serial = line.substr(begin);
    return std::string(line.substr(0, begin)) +
           (isOfRootHub() ? std::string(serial) : replaced(serial));
}

bool Redaction::isOfRootHub() const {
    Device device;
    readTopologyLine(topology_, device);
    return device.level == 0U;
}

std::string Redaction::replaced(std::string_view serial) {
    const std::string_view lineEnd =
        serial.substr(serial.size() - (!serial.empty() && serial.back() == '\r' ? 1 : 0));
    serial.remove_suffix(lineEnd.size());
    if (std::none_of(serial.begin(), serial.end(), isVisible)) {
        return std::string(serial).append(lineEnd);
    }
    auto known = placeholders_.find(serial);
    if (known == placeholders_.end()) {
        const auto zeros = std::count(serial.begin(), serial.end(), '\0');
        const std::size_t length = serial.size() - static_cast<std::size_t>(zeros);
        const std::string shown = placeholder(++counts_[length], length);
        std::string text(serial);
        auto next = shown.begin();
        for (char& character : text) {
            if (character != '\0') {
                character = *next;
                ++next;
            }
        }
        known = placeholders_.emplace(serial, std::move(text)).first;
    }
    return known->second + std::string(lineEnd);
}

}  // namespace

std::string redactSerialNumbers(std::string_view text) {
    Redaction redaction;
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        result += redaction.publishable(text.substr(0, end));
        const bool isEnded = end < text.size();
        result.append(isEnded ? "\n" : "");
        text.remove_prefix(end + (isEnded ? 1 : 0));
    }
    return result;
}

}  // namespace devicelist
