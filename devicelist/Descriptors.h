// SPDX-License-Identifier: MIT
// Reads the descriptors with which a USB device describes itself.
#pragma once

#include <cstddef>
#include <string_view>

#include "devicelist/Device.h"

namespace devicelist {

/// How much of a device's descriptors is read: as much as a kernel keeps, a device descriptor and
/// 8 configurations of the greatest length.
constexpr std::size_t maximumDescriptorsSize = 18 + std::size_t{8} * 0xffff;

/// Puts what a device's descriptors tell into `device`: what a list has in "D:" and "P:" lines and
/// in those of the configurations, none of which is active yet.
///
/// `descriptors`: the device descriptor and after it the configurations, each with all that follows
/// it, as sysfs shows them. They are taken as the kernel takes them: descriptors of other kinds, of
/// a wrong length or given twice are skipped, what exceeds the kernel's limits is left out, counts
/// are of what is taken, and values that the speed of the device (which must be set) does not allow
/// are put right. Devices that the kernel knows to need something else are not known here. Bytes
/// that are damaged or cut off make the rest of their configuration missing, never a failure.
/// Any thread may call it.
void readDescriptors(std::string_view descriptors, Device& device);

}  // namespace devicelist
