// SPDX-License-Identifier: MIT
// What the test's report holds of a device list, for programs.
#pragma once

#include "cli/JsonWriter.h"
#include "cli/ReportedList.h"

namespace usbhcdiag {

// Any thread may call these for different writers.

/// Writes as members of an object how many devices the list has ("devices_in_list") and the report holds
/// ("devices_in_report"), which it does not hold ("left_out") and in whose blocks fields of others stand
/// ("mixed"). All four are null where `list` is null: where the list is not known.
void writeReportedList(JsonWriter& json, const ReportedList* list);

/// Writes an array with an object for each device that the report does not hold.
void writeLeftOut(JsonWriter& json, const ReportedList& reported);

}  // namespace usbhcdiag
