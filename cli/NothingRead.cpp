// SPDX-License-Identifier: MIT
#include "cli/NothingRead.h"

#include <unistd.h>

#include "base/DeviceListPaths.h"
#include "devicelist/DeviceListFile.h"
#include "devicelist/DeviceListReader.h"

namespace usbhcdiag {
namespace {

using State = DeviceListFinding::State;

constexpr const char* debugFolder = "/sys/kernel/debug";

/// What stands at `path`, as the end of a sentence that begins with "because ".
std::string clause(const std::string& path, const DeviceListFinding& finding) {
    switch (finding.state) {
        case State::missing:
            return "there is no " + path;
        case State::unreadable:
            return path + " cannot be read (" + finding.reason + ")";
        case State::empty:
            return path + " is empty";
        case State::blank:
            return path + R"( holds no USB device (no line that begins with "T:"))";
        case State::filled:
            break;
    }
    return path + R"( holds no complete USB device (no "E:" line behind a "T:"))";
}

std::string adviceWithoutKernelList(const DeviceListPlaces& places) {
    if (::access(places.usbBus.c_str(), F_OK) != 0) {
        return "This machine has no USB, or no driver for it is loaded: there is no " +
               places.usbBus + ".\n";
    }
    return "This kernel has its list at " + places.kernel +
           ", once debugfs is mounted:\n    mount -t debugfs debugfs " + debugFolder + "\n";
}

std::string kernelAdvice(const DeviceListPlaces& places) {
    const std::string& path = places.kernel;
    const DeviceListFinding finding = examineDeviceList(path);
    switch (finding.state) {
        case State::missing:
            return adviceWithoutKernelList(places);
        case State::unreadable:
            return "This kernel has its list at " + path + ", which cannot be read (" +
                   finding.reason +
                   ").\nRoot can, and a run as root is shown it:\n    sudo usbhcdiag run\n";
        case State::empty:
        case State::blank:
            return "The kernel's list at " + path +
                   " is empty, too: this machine has no USB host controller, or no driver for it "
                   "is loaded.\n";
        case State::filled:
            break;
    }
    return "This kernel has its list at " + path +
           ". Present it to the serving process alone:\n"
           "    with-device-list " +
           path + " PROGRAM [ARGUMENT]...\n";
}

const char* const replayAdvice = "A recorded list is read with\n    usbhcdiag run --devices FILE\n";

}  // namespace

DeviceListFinding examineDeviceList(const std::string& path) {
    try {
        const std::string text = devicelist::readDeviceListFile(path);
        if (text.empty()) {
            return {State::empty, {}};
        }
        const bool hasDevice = !devicelist::readDeviceList(text).devices.empty();
        return {hasDevice ? State::filled : State::blank, {}};
    } catch (const devicelist::DeviceListFileError& error) {
        return {error.isMissing() ? State::missing : State::unreadable, error.what()};
    }
}

DeviceListPlaces deviceListPlaces(int server) {
    return {base::deviceListPath,
            "/proc/" + std::to_string(server) + "/root" + base::deviceListPath,
            base::kernelListPath, "/sys/bus/usb"};
}

std::string nothingReadPrivately(const DeviceListPlaces& places, const std::string& replayed) {
    const std::string start = "nothing was read: ";
    if (!replayed.empty()) {
        return start + clause(replayed, examineDeviceList(replayed)) +
               ".\nA recorded list is a copy of " + base::deviceListPath + " (old kernels) or " +
               base::kernelListPath + ".\n";
    }
    return start + clause(places.expected, examineDeviceList(places.seen)) + ".\n" +
           kernelAdvice(places) + replayAdvice;
}

std::string noHostController(const DeviceListPlaces& places) {
    return "nothing was read: this machine shows no USB host controller.\n" + kernelAdvice(places) +
           replayAdvice;
}

std::string nothingReadAt(const std::string& url) {
    return "nothing was read: the server at " + url + " found no device list at " +
           base::deviceListPath +
           ", or an empty one.\n"
           "On that machine look at that path and at " +
           base::kernelListPath +
           ", where modern kernels have the list.\n"
           "The server must find it at the first: the manual (man usbhcdiag, section DEVICE LIST)\n"
           "says how to present it.\n";
}

}  // namespace usbhcdiag
