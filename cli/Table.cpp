// SPDX-License-Identifier: MIT
#include "cli/Table.h"

#include <algorithm>

#include "cli/TerminalText.h"

namespace usbhcdiag {

Table::Table(std::vector<std::string> headings) {
    rows_.push_back(std::move(headings));
}

void Table::addRow(const std::vector<std::string>& cells) {
    std::vector<std::string> row;
    row.reserve(cells.size());
    for (const std::string& cell : cells) {
        row.push_back(withoutControls(cell));
    }
    rows_.push_back(std::move(row));
}

std::string Table::text(bool bold) const {
    constexpr size_t gap = 2;
    std::vector<size_t> widths(rows_.front().size(), 0);
    for (const auto& row : rows_) {
        for (size_t column = 0; column < widths.size(); ++column) {
            widths[column] = std::max(widths[column], displayWidth(row[column]));
        }
    }
    std::string result;
    for (const auto& row : rows_) {
        std::string line;
        size_t owed = 0;  // blanks that only stand where something follows
        for (size_t column = 0; column < widths.size(); ++column) {
            const std::string& cell = row[column];
            if (!cell.empty()) {
                line.append(owed, ' ');
                owed = 0;
            }
            line += cell;
            owed += widths[column] - displayWidth(cell) + gap;
        }
        const bool emphasised = bold && &row == &rows_.front();
        result += emphasised ? "\033[1m" + line + "\033[0m\n" : line + "\n";
    }
    return result;
}

}  // namespace usbhcdiag
