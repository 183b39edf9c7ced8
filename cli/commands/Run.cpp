// SPDX-License-Identifier: MIT
// usbhcdiag run
#include <unistd.h>

#include <iostream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/Choice.h"
#include "cli/DeviceListSource.h"
#include "cli/DevicesJson.h"
#include "cli/Diagnostics.h"
#include "cli/Errors.h"
#include "cli/InstanceJson.h"
#include "cli/Listing.h"
#include "cli/Note.h"
#include "cli/NothingRead.h"
#include "cli/Progress.h"
#include "cli/ReportMatch.h"
#include "cli/ReportedList.h"
#include "cli/ReportedListJson.h"
#include "cli/Terminal.h"
#include "cli/TerminalText.h"
#include "cli/ValueTexts.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"
#include "contract/TestState.h"
#include "devicelist/DeviceListFile.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using contract::TestState;
namespace properties = contract::properties;

CIMInstance runWithProgress(Diagnostics& diagnostics, const CIMInstance& test,
                            const CIMInstance& element) {
    const Progress progress("running " + textOf(test, "Name") + " on " +
                            textOf(element, properties::deviceId));
    return diagnostics.run(test, element);
}

/// The report on standard output, one line of it per line. A terminal is spared the control
/// characters of device names; anything else gets them as they are.
void printReport(const std::vector<std::string>& lines) {
    const bool toTerminal = isTerminal(STDOUT_FILENO);
    for (const std::string& line : lines) {
        std::cout << (toTerminal ? withoutControls(line) : withoutLineFeeds(line)) << "\n";
    }
}

/// The list that the report is about, where this command can see it; empty if it cannot.
std::optional<DeviceListSource> listOfReport(const Server& server, const Invocation& invocation) {
    using Kind = DeviceListSource::Kind;
    if (const ReplayedList* replayed = server.replayedList()) {
        if (!replayed->text()) {
            return std::nullopt;
        }
        return DeviceListSource{Kind::file, invocation.devices.value_or(""), *replayed->text()};
    }
    if (const PrivateServer* privateServer = server.privateServer()) {
        const MachinePlaces places;
        try {
            std::string text =
                devicelist::readDeviceListFile(deviceListPlaces(privateServer->process()).seen);
            return server.showsSysfs()
                       ? DeviceListSource{Kind::sysfs, places.devices(), std::move(text)}
                       : DeviceListSource{Kind::kernel, places.readable(), std::move(text)};
        } catch (const devicelist::DeviceListFileError&) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

/// What the report holds of its list. Empty where the list is not known; also where the report is of
/// another one, since a device came or went after the test had read it.
std::optional<ReportedList> reportedList(const std::optional<DeviceListSource>& list,
                                         const std::vector<std::string>& report) {
    if (!list) {
        return std::nullopt;
    }
    ReportedList reported(list->text);
    return isReportOf(report, list->text, reported) ? std::optional(std::move(reported))
                                                    : std::nullopt;
}

void writeResult(JsonWriter& json, const CIMInstance& result,
                 const std::optional<DeviceListSource>& list,
                 const std::optional<ReportedList>& reported) {
    json.beginObject();
    writeProperties(json, result);
    writeReportedList(json, reported ? &*reported : nullptr);
    json.key("device_list");
    if (reported) {
        writeDevices(json, *list, *reported);
    } else {
        json.null();
    }
    json.endObject();
}

std::string nothingRead(const Server& server) {
    const PrivateServer* privateServer = server.privateServer();
    if (privateServer == nullptr) {
        return nothingReadAt(server.url());
    }
    if (const ReplayedList* replayed = server.replayedList()) {
        return nothingReadOf(replayed->name(), replayed->text()
                                                   ? examineDeviceListText(*replayed->text())
                                                   : examineDeviceList(replayed->path()));
    }
    return nothingReadPrivately(deviceListPlaces(privateServer->process()),
                                privateServer->notShown());
}

}  // namespace

ExitStatus runTest(Server& server, const Invocation& invocation) {
    Diagnostics diagnostics(server.client());
    const CIMInstance test = chooseTest(diagnostics.tests());
    const CIMInstance element = chooseElement(diagnostics.elements(), invocation.element, server);
    const CIMInstance result = runWithProgress(diagnostics, test, element);

    const auto lines = textsOf(result, properties::testResults);
    const auto list = listOfReport(server, invocation);
    const auto reported = reportedList(list, lines);
    if (invocation.json) {
        printJson([&](JsonWriter& json) { writeResult(json, result, list, reported); });
    } else {
        printReport(lines);
    }
    std::cout.flush();
    const auto state = numberOf(result, properties::testState);
    if (state != static_cast<std::uint16_t>(TestState::passed)) {
        throw Failure("the result on " + withoutControls(textOf(element, properties::deviceId)) +
                      " did not pass: it is " +
                      (state.has_value() ? testStateText(*state) : "unknown"));
    }
    if (lines.empty()) {
        throw NothingRead(nothingRead(server));
    }
    if (reported && !reported->isWhole()) {
        note(reported->message());
    }
    return exitSuccess;
}

}  // namespace usbhcdiag
