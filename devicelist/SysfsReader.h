// SPDX-License-Identifier: MIT
// The machine's USB devices from sysfs, which every user may read.
#pragma once

#include <string>

#include "devicelist/DeviceList.h"

namespace devicelist {

/// The devices that the kernel shows below `sysfs` (normally "/sys"), as its device list has them:
/// in the same order, with the same counts and numbers, strings cut and long devices truncated at
/// the same place. writeDeviceList() makes the same text of it.
///
/// Sysfs does not tell the bandwidth of root hubs ("B:" lines), nor what the kernel changes in the
/// descriptors of devices that it knows to need that.
///
/// Devices that go away meanwhile, and all that is attached to them, are left out; what of a
/// device cannot be read has no value. Empty if the machine shows no USB. Reads as much of every
/// file as a kernel writes and not more than 8128 devices, the most that a kernel has; never waits
/// for a FIFO. Any thread may call it.
DeviceList readSysfsDevices(const std::string& sysfs);

}  // namespace devicelist
