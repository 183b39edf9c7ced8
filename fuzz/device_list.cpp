// SPDX-License-Identifier: MIT
// Fuzzes the road of a device list: the reader, at the path that it really opens, and the report of the
// stand-alone driver. Whatever the bytes, both must come to their end; an empty number is an outcome.
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string_view>

#include "fuzz/PrivateView.h"
#include "tests/support/PrivateDeviceList.h"
#include "usbdevices/DeviceReport.h"
#include "usbdevices/result.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    enterPrivateView(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PrivateDeviceList::show({reinterpret_cast<const char*>(data), size});
    std::ostringstream ignored;
    std::streambuf* const output = std::cout.rdbuf(ignored.rdbuf());
    result reader;
    auto devices = reader.GetUsbDeviceInfomation();
    std::cout.rdbuf(output);
    try {
        printDeviceReport(ignored, devices);
    } catch (const EmptyFieldError&) {
    }
    return 0;
}
