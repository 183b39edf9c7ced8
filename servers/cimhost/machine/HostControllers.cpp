// SPDX-License-Identifier: MIT
#include "servers/cimhost/machine/HostControllers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace cimhost {

namespace {

constexpr std::size_t maximumListSize = std::size_t{1} << 20;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// "usb1", "usb12": the names of root hubs in sysfs.
bool isRootHub(const std::string& name) {
    return name.size() > 3 && name.compare(0, 3, "usb") == 0 &&
           std::all_of(name.begin() + 3, name.end(), isDigit);
}

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

/// The number behind the label, without leading zeros; empty if there is none.
std::string numberBehind(std::string_view line, std::string_view label) {
    auto position = line.find(label);
    if (position == std::string_view::npos) {
        return {};
    }
    position += label.size();
    while (position + 1 < line.size() && (line[position] == ' ' || line[position] == '0') &&
           isDigit(line[position + 1])) {
        ++position;
    }
    std::string number;
    while (position < line.size() && isDigit(line[position])) {
        number += line[position++];
    }
    return number;
}

/// A serial number that can be a bus address; the kernel gives root hubs that of their controller.
bool isBusAddress(std::string_view serial) {
    const auto isAddressCharacter = [](char character) {
        return isDigit(character) || (character >= 'a' && character <= 'z') ||
               (character >= 'A' && character <= 'Z') || character == '.' || character == ':' ||
               character == '-' || character == '_';
    };
    return serial.find_first_of(".:") != std::string_view::npos && serial.size() <= 64 &&
           std::all_of(serial.begin(), serial.end(), isAddressCharacter);
}

void addOnce(std::vector<std::string>& controllers, std::string controller) {
    if (std::find(controllers.begin(), controllers.end(), controller) == controllers.end()) {
        controllers.push_back(std::move(controller));
    }
}

}  // namespace

std::vector<std::string> hostControllersOfMachine(const std::string& sysfs) {
    std::vector<std::string> controllers;
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
            addOnce(controllers, device.parent_path().filename().string());
        }
    }
    std::sort(controllers.begin(), controllers.end());
    return controllers;
}

std::vector<std::string> hostControllersOfList(std::string_view list) {
    std::vector<std::string> controllers;
    std::string rootHub;  // the controller of the block that is being read; empty in other blocks
    const auto finish = [&] {
        if (!rootHub.empty()) {
            addOnce(controllers, rootHub);
        }
        rootHub.clear();
    };
    while (!list.empty()) {
        const auto end = std::min(list.find('\n'), list.size());
        const std::string_view line = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        if (startsWith(line, "T:")) {
            finish();
            if (numberBehind(line, "Lev=") == "0") {
                rootHub = "usb" + numberBehind(line, "Bus=");
            }
        } else if (constexpr std::string_view label = "S:  SerialNumber=";
                   startsWith(line, label) && !rootHub.empty() &&
                   isBusAddress(line.substr(label.size()))) {
            rootHub = line.substr(label.size());
        }
    }
    finish();
    if (controllers.empty()) {
        controllers.emplace_back("usbhc0");
    }
    return controllers;
}

std::vector<std::string> hostControllersOfFile(const std::string& path) {
    std::string list;
    std::error_code failure;
    if (std::filesystem::is_regular_file(path, failure)) {
        std::ifstream file(path, std::ios::binary);
        list.resize(maximumListSize + 1);
        file.read(list.data(), static_cast<std::streamsize>(list.size()));
        list.resize(static_cast<std::size_t>(file.gcount()));
        if (list.size() > maximumListSize) {
            list.clear();
        }
    }
    return hostControllersOfList(list);
}

}  // namespace cimhost
