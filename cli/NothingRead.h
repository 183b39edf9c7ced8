// SPDX-License-Identifier: MIT
// Why there was nothing to read, and what to do about it.
//
// Main thread only, as all that the commands are made of.
#pragma once

#include <string>

namespace usbhcdiag {

/// What stands at a path where a device list is looked for.
struct DeviceListFinding {
    enum class State { missing, unreadable, empty, blank, filled };

    State state = State::missing;
    std::string reason;  ///< of missing and unreadable: the system's text
    std::string text;    ///< of blank and filled: the list
};

/// Looks at `path` without waiting; a FIFO, and a list of more than 16 MiB, count as unreadable.
/// "blank" means that no line of it begins a device ("T:").
DeviceListFinding examineDeviceList(const std::string& path);

/// What a list of that content is.
DeviceListFinding examineDeviceListText(const std::string& text);

/// Where device lists are looked for.
struct DeviceListPlaces {
    std::string expected;  ///< where the provider reads
    std::string seen;      ///< the same place, as this process gets at what the server sees there
    std::string kernel;    ///< where a modern kernel has it
    std::string usbBus;    ///< the folder that a kernel with USB shows
};

/// The places as the process `server` on this machine sees them.
DeviceListPlaces deviceListPlaces(int server);

/// The message for a private server that read nothing of the kernel's list. `notShown`: why a list made
/// from sysfs could not be shown to it; empty if there was none, or it was shown.
std::string nothingReadPrivately(const DeviceListPlaces& places, const std::string& notShown = {});

/// The message for a private server that read nothing of the list that --devices named; `name` is what
/// to call it.
std::string nothingReadOf(const std::string& name, const DeviceListFinding& finding);

/// The message for a private server that found no host controller.
std::string noHostController(const DeviceListPlaces& places);

/// The message for the server at `url` that read nothing.
std::string nothingReadAt(const std::string& url);

}  // namespace usbhcdiag
