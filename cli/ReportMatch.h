// SPDX-License-Identifier: MIT
// Whether a report is about a list.
#pragma once

#include <string>
#include <vector>

#include "cli/ReportedList.h"

namespace usbhcdiag {

/// Whether the lines `report` can be the test's report on the list `text`, read as `reported`: as many blocks
/// as it must have, and in each the names and identifiers of its device. If not, a device came or went
/// after the test had read the list.
///
/// Without a name of their own the same devices in another order are not told apart. Any thread may call it.
bool isReportOf(const std::vector<std::string>& report, const std::string& text,
                const ReportedList& reported);

}  // namespace usbhcdiag
