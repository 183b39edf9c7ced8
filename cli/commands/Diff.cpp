// SPDX-License-Identifier: MIT
// usbhcdiag diff
#include <unistd.h>

#include <iostream>
#include <optional>
#include <string>
#include <utility>

#include "cli/DeviceListSource.h"
#include "cli/Errors.h"
#include "cli/HardwareNames.h"
#include "cli/ListDifferences.h"
#include "cli/ListDifferencesJson.h"
#include "cli/Listing.h"
#include "cli/NothingRead.h"
#include "cli/Terminal.h"
#include "cli/commands/Commands.h"
#include "devicelist/DeviceListReader.h"

namespace usbhcdiag {
namespace {

DeviceListSource readable(const std::optional<std::string>& file) {
    try {
        return readSource(file);
    } catch (const Failure& error) {
        // The status of other failures says here that the lists differ.
        throw NothingRead(error.what());
    }
}

/// An empty list is that of a machine without USB, other text without devices is none.
devicelist::DeviceList listOf(const std::optional<std::string>& file) {
    const DeviceListSource source = readable(file);
    devicelist::DeviceList list = devicelist::readDeviceList(source.text);
    if (list.devices.empty() && !list.unknownLines.empty()) {
        throw NothingRead(nothingReadOf(source.path, examineDeviceListText(source.text)));
    }
    return list;
}

}  // namespace

ExitStatus compareLists(const DiffRequest& request) {
    devicelist::DeviceList before = listOf(request.before);
    const ListDifferences differences(std::move(before), listOf(request.after));
    if (request.json) {
        printJson([&](JsonWriter& json) { writeDifferences(json, differences); });
    } else {
        std::cout << differences.table(HardwareNames(), mayColour(STDOUT_FILENO));
    }
    return differences.areNone() ? exitSuccess : exitDifferent;
}

}  // namespace usbhcdiag
