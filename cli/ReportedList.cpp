// SPDX-License-Identifier: MIT
#include "cli/ReportedList.h"

#include <algorithm>
#include <vector>

#include "base/Parts.h"
#include "cli/DeviceTexts.h"
#include "cli/TerminalText.h"
#include "devicelist/DeviceListReader.h"

namespace usbhcdiag {
namespace {

using base::appendPart;
using devicelist::BlockField;
using devicelist::DeviceCoverage;
using devicelist::LeftOut;

const char* labelOf(BlockField field) {
    switch (field) {
        case BlockField::topology:
            return "port and speed";
        case BlockField::descriptor:
            return "USB specification";
        case BlockField::identifiers:
            return "vendor ID, product ID and revision";
        case BlockField::manufacturer:
            return "vendor name";
        case BlockField::product:
            return "product name";
        case BlockField::serialNumber:
            return "serial number";
        case BlockField::power:
            return "current draw";
        case BlockField::interface:
            return "interface";
    }
    return "";
}

std::string labelsOf(const std::vector<BlockField>& fields) {
    std::string text;
    for (const BlockField field : fields) {
        appendPart(text, ", ", labelOf(field));
    }
    return text;
}

std::string readSize() {
    return std::to_string(devicelist::testReadSize);
}

std::string lastLineOf(const std::string& text) {
    if (text.find('\0') < devicelist::testReadSize) {
        return "the last whole line before the zero byte";
    }
    return text.size() > devicelist::testReadSize
               ? "the last whole line of the first " + readSize() + " bytes"
               : "the last line of the list";
}

}  // namespace

ReportedList::ReportedList(const std::string& text)
    : size_(text.size()),
      lastLine_(lastLineOf(text)),
      list_(devicelist::readDeviceList(text)),
      coverage_(devicelist::reportCoverage(text, list_)) {}

bool ReportedList::isWhole() const {
    return std::all_of(
        coverage_.devices.begin(), coverage_.devices.end(),
        [](const DeviceCoverage& device) { return device.isInReport() && device.foreign.empty(); });
}

std::string ReportedList::reason() const {
    const auto some = [this](LeftOut reason) {
        return std::any_of(
            coverage_.devices.begin(), coverage_.devices.end(),
            [reason](const DeviceCoverage& device) { return device.leftOut == reason; });
    };
    std::string text;
    if (some(LeftOut::beyondReadSize)) {
        appendPart(text, "; ",
                   "the test reads the first " + readSize() + " of its " + std::to_string(size_) +
                       " bytes");
    }
    if (some(LeftOut::afterZeroByte)) {
        appendPart(text, "; ", "it holds a zero byte, where the test stops");
    }
    if (some(LeftOut::unfinishedLine)) {
        appendPart(text, "; ", "its last line has no line feed, and is not read");
    }
    if (some(LeftOut::lastLine)) {
        appendPart(text, "; ",
                   "it begins with an empty line, for which " + lastLine_ + " is not read");
    }
    if (some(LeftOut::noEndpoint)) {
        appendPart(text, "; ", "a device without endpoint (\"E:\") has no block");
    }
    if (std::any_of(coverage_.devices.begin(), coverage_.devices.end(),
                    [](const DeviceCoverage& device) { return !device.foreign.empty(); })) {
        appendPart(text, "; ",
                   "what follows a device's first endpoint, or has none, goes to the next");
    }
    return text;
}

std::string ReportedList::whyLeftOut(std::size_t position) const {
    const DeviceCoverage& device = coverage_.devices[position];
    if (!device.leftOut) {
        return {};
    }
    std::string lentTo;
    for (const std::size_t block : device.lentTo) {
        appendPart(lentTo, ", ", nameOf(block));
    }
    return textOf(*device.leftOut) +
           (lentTo.empty() ? "" : "; its fields stand in the block of " + lentTo);
}

std::string ReportedList::whyMixed(std::size_t position) const {
    std::string text;
    for (const devicelist::ForeignFields& foreign : coverage_.devices[position].foreign) {
        appendPart(text, "; ",
                   labelsOf(foreign.fields) + " of " +
                       (foreign.source ? nameOf(*foreign.source) : "no device of the list"));
    }
    return text.empty() ? text : "its block has " + text;
}

std::string ReportedList::message() const {
    std::string text = "the report holds " + std::to_string(coverage_.devicesInReport()) +
                       " of the " + std::to_string(list_.devices.size()) +
                       " devices of the list: " + reason();
    for (std::size_t position = 0; position < list_.devices.size(); ++position) {
        const std::string why =
            coverage_.devices[position].isInReport() ? whyMixed(position) : whyLeftOut(position);
        if (!why.empty()) {
            text += "\n    " + nameOf(position) + ": " + why;
        }
    }
    return text;
}

std::string ReportedList::textOf(LeftOut reason) const {
    switch (reason) {
        case LeftOut::noEndpoint:
            return "no endpoint";
        case LeftOut::beyondReadSize:
            return "beyond the first " + readSize() + " bytes";
        case LeftOut::afterZeroByte:
            return "after a zero byte";
        case LeftOut::unfinishedLine:
            return "the last line of the list has no line feed";
        case LeftOut::lastLine:
            return lastLine_ + " is not read";
    }
    return "";
}

std::string ReportedList::nameOf(std::size_t position) const {
    const devicelist::Device& device = list_.devices[position];
    std::string text =
        device.product ? '"' + withoutControls(*device.product) + '"' : "a device without name";
    const std::string id = idOf(device);
    text += id.empty() ? "" : " (" + id + ")";
    return text + (device.portPath.empty() ? "" : " at " + device.portPath);
}

}  // namespace usbhcdiag
