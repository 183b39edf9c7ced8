// SPDX-License-Identifier: MIT
#include "cli/Listing.h"

#include <unistd.h>

#include <iostream>
#include <utility>

#include "cli/InstanceJson.h"
#include "cli/Table.h"
#include "cli/Terminal.h"
#include "cli/TerminalText.h"
#include "cli/ValueTexts.h"

namespace usbhcdiag {

Column::Column(std::string columnHeading, Cell columnCell)
    : heading(std::move(columnHeading)), cell(std::move(columnCell)) {}

Column::Column(std::string columnHeading, const char* property)
    : Column(std::move(columnHeading), [property](const Pegasus::CIMInstance& instance) {
          return textOf(instance, property);
      }) {}

void printDocument(std::string_view text) {
    if (isTerminal(STDOUT_FILENO)) {
        std::cout << linesWithoutControls(text);
    } else {
        std::cout << text;
    }
}

void printJson(const std::function<void(JsonWriter&)>& write) {
    JsonWriter json(printDocument);
    write(json);
    json.finish();
}

void print(const Pegasus::Array<Pegasus::CIMInstance>& instances,
           const std::vector<Column>& columns, bool json) {
    if (json) {
        printJson([&](JsonWriter& json) { writeInstances(json, instances); });
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
