// SPDX-License-Identifier: MIT
// Lists of instances, for people and for programs.
//
// Main thread only, as all that the commands are made of.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>

#include "cli/JsonWriter.h"

namespace usbhcdiag {

/// A column of a list: its heading, and how its cells come from an instance.
struct Column {
    using Cell = std::function<std::string(const Pegasus::CIMInstance&)>;

    Column(std::string columnHeading, Cell columnCell);
    /// A column that shows a property.
    Column(std::string columnHeading, const char* property);

    std::string heading;
    Cell cell;
};

/// Prints a text of several lines, JSON or MOF, on standard output; on a terminal without control
/// characters other than line feeds.
void printDocument(std::string_view text);

/// Prints the document that `write` writes likewise, while it is written.
void printJson(const std::function<void(JsonWriter&)>& write);

/// Prints instances on standard output: as a table (bold headings on a terminal), or with `json`
/// as an array of objects with every property.
void print(const Pegasus::Array<Pegasus::CIMInstance>& instances,
           const std::vector<Column>& columns, bool json);

}  // namespace usbhcdiag
