// SPDX-License-Identifier: MIT
#include "devicelist/SysfsReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/DescriptorIo.h"
#include "base/FileDescriptor.h"
#include "base/Integers.h"
#include "devicelist/Descriptors.h"
#include "devicelist/DeviceListWriter.h"

namespace devicelist {

namespace {

using std::filesystem::path;

// The kernel has 64 buses with 127 devices each at most.
constexpr std::size_t maximumMachineDevices = std::size_t{64} * 127;

/// The bus of a device and the ports, from 1, that lead to it. The kernel's order is that of these.
using Place = std::vector<unsigned>;

/// From the name of a device: {1} from "usb1", {1, 2, 3} from "1-2.3". Nothing from other names,
/// among which are those of interfaces.
std::optional<Place> placeOf(std::string_view name) {
    constexpr std::string_view rootHub = "usb";
    const bool isRootHub = name.substr(0, rootHub.size()) == rootHub;
    name.remove_prefix(isRootHub ? rootHub.size() : 0);
    Place place;
    for (char separator = '-'; true; separator = '.') {
        const std::size_t end =
            isRootHub ? name.size() : std::min(name.find(separator), name.size());
        const auto number = base::parseDigits<unsigned>(name.substr(0, end));
        if (!number || (*number == 0 && !place.empty())) {
            return std::nullopt;
        }
        place.push_back(*number);
        if (end == name.size()) {
            break;
        }
        name.remove_prefix(end + 1);
    }
    const bool isAttached = place.size() > 1;
    return isAttached != isRootHub ? std::optional(place) : std::nullopt;
}

/// The first `limit` bytes of a file.
std::optional<std::string> contentOf(const path& file, std::size_t limit) {
    const base::FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    std::string content;
    if (!opened.isOpen() || !base::readUpTo(opened.get(), limit, content)) {
        return std::nullopt;
    }
    return content;
}

/// The value of an attribute, without its line end.
std::optional<std::string> attribute(const path& folder, const char* name) {
    constexpr std::size_t longest = 4096;
    auto value = contentOf(folder / name, longest);
    if (value && !value->empty() && value->back() == '\n') {
        value->pop_back();
    }
    return value;
}

std::optional<unsigned> numberAttribute(const path& folder, const char* name) {
    const auto text = attribute(folder, name);
    // Some are padded with blanks.
    const std::size_t begin = text ? text->find_first_not_of(' ') : std::string::npos;
    return begin == std::string::npos
               ? std::nullopt
               : base::parseDigits<unsigned>(std::string_view(*text).substr(begin));
}

/// As much of a device's string as the kernel prints.
std::optional<std::string> stringAttribute(const path& folder, const char* name) {
    constexpr std::size_t longest = 100;
    auto text = attribute(folder, name);
    if (text) {
        text->resize(std::min({text->size(), text->find('\0'), longest}));
    }
    return text;
}

std::optional<double> speedOf(const path& folder) {
    const std::string text = attribute(folder, "speed").value_or("");
    if (text == "1.5") {
        return 1.5;
    }
    // The list has one number for all that is faster.
    constexpr unsigned fastest = 10000;
    const auto number = base::parseDigits<unsigned>(text);
    return number ? std::optional<double>(std::min(*number, fastest)) : std::nullopt;
}

std::string driverOf(const path& interfaceFolder) {
    std::error_code failure;
    const path driver = std::filesystem::read_symlink(interfaceFolder / "driver", failure);
    return failure ? std::string(noDriver) : driver.filename().string();
}

/// Marks the configuration of that value as active, and what of it is in use.
void activate(Device& device, unsigned value, const path& devices, const std::string& name) {
    const auto active = std::find_if(
        device.configurations.begin(), device.configurations.end(),
        [&](const Configuration& configuration) { return configuration.value == value; });
    if (active == device.configurations.end()) {
        return;
    }
    active->active = true;
    for (Interface& interface : active->interfaces) {
        const path folder = devices / (name + ":" + std::to_string(value) + "." +
                                       std::to_string(*interface.number));
        if (const auto alternate = numberAttribute(folder, "bAlternateSetting")) {
            interface.active = interface.alternate == alternate;
            interface.driver = driverOf(folder);
        }
    }
}

/// Calls `keepLine()` for each line of the device's configurations and removes what it is false
/// for.
template <typename Predicate>
void filterLines(Device& device, Predicate keepLine) {
    const auto filter = [&](auto& records, auto keep) {
        records.erase(std::remove_if(records.begin(), records.end(),
                                     [&](auto& record) { return !keep(record); }),
                      records.end());
    };
    filter(device.configurations, [&](Configuration& configuration) {
        const bool isKept = keepLine();
        filter(configuration.associations, [&](const Association&) { return keepLine(); });
        filter(configuration.interfaces, [&](Interface& interface) {
            const bool isInterfaceKept = keepLine();
            filter(interface.endpoints, [&](const Endpoint&) { return keepLine(); });
            return isInterfaceKept;
        });
        return isKept;
    });
}

/// Leaves out of a device what the kernel has no room for: it stops after the line with which the
/// device takes more than two pages but 256 bytes.
void truncateAsKernel(Device& device) {
    constexpr std::size_t spare = 256;
    const std::size_t room = 2 * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) - spare;
    const DeviceList alone = {{device}, {}, {}, {}};
    const std::string text = writeDeviceList(alone);
    if (text.size() <= room) {
        return;
    }
    // Counted from the end: a string, which is always kept, may hold line feeds.
    const auto excess = static_cast<std::size_t>(
        std::count(text.begin() + static_cast<std::ptrdiff_t>(room), text.end() - 1, '\n'));
    std::size_t lines = 0;
    filterLines(device, [&] { return ++lines != 0; });
    const std::size_t kept = lines - excess;
    std::size_t line = 0;
    filterLines(device, [&] { return line++ < kept; });
    device.truncated = true;
}

/// Reads the devices one after the other, each after its hub.
class SysfsReader {
public:
    explicit SysfsReader(const std::string& sysfs) : devices_(path(sysfs) / "bus/usb/devices") {}

