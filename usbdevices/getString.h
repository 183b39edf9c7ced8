// SPDX-License-Identifier: MIT
// The one routine by which every record takes a value out of its line of the device list.
// Thread-safe: no state.
#pragma once

#include <string>
#include <string_view>

/// `character` in lower case if it is one of A to Z, else unchanged, whatever the process's locale:
/// a server may run in one where 'I' has another lower-case form, and "ProdID=" must be found
/// there.
constexpr char lowerCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

/// Position of the first occurrence of `lowered` in `line` at or behind `from`, the case of `line`
/// ignored; npos if there is none. `lowered` must be in lower case.
std::string_view::size_type findIgnoringCase(std::string_view line, std::string_view lowered,
                                             std::string_view::size_type from = 0);

/// The text of `line` that follows `key`, up to `end`.
///
/// 1. The first occurrence of `key` counts, the case of `line` ignored. Without one: empty.
/// 2. If `end` is "\n", the text runs to the end of the line. Lines hold no line feed, so "\n" is
///    never searched.
/// 3. Otherwise the text runs to the first occurrence of `end`, the case of `line` ignored, searched
///    from where the key *begins*. Without one: empty, although the key was found. One inside the
///    key leaves nothing between the two: empty.
///
/// Case and blanks of the text stay as they stand in the line. `key` and `end` must be in lower
/// case.
std::string getString(std::string_view line, std::string_view key, std::string_view end);
