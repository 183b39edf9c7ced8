// SPDX-License-Identifier: MIT
// The device list that a command is about, as text, and where it came from.
#pragma once

#include <optional>
#include <string>

#include "cli/MachineList.h"

namespace usbhcdiag {

/// A list with its source. A plain value.
struct DeviceListSource {
    enum class Kind { kernel, sysfs, file };

    Kind kind = Kind::kernel;
    std::string path;  ///< of kernel and file: its name; of sysfs: the folder with the devices
    std::string text;
    std::string origin{};  ///< for people: where the machine's own list came from; empty for a file
};

/// The content of `file`, "-" for standard input; without a file the list of this machine, the kernel's
/// where it can be read, otherwise one made from sysfs. Waits only for the end of standard input or of a
/// pipe without a name. Throws Failure for a file that cannot be read, and NothingRead if the machine
/// shows no USB, or if the file is compressed. Main thread only.
DeviceListSource readSource(const std::optional<std::string>& file,
                            const MachinePlaces& places = {});

/// The name of a kind for programs: "kernel".
const char* nameOf(DeviceListSource::Kind kind);

}  // namespace usbhcdiag
