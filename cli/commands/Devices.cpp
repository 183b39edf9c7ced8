// SPDX-License-Identifier: MIT
// usbhcdiag devices
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

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
#include "cli/Values.h"
#include "cli/commands/Commands.h"
#include "devicelist/Findings.h"

namespace usbhcdiag {
namespace {

using devicelist::Device;

/// A list with all that is said of its devices.
class Devices {
public:
    explicit Devices(const std::string& text)
        : reported_(text), findings_(devicelist::findingsOf(reported_.list())) {
        for (const devicelist::Finding& finding : findings_) {
            if (finding.device) {
                base::appendPart(facts_[*finding.device], "; ", finding.fact);
            }
        }
    }

    bool isEmpty() const { return reported_.list().devices.empty(); }

    std::vector<std::size_t> wanted(const DeviceFilter& filter) const {
        std::vector<std::size_t> positions;
        for (std::size_t position = 0; position < reported_.list().devices.size(); ++position) {
            if (filter.accepts(reported_.list().devices[position], facts_.count(position) != 0)) {
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
                          withFacts ? facts_.at(position) : name(device)});
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
        constexpr std::size_t enough = 65536;
        std::string text;
        writeDevicesJson(source, reported_, findings_, positions, names_,
                         [&text](std::string_view part) {
                             text += part;
                             if (text.size() >= enough) {
                                 printDocument(text);
                                 text.clear();
                             }
                         });
        printDocument(text);
    }

private:
    bool isInReport(std::size_t position) const {
        return reported_.coverage().devices[position].isInReport();
    }

    std::string name(const Device& device) const { return nameText(device, names_.find(device)); }

    ReportedList reported_;
    std::vector<devicelist::Finding> findings_;
    HardwareNames names_;
    std::map<std::size_t, std::string> facts_;  ///< of the devices with problems
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
