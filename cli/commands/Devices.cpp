// SPDX-License-Identifier: MIT
// usbhcdiag devices
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "base/Parts.h"
#include "cli/DeviceListSource.h"
#include "cli/DeviceTexts.h"
#include "cli/DeviceTree.h"
#include "cli/DevicesJson.h"
#include "cli/Errors.h"
#include "cli/HardwareNames.h"
#include "cli/Listing.h"
#include "cli/NothingRead.h"
#include "cli/ReportedList.h"
#include "cli/Table.h"
#include "cli/Terminal.h"
#include "cli/commands/Commands.h"
#include "devicelist/Findings.h"

namespace usbhcdiag {
namespace {

using devicelist::Device;

/// A list with all that is said of its devices.
class Devices {
public:
    explicit Devices(const std::string& text)
        : reported_(text), findings_(devicelist::findingsOf(reported_.list())) {}

    bool isEmpty() const { return reported_.list().devices.empty(); }

    std::vector<std::size_t> wanted(const DeviceFilter& filter) const {
        std::vector<std::size_t> positions;
        for (std::size_t position = 0; position < reported_.list().devices.size(); ++position) {
            if (filter.accepts(reported_.list().devices[position], hasProblem(position))) {
                positions.push_back(position);
            }
        }
        return positions;
    }

    std::string table(const std::vector<std::size_t>& positions, bool withFacts) const {
        std::vector<std::string> headings = {"PORT", "ID", "SPEED", "CLASS", "DRIVER", "REPORT"};
        headings.emplace_back(withFacts ? "PROBLEM" : "NAME");
        Table table(headings);
        for (const std::size_t position : positions) {
            const Device& device = reported_.list().devices[position];
            table.addRow({orDash(device.portPath), orDash(idOf(device)), speedText(device),
                          classesText(device), driversText(device),
                          isInReport(position) ? "yes" : "no",
                          withFacts ? facts(position) : name(device)});
        }
        return table.text(mayColour(STDOUT_FILENO));
    }

    std::string tree(const std::vector<std::size_t>& positions) const {
        std::vector<std::string> texts;
        for (std::size_t position = 0; position < reported_.list().devices.size(); ++position) {
            const Device& device = reported_.list().devices[position];
            texts.push_back(orDash(idOf(device)) + "  " + speedText(device) + "  " +
                            classesText(device) + "  " + driversText(device) + "  " + name(device) +
                            (isInReport(position) ? "" : "  (not in the report)"));
        }
        return treeOf(reported_.list(), positions, texts);
    }

    void printJson(const DeviceListSource& source,
                   const std::vector<std::size_t>& positions) const {
        usbhcdiag::printJson([&](JsonWriter& json) {
            writeDevices(json, source, reported_, findings_, positions, names_);
        });
    }

private:
    using Findings = std::vector<devicelist::Finding>;

    bool isInReport(std::size_t position) const {
        return reported_.coverage().devices[position].isInReport();
    }

    /// The first finding at a device or after it: they are in the devices' order.
    Findings::const_iterator findingsFrom(std::size_t position) const {
        return std::partition_point(
            findings_.begin(), findings_.end(),
            [position](const auto& finding) { return finding.device < position; });
    }

    bool hasProblem(std::size_t position) const {
        const auto finding = findingsFrom(position);
        return finding != findings_.end() && finding->device == position;
    }

    std::string facts(std::size_t position) const {
        std::string text;
        for (auto finding = findingsFrom(position);
             finding != findings_.end() && finding->device == position; ++finding) {
            base::appendPart(text, "; ", finding->fact);
        }
        return text;
    }

    std::string name(const Device& device) const { return nameText(device, names_.find(device)); }

    ReportedList reported_;
    Findings findings_;
    HardwareNames names_;
};

}  // namespace

ExitStatus listDevices(const DevicesRequest& request) {
    const DeviceListSource source = readSource(request.file);
    const Devices devices(source.text);
    const auto wanted = devices.wanted(request.filter);
    if (request.json) {
        devices.printJson(source, wanted);
    }
    if (devices.isEmpty()) {
        throw NothingRead(nothingReadOf(source.path, examineDeviceListText(source.text)));
    }
    if (request.tree) {
        std::cout << devices.tree(wanted);
    } else if (!request.json) {
        std::cout << devices.table(wanted, request.filter.onlyProblems);
    }
    return exitSuccess;
}

}  // namespace usbhcdiag
