// SPDX-License-Identifier: MIT
// Fuzzes the complete reader of device lists: whatever the bytes, every "T:" line becomes a device, and
// the records that were written and read again are the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "devicelist/DeviceListReader.h"
#include "devicelist/DeviceListWriter.h"
#include "devicelist/HostControllers.h"

namespace {

std::size_t countDevices(std::string_view text) {
    std::size_t count = 0;
    while (!text.empty()) {
        count += text.substr(0, 2) == "T:" ? 1 : 0;
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
    }
    return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const devicelist::DeviceList list = devicelist::readDeviceList(text);
    const devicelist::DeviceList again =
        devicelist::readDeviceList(devicelist::writeDeviceList(list));
    if (list.devices.size() != countDevices(text) || !(again.devices == list.devices) ||
        !again.unknownLines.empty() || devicelist::hostControllersOfList(list).empty()) {
        std::abort();
    }
    return 0;
}
