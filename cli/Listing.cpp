// SPDX-License-Identifier: MIT
#include "cli/Listing.h"

#include <unistd.h>

#include <iostream>
#include <utility>

#include "cli/Table.h"
#include "cli/Terminal.h"
#include "cli/TerminalText.h"
#include "cli/Values.h"

namespace usbhcdiag {

Column::Column(std::string columnHeading, Cell columnCell)
    : heading(std::move(columnHeading)), cell(std::move(columnCell)) {}

Column::Column(std::string columnHeading, const char* property)
    : Column(std::move(columnHeading), [property](const Pegasus::CIMInstance& instance) {
          return textOf(instance, property);
      }) {}

void printDocument(const std::string& text) {
    std::cout << (isTerminal(STDOUT_FILENO) ? linesWithoutControls(text) : text);
}

void print(const Pegasus::Array<Pegasus::CIMInstance>& instances,
           const std::vector<Column>& columns, bool json) {
    if (json) {
        printDocument(documentOf(instances));
        return;
    }
    std::vector<std::string> headings;
    headings.reserve(columns.size());
    for (const Column& column : columns) {
        headings.push_back(column.heading);
    }
    Table table(headings);
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        std::vector<std::string> cells;
        cells.reserve(columns.size());
        for (const Column& column : columns) {
            cells.push_back(column.cell(instances[i]));
        }
        table.addRow(cells);
    }
    std::cout << table.text(mayColour(STDOUT_FILENO));
}

}  // namespace usbhcdiag
