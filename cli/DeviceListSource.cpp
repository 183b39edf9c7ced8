// SPDX-License-Identifier: MIT
#include "cli/DeviceListSource.h"

#include <unistd.h>

#include <utility>

#include "cli/Errors.h"
#include "cli/NothingRead.h"
#include "cli/ReplayedList.h"
#include "devicelist/DeviceListFile.h"

namespace usbhcdiag {
namespace {

DeviceListSource fileSource(const std::string& file) {
    const ReplayedList list(file);
    if (!list.text()) {
        throw Failure("device list " + list.name() +
                      " is no file that can be read to its end. A FIFO is read as standard "
                      "input:\n    usbhcdiag COMMAND - <" +
                      file);
    }
    return {DeviceListSource::Kind::file, file, *list.text()};
}

}  // namespace

DeviceListSource readSource(const std::optional<std::string>& file, const MachinePlaces& places) {
    if (file) {
        return fileSource(*file);
    }
    const std::string kernel = places.readable();
    if (!kernel.empty()) {
        try {
            return {DeviceListSource::Kind::kernel, kernel, devicelist::readDeviceListFile(kernel),
                    "the device list is the kernel's, " + kernel};
        } catch (const devicelist::DeviceListFileError& error) {
            throw Failure("device list " + kernel + ": " + error.what());
        }
    }
    if (auto list = sysfsList(places)) {
        return {DeviceListSource::Kind::sysfs, places.devices(), std::move(list->text),
                std::move(list->origin)};
    }
    throw NothingRead(noHostController(deviceListPlaces(::getpid())));
}

const char* nameOf(DeviceListSource::Kind kind) {
    switch (kind) {
        case DeviceListSource::Kind::kernel:
            return "kernel";
        case DeviceListSource::Kind::sysfs:
            return "sysfs";
        case DeviceListSource::Kind::file:
            break;
    }
    return "file";
}

}  // namespace usbhcdiag
