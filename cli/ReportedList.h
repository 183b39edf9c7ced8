// SPDX-License-Identifier: MIT
// What the test's report holds of a device list, in words.
#pragma once

#include <cstddef>
#include <string>

#include "devicelist/DeviceList.h"
#include "devicelist/ReportCoverage.h"

namespace usbhcdiag {

/// A device list beside the report on it. A plain value.
class ReportedList {
public:
    /// `text`: the whole list, maximumListSize bytes at most.
    explicit ReportedList(const std::string& text);

    const devicelist::DeviceList& list() const { return list_; }
    const devicelist::ReportCoverage& coverage() const { return coverage_; }

    /// Whether the report has each device, and nothing of it stands in the block of another.
    bool isWhole() const;

    /// What of the list keeps devices out of the report or mixes them, as parts of a sentence: "it begins
    /// with an empty line, ...; ...".
    std::string reason() const;

    /// Why a device is not in the report: "no endpoint; its fields stand in the block of ...".
    std::string whyLeftOut(std::size_t position) const;

    /// Whose fields stand in a device's block: "its block has the interface of ..."; empty if only its
    /// own do.
    std::string whyMixed(std::size_t position) const;

    /// The message for people, without a line feed at the end: how many devices the report holds and why,
    /// then a line for each that is missing or mixed.
    std::string message() const;

private:
    std::string textOf(devicelist::LeftOut reason) const;
    std::string nameOf(std::size_t position) const;

    std::size_t size_;
    std::string lastLine_;  ///< which line is left out if the list begins with an empty one
    devicelist::DeviceList list_;
    devicelist::ReportCoverage coverage_;
};

}  // namespace usbhcdiag
