// SPDX-License-Identifier: MIT
// Tables for people.
#pragma once

#include <string>
#include <vector>

namespace usbhcdiag {

/// Rows under headings, in columns as wide as their widest cell. One thread at a time.
class Table {
public:
    explicit Table(std::vector<std::string> headings);

    /// Adds a row of as many cells (UTF-8) as there are headings; control characters are replaced.
    void addRow(const std::vector<std::string>& cells);

    /// The table, each line ended by a line feed and without blanks at its end; the headings in
    /// bold type where `bold` is set.
    std::string text(bool bold) const;

private:
    std::vector<std::vector<std::string>> rows_;  ///< the headings first
};

}  // namespace usbhcdiag
