// SPDX-License-Identifier: MIT
#include "cli/ReportMatch.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

namespace usbhcdiag {
namespace {

// Product, serial number, vendor, the two IDs and the revision stand in a block as in the list.
constexpr std::size_t copiedLines = 6;
constexpr std::size_t labelWidth = 30;
constexpr std::string_view endOfBlock = "          ";

/// What is the same in the list's bytes and in the report's text, which are encoded differently.
std::string comparable(std::string_view text) {
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](char c) { return c > ' ' && c < '\x7F'; });
    return kept;
}

std::vector<std::vector<std::string>> copiedValues(const std::vector<std::string>& report) {
    std::vector<std::vector<std::string>> blocks;
    std::vector<std::string> values;
    for (const std::string& line : report) {
        if (line == endOfBlock) {
            blocks.push_back(std::move(values));
            values.clear();
        } else if (values.size() < copiedLines) {
            values.push_back(comparable(line.substr(std::min(labelWidth, line.size()))));
        }
    }
    return blocks;
}

/// The lines of a device; without a position, those before the first.
std::string linesOf(std::optional<std::size_t> position, const std::string& text,
                    const devicelist::DeviceList& list) {
    const std::size_t next = position ? *position + 1 : 0;
    const std::size_t begin = position ? list.devices[*position].offset : 0;
    const std::size_t end = next < list.devices.size() ? list.devices[next].offset : text.size();
    return comparable(std::string_view(text).substr(begin, end - begin));
}

}  // namespace

bool isReportOf(const std::vector<std::string>& report, const std::string& text,
                const ReportedList& reported) {
    const devicelist::ReportCoverage& coverage = reported.coverage();
    const auto blocks = copiedValues(report);
    if (blocks.size() != coverage.blocks) {
        return false;
    }
    for (std::size_t position = 0; position < coverage.devices.size(); ++position) {
        const devicelist::DeviceCoverage& device = coverage.devices[position];
        if (!device.isInReport()) {
            continue;
        }
        std::string lines = linesOf(position, text, reported.list());
        for (const devicelist::ForeignFields& foreign : device.foreign) {
            lines += '\n' + linesOf(foreign.source, text, reported.list());
        }
        const auto isThere = [&lines](const std::string& value) {
            return lines.find(value) != std::string::npos;
        };
        const std::vector<std::string>& values = blocks[device.block];
        if (!std::all_of(values.begin(), values.end(), isThere)) {
            return false;
        }
    }
    return true;
}

}  // namespace usbhcdiag
