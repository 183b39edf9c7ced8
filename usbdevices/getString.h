// SPDX-License-Identifier: MIT
// Extracts values from a line of the device list.
// Any thread may call these functions.
#pragma once

#include <string>
#include <string_view>

/// `character` in lower case if it is one of A to Z, otherwise unchanged. Does not depend on the
/// locale: in some locales 'I' has another lower-case form, and "ProdID=" must still be found.
constexpr char lowerCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

/// Index of the first occurrence of `lowered` in `line`, from the index `from` on and ignoring the
/// case of `line`, or npos. `lowered` must be in lower case.
std::string_view::size_type findIgnoringCase(std::string_view line, std::string_view lowered,
                                             std::string_view::size_type from = 0);

/// The text of `line` between `key` and `end`, with its case and blanks.
///
/// 1. The text begins after the first occurrence of `key`, ignoring the case of `line`. If there is
///    none, the result is empty.
/// 2. If `end` is "\n", the text is the rest of the line: lines have no line feed, so "\n" is never
///    searched.
/// 3. Otherwise the text ends before the first occurrence of `end`, ignoring the case of `line`,
///    searched from the *beginning* of the key. If there is none, or if it is inside the key, the
///    result is empty.
///
/// `key` and `end` must be in lower case.
std::string getString(std::string_view line, std::string_view key, std::string_view end);
