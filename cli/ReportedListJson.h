// SPDX-License-Identifier: MIT
// What the test's report holds of a device list, for programs.
#pragma once

#include <functional>

#include "cli/ReportedList.h"
#include "cli/Values.h"

namespace usbhcdiag {

/// Adds to `document` how many devices the list has ("devices_in_list") and the report holds
/// ("devices_in_report"), which it does not hold ("left_out") and in whose blocks fields of others stand
/// ("mixed"). All four are null where `list` is null: where the list is not known. Any thread may call
/// it.
void addReportedList(Json& document, const ReportedList* list);

/// Calls `use` with an object for each device that the report does not hold. Any thread may call it.
void forEachLeftOut(const ReportedList& reported, const std::function<void(Json&&)>& use);

/// The same objects as an array. Any thread may call it.
Json leftOutOf(const ReportedList& reported);

}  // namespace usbhcdiag
