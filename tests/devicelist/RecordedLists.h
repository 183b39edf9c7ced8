// SPDX-License-Identifier: MIT
// The device lists of a folder.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace devicelist {

struct RecordedList {
    std::string name;
    std::string text;
};

inline std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::vector<RecordedList> recordedLists(const std::string& folder) {
    std::vector<RecordedList> lists;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") {
            lists.push_back({entry.path().filename().string(), contentOf(entry.path())});
        }
    }
    return lists;
}

/// How many lines of the list begin with `start`.
inline std::size_t countLines(std::string_view list, std::string_view start) {
    std::size_t count = 0;
    while (!list.empty()) {
        count += list.substr(0, start.size()) == start ? 1 : 0;
        list.remove_prefix(std::min(list.find('\n'), list.size() - 1) + 1);
    }
    return count;
}

}  // namespace devicelist