    DeviceList read() {
        for (const auto& [place, name] : findDevices()) {
            readDevice(place, name);
        }
        return std::move(list_);
    }

private:
    /// What the devices attached to a hub must know of it.
    struct Hub {
        unsigned number = 0;
        unsigned children = 0;
    };

    std::map<Place, std::string> findDevices() const {
        std::map<Place, std::string> found;
        std::error_code failure;
        for (std::filesystem::directory_iterator entry(devices_, failure), end;
             !failure && entry != end && found.size() < maximumMachineDevices;
             entry.increment(failure)) {
            const std::string name = entry->path().filename().string();
            const auto place = placeOf(name);
            if (place && place->size() - 1 <= deepestLevel) {
                found.emplace(*place, name);
            }
        }
        return found;
    }

    void readDevice(const Place& place, const std::string& name) {
        const path folder = devices_ / name;
        const auto number = numberAttribute(folder, "devnum");
        const auto hub = hubs_.find(Place(place.begin(), place.end() - 1));
        const bool isRootHub = place.size() == 1;
        if (!number || (!isRootHub && hub == hubs_.end())) {
            return;
        }
        hubs_[place] = {*number};
        Device& device = list_.devices.emplace_back();
        device.bus = place.front();
        device.level = static_cast<unsigned>(place.size() - 1);
        device.parentNumber = isRootHub ? 0 : hub->second.number;
        device.port = isRootHub ? 0 : place.back() - 1;
        device.count = isRootHub ? 0 : ++hub->second.children;
        device.number = number;
        device.speed = speedOf(folder);
        device.maxChildren = numberAttribute(folder, "maxchild");
        device.portPath = name;
        readDescriptors(contentOf(folder / "descriptors", maximumDescriptorsSize).value_or(""),
                        device);
        device.manufacturer = stringAttribute(folder, "manufacturer");
        device.product = stringAttribute(folder, "product");
        device.serialNumber = stringAttribute(folder, "serial");
        if (const auto value = numberAttribute(folder, "bConfigurationValue")) {
            // The interfaces of a root hub are those of "1-0".
            activate(device, *value, devices_,
                     isRootHub ? std::to_string(place.front()) + "-0" : name);
        }
        truncateAsKernel(device);
    }

    path devices_;
    DeviceList list_;
    std::map<Place, Hub> hubs_;
};

}  // namespace

DeviceList readSysfsDevices(const std::string& sysfs) {
    return SysfsReader(sysfs).read();
}

}  // namespace devicelist
