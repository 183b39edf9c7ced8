// SPDX-License-Identifier: MIT
// The USB host controllers of this machine, or of the one that a device list is about.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "devicelist/DeviceList.h"

namespace devicelist {

// Functions without state; any thread may call them.

/// The PCI or platform addresses of the host controllers that the kernel shows below `sysfs`
/// (normally "/sys"), each once, sorted; empty if there is none or the folder cannot be read.
///
/// A controller with two root hubs (USB 2 and USB 3) is one controller.
std::vector<std::string> hostControllersOfMachine(const std::string& sysfs);

/// The host controller of a root hub, by the first two of the rules of hostControllersOfList().
std::string hostControllerOf(const Device& rootHub);

/// A host controller with the positions of its root hubs in a list.
struct HostController {
    std::string id;
    std::vector<std::size_t> rootHubs;
};

/// The positions of the root hubs in a list.
std::vector<std::size_t> rootHubsOf(const DeviceList& list);

/// The host controllers of the root hubs at these positions, each once, in their order.
std::vector<HostController> groupedByController(const DeviceList& list,
                                                const std::vector<std::size_t>& rootHubs);

/// The host controllers of a device list, one for each root hub, in the list's order:
/// 1. The serial number of a root hub, if it is a bus address (it contains a dot or a colon, as
///    "0000:00:1d.7" and "ff540000.usb" do).
/// 2. Otherwise "usb" and the number of its bus.
/// 3. An address that stood before counts once.
/// 4. A list without root hubs has the one controller "usbhc0", so that it can be replayed.
std::vector<std::string> hostControllersOfList(const DeviceList& list);

/// hostControllersOfList() of the file. A file that is no regular one (reading a pipe would take
/// what the provider is to read), is longer than maximumListSize or cannot be read counts as empty.
std::vector<std::string> hostControllersOfFile(const std::string& path);

}  // namespace devicelist
