// SPDX-License-Identifier: MIT
// The USB host controllers of this machine, or of the one whose device list is shown.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cimhost {

/// The PCI or platform addresses of the host controllers that the kernel shows below `sysfs`
/// (normally "/sys"), each once, sorted; empty where there is none or the folder cannot be read.
///
/// A controller with two root hubs (USB 2 and USB 3) is one controller.
std::vector<std::string> hostControllersOfMachine(const std::string& sysfs);

/// The host controllers of a recorded device list, one for each root hub, in the list's order:
/// 1. The serial number of a root hub, where it is a bus address (it contains a dot or a colon, as
///    "0000:00:1d.7" and "ff540000.usb" do).
/// 2. Otherwise "usb" and the number of its bus.
/// 3. An address that stood before counts once.
/// 4. A list without root hubs has the one controller "usbhc0", so that it can be replayed.
std::vector<std::string> hostControllersOfList(std::string_view list);

/// hostControllersOfList() of the file. A file that is no regular one (reading a pipe would take
/// what the provider is to read), is larger than 1 MiB or cannot be read counts as empty.
std::vector<std::string> hostControllersOfFile(const std::string& path);

}  // namespace cimhost
