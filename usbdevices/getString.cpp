// SPDX-License-Identifier: MIT
#include "usbdevices/getString.h"

#include <algorithm>

std::string_view::size_type findIgnoringCase(std::string_view line, std::string_view lowered,
                                             std::string_view::size_type from) {
    // Compares the rest only where the first character matches: a list is searched for some twenty
    // keys per device.
    const std::string_view::const_iterator found = std::search(
        line.begin() + static_cast<std::string_view::difference_type>(std::min(from, line.size())),
        line.end(), lowered.begin(), lowered.end(),
        [](char inLine, char wanted) { return lowerCase(inLine) == wanted; });
    return found == line.end() && !lowered.empty()
               ? std::string_view::npos
               : static_cast<std::string_view::size_type>(found - line.begin());
}

std::string getString(std::string_view line, std::string_view key, std::string_view end) {
    const auto keyAt = findIgnoringCase(line, key);
    if (keyAt == std::string_view::npos) {
        return {};
    }
    const auto valueAt = keyAt + key.size();
    if (end == "\n") {
        return std::string(line.substr(valueAt));
    }
    const auto endAt = findIgnoringCase(line, end, keyAt);
    if (endAt == std::string_view::npos || endAt < valueAt) {
        return {};
    }
    return std::string(line.substr(valueAt, endAt - valueAt));
}
