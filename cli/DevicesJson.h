// SPDX-License-Identifier: MIT
// The devices of a list as JSON, described in usbhcdiag-json(5) and by devices.schema.json.
#pragma once

#include <cstddef>
#include <vector>

#include "cli/DeviceListSource.h"
#include "cli/HardwareNames.h"
#include "cli/ReportedList.h"
#include "cli/Values.h"
#include "devicelist/Findings.h"

namespace usbhcdiag {

/// The number of the form; it changes when a member goes or means something else.
constexpr int devicesFormatVersion = 1;

/// The object for the list of `source`, read as `reported`; "devices" has those at the positions
/// `wanted`. Strings are as the device gave them: documentOf() makes valid UTF-8 of them. One thread at
/// a time for the same `names`.
Json devicesJson(const DeviceListSource& source, const ReportedList& reported,
                 const std::vector<devicelist::Finding>& findings,
                 const std::vector<std::size_t>& wanted, const HardwareNames& names);

/// The same with all devices.
Json devicesJson(const DeviceListSource& source, const ReportedList& reported);

}  // namespace usbhcdiag
