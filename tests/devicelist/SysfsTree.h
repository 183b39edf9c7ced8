// SPDX-License-Identifier: MIT
// Folders that look like sysfs to those who read USB devices there.
#pragma once

#include <cmath>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "devicelist/DeviceList.h"

namespace devicelist {

/// Numbers of more than one byte begin with the lowest.
inline std::string bytes(std::initializer_list<unsigned> values) {
    std::string text;
    for (const unsigned value : values) {
        text += static_cast<char>(value);
    }
    return text;
}

/// The bInterval that a kernel shows as the interval of `endpoint`.
inline unsigned intervalField(const Endpoint& endpoint, double speed) {
    const bool isFast = speed >= 480;
    const auto units =
        static_cast<unsigned>(*endpoint.intervalMicroseconds / (isFast ? 125 : 1000));
    const bool isExponent = endpoint.type() == Endpoint::Type::isochronous ||
                            (isFast && endpoint.type() == Endpoint::Type::interrupt);
    unsigned exponent = 1;
    while (isExponent && units >> exponent != 0) {
        ++exponent;
    }
    return isExponent ? exponent : units;
}

inline std::string descriptorOf(const Endpoint& endpoint, double speed) {
    const unsigned size = *endpoint.maxPacketSize;
    const unsigned more = speed == 480 && size > 1024 ? (size - 1) / 1024 : 0;
    const unsigned field = size / (more + 1) | more << 11U;
    return bytes({7, 5, *endpoint.address, *endpoint.attributes, field & 0xffU, field >> 8U,
                  intervalField(endpoint, speed)});
}

inline std::string descriptorsOf(const Configuration& configuration, double speed) {
    std::string text;
    for (const Association& association : configuration.associations) {
        const UsbClass& use = association.usbClass;
        text += bytes({8, 11, *association.firstInterface, *association.interfaceCount, *use.code,
                       *use.subclass, *use.protocol, 0});
    }
    for (const Interface& interface : configuration.interfaces) {
        const UsbClass& use = interface.usbClass;
        text += bytes({9, 4, *interface.number, *interface.alternate, *interface.endpointCount,
                       *use.code, *use.subclass, *use.protocol, 0});
        text += bytes({5, 0x24, 1, 2, 3});  // one of a class
        for (const Endpoint& endpoint : interface.endpoints) {
            text += descriptorOf(endpoint, speed);
        }
    }
    const auto length = static_cast<unsigned>(text.size() + 9);
    return bytes({9, 2, length & 0xffU, length >> 8U, *configuration.interfaceCount,
                  *configuration.value, 0, *configuration.attributes,
                  *configuration.maxPowerMilliamperes / (speed >= 5000 ? 8U : 2U)}) +
           text;
}

inline std::string word(unsigned value) {
    return bytes({value & 0xffU, value >> 8U});
}

inline std::string descriptorsOf(const Device& device) {
    const UsbClass& use = device.usbClass;
    std::string text = bytes({18, 1}) + word(*device.usbVersion) +
                       bytes({*use.code, *use.subclass, *use.protocol, *device.maxPacketSize}) +
                       word(*device.vendorId) + word(*device.productId) + word(*device.release) +
                       bytes({1, 2, 3, *device.configurationCount});
    for (const Configuration& configuration : device.configurations) {
        text += descriptorsOf(configuration, device.speed.value_or(12));
    }
    return text;
}

/// A made-up sysfs below a folder. Throws what std::filesystem throws.
class SysfsTree {
public:
    explicit SysfsTree(std::filesystem::path root) : root_(std::move(root)) {
        std::filesystem::create_directories(root_ / "bus/usb/devices");
    }

    void write(const std::string& device, const std::string& name,
               const std::string& content) const {
        std::ofstream(folder(device) / name, std::ios::binary) << content;
    }

    void remove(const std::string& device, const std::string& name) const {
        std::filesystem::remove_all(folder(device) / name);
    }

    /// Adds a device or an interface: a link among the devices to its place below its controller.
    void add(const std::string& name, const std::string& controller = "0000:00:01.0") const {
        std::filesystem::create_directories(root_ / "devices" / controller / name);
        std::filesystem::create_symlink("../../../devices/" + controller + "/" + name,
                                        root_ / "bus/usb/devices" / name);
    }

    /// Adds a device with all that a list tells of it; of a list that a kernel has printed.
    void add(const Device& device) const {
        const std::string& name = device.portPath;
        add(name, device.level == 0U ? device.serialNumber.value_or("controller") : "attached");
        write(name, "devnum", std::to_string(*device.number) + "\n");
        const bool isSlow = device.speed == 1.5;
        write(name, "speed",
              !device.speed ? "unknown\n"
                            : (isSlow ? "1.5" : std::to_string(std::lround(*device.speed))) + "\n");
        write(name, "maxchild", std::to_string(*device.maxChildren) + "\n");
        write(name, "descriptors", descriptorsOf(device));
        writeString(name, "manufacturer", device.manufacturer);
        writeString(name, "product", device.product);
        writeString(name, "serial", device.serialNumber);
        write(name, "bConfigurationValue", "\n");
        for (const Configuration& configuration : device.configurations) {
            if (configuration.active) {
                activate(device, configuration);
            }
        }
    }

    std::filesystem::path folder(const std::string& device) const {
        return root_ / "bus/usb/devices" / device;
    }

private:
    void writeString(const std::string& device, const char* name,
                     const std::optional<std::string>& value) const {
        if (value) {
            write(device, name, *value + "\n");
        }
    }

    void activate(const Device& device, const Configuration& configuration) const {
        const std::string owner =
            device.level == 0U ? std::to_string(*device.bus) + "-0" : device.portPath;
        write(device.portPath, "bConfigurationValue", std::to_string(*configuration.value) + "\n");
        for (const Interface& interface : configuration.interfaces) {
            const std::string name = owner + ":" + std::to_string(*configuration.value) + "." +
                                     std::to_string(*interface.number);
            if (!interface.active) {
                continue;
            }
            add(name, "attached");
            write(name, "bAlternateSetting", " " + std::to_string(*interface.alternate) + "\n");
            if (interface.driver && *interface.driver != "(none)") {
                std::filesystem::create_symlink("../../bus/usb/drivers/" + *interface.driver,
                                                folder(name) / "driver");
            }
        }
    }

    std::filesystem::path root_;
};

}  // namespace devicelist
