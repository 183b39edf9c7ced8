// SPDX-License-Identifier: MIT
// The device list of this machine where the kernel's cannot be read.
#pragma once

#include <optional>
#include <string>

#include "base/DeviceListPaths.h"

namespace usbhcdiag {

/// Where this machine shows its devices.
struct MachinePlaces {
    std::string expected = base::deviceListPath;  ///< where the provider reads
    std::string kernel = base::kernelListPath;    ///< where a modern kernel has its list
    std::string sysfs = "/sys";

    std::string devices() const { return sysfs + "/bus/usb/devices"; }

    /// The place at which this process can read the kernel's list; empty if it cannot. Looks without
    /// reading.
    std::string readable() const;
};

/// A list made from sysfs.
struct SysfsList {
    std::string text;
    std::string origin;  ///< for people: from where, and why not the kernel's
};

/// The list made from sysfs, if this process cannot read the kernel's and sysfs shows devices. Any
/// thread may call it.
std::optional<SysfsList> sysfsList(const MachinePlaces& places = {});

}  // namespace usbhcdiag
