// SPDX-License-Identifier: MIT
#include "cli/NothingRead.h"

#include <unistd.h>

#include <algorithm>
#include <array>

#include "base/DeviceListPaths.h"
#include "cli/ReportedList.h"
#include "devicelist/DeviceListFile.h"
#include "devicelist/DeviceListReader.h"

namespace usbhcdiag {
namespace {

using State = DeviceListFinding::State;

constexpr const char* debugFolder = "/sys/kernel/debug";

/// Why the test reads no device of a list that has some: the end of a sentence that begins with the
/// list's name.
std::string unreadDevices(const std::string& text) {
    const ReportedList reported(text);
    const auto& devices = reported.coverage().devices;
    const bool hasNoEndpoint =
        std::all_of(devices.begin(), devices.end(), [](const devicelist::DeviceCoverage& device) {
            return device.leftOut == devicelist::LeftOut::noEndpoint;
        });
    return hasNoEndpoint ? R"( holds no complete USB device (no "E:" line behind a "T:"))"
                         : " holds no USB device that the test reads whole: " + reported.reason();
}

/// A change after which the test reads more of a list, and a command that makes it.
struct Remedy {
    const char* what;
    const char* command;
    std::string changed;
};

/// What would let the test read devices of such a list; empty if nothing would.
std::string remedyFor(const std::string& text) {
    std::string withoutZeros = text;
    withoutZeros.erase(std::remove(withoutZeros.begin(), withoutZeros.end(), '\0'),
                       withoutZeros.end());
    const std::array<Remedy, 3> remedies = {{
        {"Without the empty first line", "sed 1d FILE",
         text.front() == '\n' ? text.substr(1) : text},
        {"With a line feed at its end", "sed '$a\\' FILE", text + "\n"},
        {"Without zero bytes", "tr -d '\\0' <FILE", withoutZeros},
    }};
    for (const Remedy& remedy : remedies) {
        if (ReportedList(remedy.changed).coverage().devicesInReport() > 0) {
            return std::string(remedy.what) + " it is read:\n    " + remedy.command +
                   " | usbhcdiag run --devices -\n";
        }
    }
    return {};
}

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
    return path + unreadDevices(finding.text);
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
        return examineDeviceListText(devicelist::readDeviceListFile(path));
    } catch (const devicelist::DeviceListFileError& error) {
        return {error.isMissing() ? State::missing : State::unreadable, error.what(), {}};
    }
}

DeviceListFinding examineDeviceListText(const std::string& text) {
    if (text.empty()) {
        return {State::empty, {}, {}};
    }
    const bool hasDevice = !devicelist::readDeviceList(text).devices.empty();
    return {hasDevice ? State::filled : State::blank, {}, text};
}

DeviceListPlaces deviceListPlaces(int server) {
    return {base::deviceListPath,
            "/proc/" + std::to_string(server) + "/root" + base::deviceListPath,
            base::kernelListPath, "/sys/bus/usb"};
}

std::string nothingReadPrivately(const DeviceListPlaces& places, const std::string& notShown) {
    const DeviceListFinding finding = examineDeviceList(places.seen);
    std::string start = "nothing was read: " + clause(places.expected, finding) + ".\n";
    if (!notShown.empty()) {
        start += "A list made from " + places.usbBus +
                 "/devices cannot be shown to the test here:\n" + notShown + ".\n";
    }
    // The server has been shown a list: another way to show it would change nothing.
    return start + (finding.state == State::filled ? remedyFor(finding.text)
                                                   : kernelAdvice(places) + replayAdvice);
}

std::string nothingReadOf(const std::string& name, const DeviceListFinding& finding) {
    const std::string start = "nothing was read: " + clause(name, finding) + ".\n";
    if (finding.state == State::filled) {
        return start + remedyFor(finding.text);
    }
    return start + "A recorded list is a copy of " + base::deviceListPath + " (old kernels) or " +
           base::kernelListPath + ".\n";
}

std::string noHostController(const DeviceListPlaces& places) {
    return "this machine shows no USB host controller.\n" + kernelAdvice(places) + replayAdvice;
}

std::string nothingReadAt(const std::string& url) {
    return "nothing was read: the server at " + url + " found no device list at " +
           base::deviceListPath +
           ",\nor one of which the test reads no device.\n"
           "On that machine look at that path and at " +
           base::kernelListPath +
           ", where modern kernels have the list.\n"
           "The server must find it at the first: the manual (man usbhcdiag, section DEVICE LIST)\n"
           "says how to present it.\n";
}

}  // namespace usbhcdiag
