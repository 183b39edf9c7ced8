// SPDX-License-Identifier: MIT
// The devices of a list as JSON, described in usbhcdiag-json(5) and by devices.schema.json.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "cli/DeviceListSource.h"
#include "cli/HardwareNames.h"
#include "cli/ReportedList.h"
#include "cli/Values.h"
#include "devicelist/Findings.h"

namespace usbhcdiag {

/// The number of the form; it changes when a member goes or means something else.
constexpr int devicesFormatVersion = 1;

/// The object for the list of `source`, read as `reported`, with all devices. Strings are as the device
/// gave them: documentOf() makes valid UTF-8 of them. Any thread may call it.
Json devicesJson(const DeviceListSource& source, const ReportedList& reported);

/// Calls `use` with the parts of documentOf() that object, one after the other, each as soon as it is made;
/// "devices" has those at the positions `wanted`. The tree of a long list would take many times its
/// length of memory. One thread at a time for the same `names`.
void writeDevicesJson(const DeviceListSource& source, const ReportedList& reported,
                      const std::vector<devicelist::Finding>& findings,
                      const std::vector<std::size_t>& wanted, const HardwareNames& names,
                      const std::function<void(std::string_view)>& use);

}  // namespace usbhcdiag
