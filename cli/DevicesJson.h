// SPDX-License-Identifier: MIT
// The devices of a list as JSON, described in usbhcdiag-json(5) and by devices.schema.json.
#pragma once

#include <cstddef>
#include <vector>

#include "cli/DeviceListSource.h"
#include "cli/HardwareNames.h"
#include "cli/JsonWriter.h"
#include "cli/ReportedList.h"
#include "devicelist/Findings.h"

namespace usbhcdiag {

/// The number of the form; it changes when a member goes or means something else.
constexpr int devicesFormatVersion = 1;

/// Writes the object for the list of `source`, read as `reported`, with the devices at the positions
/// `wanted`. One thread at a time for the same `names`.
void writeDevices(JsonWriter& json, const DeviceListSource& source, const ReportedList& reported,
                  const std::vector<devicelist::Finding>& findings,
                  const std::vector<std::size_t>& wanted, const HardwareNames& names);

/// The same with all devices.
void writeDevices(JsonWriter& json, const DeviceListSource& source, const ReportedList& reported);

}  // namespace usbhcdiag
