// SPDX-License-Identifier: MIT
#include "usbdevices/result.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <string>

namespace {

// Set when the project is configured.
constexpr char deviceListPath[] = ZORVA_DEVICE_LIST_PATH;

}  // namespace

std::queue<UsbDevice> result::GetUsbDeviceInfomation() {
    std::cout << "test code for usb host controller " << std::endl;
    const int file = open(deviceListPath, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        std::cout << "could not open usb device file " << std::endl;
    }
    std::array<char, 8192> buffer;  // not cleared: only the bytes read are used
    const ssize_t length = read(file, buffer.data(), buffer.size());
    if (length < 0) {
        std::cout << "could not read file " << std::endl;
    } else {
        appendDevices({buffer.data(), static_cast<std::size_t>(length)});
    }
    if (file >= 0) {
        close(file);
    }
    return devices_;
}

void result::appendDevices(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    if (text.empty()) {
        return;
    }
    const auto lines = std::count(text.begin() + 1, text.end(), '\n');
    current_ = std::make_unique<UsbDevice>();
    bool topologySeen = false;
    std::string_view::size_type start = 0;
    for (std::ptrdiff_t done = 0; done < lines; ++done) {
        const auto lineFeed = text.find('\n', start);
        const std::string_view line = text.substr(start, lineFeed - start);
        const char letter = text[start];
        start = lineFeed + 1;
        if (letter != 'E') {
            topologySeen = topologySeen || letter == 'T';
            fillCurrent(letter, line);
        } else if (topologySeen) {
            devices_.push(*current_);
            current_ = std::make_unique<UsbDevice>();
            topologySeen = false;
        }
    }
}

void result::fillCurrent(char letter, std::string_view line) {
    switch (letter) {
        case 'T':
            current_->setTopology(std::string(line));
            break;
        case 'S':
            current_->setDeviceInfo(std::string(line));
            break;
        case 'D':
            current_->setDescriptor(std::string(line));
            break;
        case 'P':
            current_->setProduct(std::string(line));
            break;
        case 'I':
            current_->setInterface(std::string(line));
            break;
        case 'C':
            current_->setConfiguration(std::string(line));
            break;
        default:
            break;
    }
}
