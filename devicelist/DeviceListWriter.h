// SPDX-License-Identifier: MIT
// Writes device lists as a kernel prints them.
#pragma once

#include <string>

#include "devicelist/DeviceList.h"

namespace devicelist {

/// The text of the list's devices, in its form.
///
/// A list of a kernel that was read, and nothing of it changed, comes back byte for byte. Of other
/// lists the records come back: lines stand in the kernel's order and end in LF, fields without a
/// value are left out, and so are the unknown lines. Reading what was written gives equal devices.
/// Strings are written as they are, as kernels do. Any thread may call it.
std::string writeDeviceList(const DeviceList& list);

}  // namespace devicelist
