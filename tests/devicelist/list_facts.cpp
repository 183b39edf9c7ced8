// SPDX-License-Identifier: MIT
// Prints what the reader makes of a device list on standard input, for check_facts.py.
#include <array>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <string>

#include "devicelist/DeviceListReader.h"

namespace {

using namespace devicelist;

template <typename Number>
std::string text(const char* format, std::optional<Number> number) {
    if (!number) {
        return "-";
    }
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), format, *number);
    return buffer.data();
}

std::string bytes(const std::optional<std::string>& string) {
    if (!string) {
        return "-";
    }
    std::string hexadecimal = "=";
    for (const char character : *string) {
        hexadecimal += text("%02x", std::optional(static_cast<unsigned char>(character)));
    }
    return hexadecimal;
}

void print(const Interface& interface) {
    std::cout << "interface " << text("%u", interface.number) << ' '
              << text("%u", interface.alternate) << ' ' << interface.active << ' '
              << text("%02x", interface.usbClass.code) << ' ' << bytes(interface.driver) << '\n';
    for (const Endpoint& endpoint : interface.endpoints) {
        std::cout << "endpoint " << text("%02x", endpoint.address) << ' '
                  << text("%02x", endpoint.attributes) << ' ' << text("%u", endpoint.maxPacketSize)
                  << ' ' << text("%ld", endpoint.intervalMicroseconds) << '\n';
    }
}

void print(const Device& device) {
    std::cout << "device " << text("%u", device.bus) << ' ' << text("%u", device.number) << ' '
              << (device.portPath.empty() ? "-" : device.portPath) << ' '
              << text("%.10g", device.speed) << ' ' << text("%04x", device.vendorId) << ':'
              << text("%04x", device.productId) << ' ' << bytes(device.manufacturer) << ' '
              << bytes(device.product) << ' ' << bytes(device.serialNumber) << '\n';
    for (const Configuration& configuration : device.configurations) {
        std::cout << "configuration " << text("%u", configuration.value) << ' '
                  << configuration.active << ' ' << text("%u", configuration.maxPowerMilliamperes)
                  << '\n';
        for (const Interface& interface : configuration.interfaces) {
            print(interface);
        }
    }
}

}  // namespace

int main() {
    const std::string list{std::istreambuf_iterator<char>(std::cin), {}};
    for (const Device& device : readDeviceList(list).devices) {
        print(device);
    }
    return 0;
}
