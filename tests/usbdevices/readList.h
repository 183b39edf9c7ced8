// SPDX-License-Identifier: MIT
// Reads device lists and captures the reader's output.
// One thread.
#pragma once

#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/PrivateDeviceList.h"
#include "usbdevices/result.h"

/// Captures what is written to std::cout while the object exists.
class CaughtOutput {
public:
    CaughtOutput() : before_(std::cout.rdbuf(caught_.rdbuf())) {}
    ~CaughtOutput() { std::cout.rdbuf(before_); }
    CaughtOutput(const CaughtOutput&) = delete;
    CaughtOutput& operator=(const CaughtOutput&) = delete;
    std::string text() const { return caught_.str(); }

private:
    std::ostringstream caught_;
    std::streambuf* before_;
};

struct Reading {
    std::vector<UsbDevice> devices;
    std::string output;
};

inline std::vector<UsbDevice> inOrder(std::queue<UsbDevice> queue) {
    std::vector<UsbDevice> devices;
    for (; !queue.empty(); queue.pop()) {
        devices.push_back(queue.front());
    }
    return devices;
}

/// Reads the list as it is at the path.
inline Reading readWhatIsThere() {
    const CaughtOutput output;
    result reader;
    auto devices = inOrder(reader.GetUsbDeviceInfomation());
    return {devices, output.text()};
}

inline std::vector<UsbDevice> readList(std::string_view list) {
    PrivateDeviceList::show(list);
    return readWhatIsThere().devices;
}

constexpr char banner[] = "test code for usb host controller \n";
