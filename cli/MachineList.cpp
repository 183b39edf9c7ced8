// SPDX-License-Identifier: MIT
#include "cli/MachineList.h"

#include <unistd.h>

#include "cli/Errors.h"
#include "devicelist/DeviceListWriter.h"
#include "devicelist/SysfsReader.h"

namespace usbhcdiag {

std::string MachinePlaces::readable() const {
    for (const std::string* place : {&expected, &kernel}) {
        if (::access(place->c_str(), R_OK) == 0) {
            return *place;
        }
    }
    return {};
}

std::optional<SysfsList> sysfsList(const MachinePlaces& places) {
    if (!places.readable().empty()) {
        return std::nullopt;
    }
    const std::string reason = systemReason();
    const devicelist::DeviceList list = devicelist::readSysfsDevices(places.sysfs);
    if (list.devices.empty()) {
        return std::nullopt;
    }
    return SysfsList{devicelist::writeDeviceList(list),
                     "the device list was made from " + places.devices() + ", since " +
                         places.kernel + " cannot be read (" + reason + ")"};
}

}  // namespace usbhcdiag
