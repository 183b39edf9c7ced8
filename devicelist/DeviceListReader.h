// SPDX-License-Identifier: MIT
// Reads USB device lists, for people and what serves them.
#pragma once

#include <string_view>

#include "devicelist/DeviceList.h"

namespace devicelist {

/// Everything that a device list tells, in the form of any kernel from 2.2 to 6.x.
///
/// Line ends may be CR LF, the last one may be missing, tabs may stand for blanks, and zero bytes
/// are bytes like others. Nothing in the text makes it fail: what is damaged is among the problems,
/// what of it can be read is in the records, and every "T:" line is a device. Throws
/// std::length_error if the text is longer than maximumListSize. Any thread may call it.
///
/// The test's report comes from the provider library's reader, which reads less by contract: the two
/// are different programs for different readers, and share no code.
DeviceList readDeviceList(std::string_view text);

}  // namespace devicelist
