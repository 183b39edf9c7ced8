// SPDX-License-Identifier: MIT
#include "cli/DeviceTexts.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/Parts.h"
#include "devicelist/ClassNames.h"

namespace usbhcdiag {
namespace {

using devicelist::Configuration;
using devicelist::Device;
using devicelist::Interface;
using devicelist::UsbClass;

template <typename Value>
void addOnce(std::vector<Value>& values, const Value& value) {
    if (std::find(values.begin(), values.end(), value) == values.end()) {
        values.push_back(value);
    }
}

bool isBlank(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

}  // namespace

std::string speedText(const Device& device) {
    if (!device.speed) {
        return "-";
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.10g Mb/s", *device.speed);
    return text.data();
}

std::string idOf(const Device& device) {
    if (!device.vendorId || !device.productId) {
        return {};
    }
    std::array<char, 10> text{};
    std::snprintf(text.data(), text.size(), "%04x:%04x", unsigned{*device.vendorId},
                  unsigned{*device.productId});
    return text.data();
}

std::string orDash(const std::string& text) {
    return text.empty() ? "-" : text;
}

const std::vector<Interface>& interfacesOf(const Device& device) {
    static const std::vector<Interface> none;
    const Configuration* active = device.activeConfiguration();
    if (active != nullptr) {
        return active->interfaces;
    }
    return device.configurations.empty() ? none : device.configurations.front().interfaces;
}

std::vector<UsbClass> classesOf(const Device& device) {
    constexpr std::uint8_t byInterface = 0x00;
    constexpr std::uint8_t miscellaneous = 0xef;
    const auto code = device.usbClass.code;
    std::vector<UsbClass> classes;
    if (code && code != byInterface && code != miscellaneous) {
        classes.push_back(device.usbClass);
        return classes;
    }
    std::vector<std::uint8_t> known;
    for (const Interface& interface : interfacesOf(device)) {
        const std::size_t count = known.size();
        if (interface.usbClass.code) {
            addOnce(known, *interface.usbClass.code);
        }
        if (known.size() != count) {
            classes.push_back(interface.usbClass);
        }
    }
    if (classes.empty() && code) {
        classes.push_back(device.usbClass);
    }
    return classes;
}

std::string classText(const UsbClass& usbClass) {
    std::string words(devicelist::wordsOfClass(*usbClass.code));
    if (!words.empty()) {
        return words;
    }
    std::array<char, 12> text{};
    std::snprintf(text.data(), text.size(), "class %02x", unsigned{*usbClass.code});
    return text.data();
}

std::string classesText(const Device& device) {
    std::vector<std::string> texts;
    for (const UsbClass& usbClass : classesOf(device)) {
        texts.push_back(classText(usbClass));
    }
    return orDash(base::joined(texts, ", "));
}

std::vector<std::string> driversOf(const Device& device) {
    std::vector<std::string> drivers;
    if (const Configuration* active = device.activeConfiguration()) {
        for (const Interface& interface : active->interfaces) {
            if (interface.driver && !interface.driver->empty()) {
                addOnce(drivers, *interface.driver);
            }
        }
    }
    return drivers;
}

std::string driversText(const Device& device) {
    if (!device.isConfigured().value_or(true)) {
        return "not configured";
    }
    return orDash(base::joined(driversOf(device), ", "));
}

std::string nameText(const Device& device, const HardwareNames::Names& known) {
    const auto part = [](const std::optional<std::string>& own, const std::string& fromDatabase) {
        if (own && !isBlank(*own)) {
            return *own;
        }
        return fromDatabase.empty() ? fromDatabase : "[" + fromDatabase + "]";
    };
    const std::string vendor = part(device.manufacturer, known.vendor);
    const std::string product = part(device.product, known.product);
    const std::string name = vendor + (vendor.empty() || product.empty() ? "" : " ") + product;
    return name.empty() ? "-" : name;
}

std::string parentPath(const std::string& portPath) {
    const auto dot = portPath.rfind('.');
    if (dot != std::string::npos) {
        return portPath.substr(0, dot);
    }
    const auto dash = portPath.find('-');
    return dash == std::string::npos ? std::string() : "usb" + portPath.substr(0, dash);
}

}  // namespace usbhcdiag
