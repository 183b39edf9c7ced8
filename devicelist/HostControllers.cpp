// SPDX-License-Identifier: MIT
#include "devicelist/HostControllers.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "base/Ascii.h"
#include "devicelist/DeviceListFile.h"
#include "devicelist/DeviceListReader.h"

namespace devicelist {

namespace {

/// "usb1", "usb12": the names of root hubs in sysfs.
bool isRootHub(const std::string& name) {
    return name.size() > 3 && name.compare(0, 3, "usb") == 0 &&
           std::all_of(name.begin() + 3, name.end(), [](char c) { return base::isDigit(c); });
}

/// A serial number that can be a bus address; the kernel gives root hubs that of their controller.
bool isBusAddress(std::string_view serial) {
    const auto isAddressCharacter = [](char c) {
        return base::isDigit(c) || base::isLetter(c) || c == '.' || c == ':' || c == '-' ||
               c == '_';
    };
    return serial.find_first_of(".:") != std::string_view::npos && serial.size() <= 64 &&
           std::all_of(serial.begin(), serial.end(), isAddressCharacter);
}

}  // namespace

std::vector<std::string> hostControllersOfMachine(const std::string& sysfs) {
    std::set<std::string> controllers;
    std::error_code failure;
    const auto devices = std::filesystem::path(sysfs) / "bus/usb/devices";
    for (std::filesystem::directory_iterator entry(devices, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (!isRootHub(entry->path().filename().string())) {
            continue;
        }
        std::error_code unresolved;
        const auto device = std::filesystem::canonical(entry->path(), unresolved);
        if (!unresolved) {
            controllers.insert(device.parent_path().filename().string());
        }
    }
    return {controllers.begin(), controllers.end()};
}

std::string hostControllerOf(const Device& rootHub) {
    const bool hasAddress = rootHub.serialNumber && isBusAddress(*rootHub.serialNumber);
    return hasAddress ? *rootHub.serialNumber
                      : "usb" + (rootHub.bus ? std::to_string(*rootHub.bus) : std::string());
}

std::vector<std::size_t> rootHubsOf(const DeviceList& list) {
    std::vector<std::size_t> positions;
    for (std::size_t position = 0; position < list.devices.size(); ++position) {
        if (list.devices[position].level == 0U) {
            positions.push_back(position);
        }
    }
    return positions;
}

std::vector<HostController> groupedByController(const DeviceList& list,
                                                const std::vector<std::size_t>& rootHubs) {
    std::vector<HostController> controllers;
    std::unordered_map<std::string, std::size_t> places;
    for (const std::size_t rootHub : rootHubs) {
        std::string id = hostControllerOf(list.devices[rootHub]);
        const auto [place, isNew] = places.emplace(id, controllers.size());
        if (isNew) {
            controllers.push_back({std::move(id), {}});
        }
        controllers[place->second].rootHubs.push_back(rootHub);
    }
    return controllers;
}

std::vector<std::string> hostControllersOfList(const DeviceList& list) {
    std::vector<std::string> controllers;
    for (HostController& controller : groupedByController(list, rootHubsOf(list))) {
        controllers.push_back(std::move(controller.id));
    }
    if (controllers.empty()) {
        controllers.emplace_back("usbhc0");
    }
    return controllers;
}

std::vector<std::string> hostControllersOfFile(const std::string& path) {
    DeviceList list;
    try {
        list = readDeviceList(readRegularDeviceListFile(path));
    } catch (const DeviceListFileError&) {
        // Whoever reads the list says why it cannot be read.
    }
    return hostControllersOfList(list);
}

}  // namespace devicelist
