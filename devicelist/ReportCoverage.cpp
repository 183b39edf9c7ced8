// SPDX-License-Identifier: MIT
#include "devicelist/ReportCoverage.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace devicelist {

namespace {

constexpr std::size_t fieldCount = 8;

/// A line by its first byte and that of its line feed; npos if it has none.
struct Line {
    std::size_t begin;
    std::size_t end;
};

/// How far the test reads a list.
class ReadPart {
public:
    explicit ReadPart(std::string_view text)
        : end_(std::min({text.find('\0'), testReadSize, text.size()})),
          isCutAtZero_(end_ < std::min(testReadSize, text.size())),
          isCut_(end_ < text.size()) {
        const std::string_view read = text.substr(0, end_);
        lines_ = read.rfind('\n') + 1;
        if (!read.empty() && read.front() == '\n') {
            // As many lines as there are line feeds after the first byte; the first line is that byte.
            lines_ = lines_ == 1 ? 0 : read.rfind('\n', lines_ - 2) + 1;
        }
    }

    bool includes(const Line& line) const { return line.begin < lines_; }

    /// Why a line is not read.
    LeftOut reasonAgainst(const Line& line) const {
        if (line.end < end_) {
            return LeftOut::lastLine;
        }
        if (isCut_) {
            return isCutAtZero_ ? LeftOut::afterZeroByte : LeftOut::beyondReadSize;
        }
        return LeftOut::unfinishedLine;
    }

private:
    std::size_t end_;        ///< of what is read
    std::size_t lines_ = 0;  ///< end of the lines that are looked at
    bool isCutAtZero_;
    bool isCut_;
};

/// Whose lines the fields of the block that is being filled come from; no field without a line.
class Sources {
public:
    using Source = std::optional<std::size_t>;

    void set(BlockField field, Source source) {
        fields_[static_cast<std::size_t>(field)] = {true, source};
    }

    /// Takes notice of a line other than an endpoint's.
    void take(char letter, std::string_view line, Source source) {
        const auto setIfNamed = [&](const char* word, BlockField field) {
            if (line.find(word) != std::string_view::npos) {
                set(field, source);
            }
        };
        switch (letter) {
            case 'T':
                return set(BlockField::topology, source);
            case 'D':
                return set(BlockField::descriptor, source);
            case 'P':
                return set(BlockField::identifiers, source);
            case 'C':
                return set(BlockField::power, source);
            case 'I':
                return set(BlockField::interface, source);
            case 'S':
                setIfNamed("Product", BlockField::product);
                setIfNamed("SerialNumber", BlockField::serialNumber);
                setIfNamed("Manufacturer", BlockField::manufacturer);
                return;
            default:
                return;
        }
    }

    /// The fields that come from others than `owner`, by their source.
    std::vector<ForeignFields> foreignTo(std::size_t owner) const {
        std::map<Source, std::vector<BlockField>> bySource;
        for (std::size_t field = 0; field < fieldCount; ++field) {
            if (fields_[field].isSet && fields_[field].source != owner) {
                bySource[fields_[field].source].push_back(static_cast<BlockField>(field));
            }
        }
        std::vector<ForeignFields> foreign;
        foreign.reserve(bySource.size());
        for (auto& [source, fields] : bySource) {
            foreign.push_back({source, std::move(fields)});
        }
        return foreign;
    }

private:
    struct Field {
        bool isSet = false;
        Source source;
    };
    std::array<Field, fieldCount> fields_;
};

/// Sees to one list.
class CoverageFinder {
public:
    CoverageFinder(std::string_view text, const DeviceList& list)
        : text_(text), list_(list), read_(text) {
        // Until an endpoint is seen, there is none.
        coverage_.devices.resize(list.devices.size());
        for (DeviceCoverage& device : coverage_.devices) {
            device.leftOut = LeftOut::noEndpoint;
        }
        endpointSeen_.resize(list.devices.size());
    }

    ReportCoverage find() {
        for (std::size_t begin = 0; begin < text_.size();) {
            const std::size_t end = text_.find('\n', begin);
            takeLine({begin, end});
            begin = end == std::string_view::npos ? text_.size() : end + 1;
        }
        for (std::size_t position = 0; position < coverage_.devices.size(); ++position) {
            for (const ForeignFields& foreign : coverage_.devices[position].foreign) {
                if (foreign.source) {
                    coverage_.devices[*foreign.source].lentTo.push_back(position);
                }
            }
        }
        return std::move(coverage_);
    }

private:
    void takeLine(const Line& line) {
        if (next_ < list_.devices.size() && list_.devices[next_].offset == line.begin) {
            owner_ = next_++;
        }
        const char letter = text_[line.begin];
        if (letter == 'E') {
            takeEndpoint(line);
        } else if (read_.includes(line)) {
            topologySeen_ = topologySeen_ || letter == 'T';
            sources_.take(letter, text_.substr(line.begin, line.end - line.begin), owner_);
        }
    }

    void takeEndpoint(const Line& line) {
        const bool isRead = read_.includes(line);
        // Only the first decides on its device.
        if (owner_ && !endpointSeen_[*owner_]) {
            endpointSeen_[*owner_] = true;
            DeviceCoverage& device = coverage_.devices[*owner_];
            if (isRead) {
                device.leftOut.reset();
                device.block = coverage_.blocks;
                device.foreign = sources_.foreignTo(*owner_);
            } else {
                device.leftOut = read_.reasonAgainst(line);
            }
        }
        if (isRead && topologySeen_) {
            ++coverage_.blocks;
            sources_ = {};
            topologySeen_ = false;
        }
    }

    std::string_view text_;
    const DeviceList& list_;
    ReadPart read_;
    ReportCoverage coverage_;
    std::vector<bool> endpointSeen_;
    std::size_t next_ = 0;              ///< the device that has not begun yet
    std::optional<std::size_t> owner_;  ///< the device whose lines these are
    Sources sources_;
    bool topologySeen_ = false;
};

}  // namespace

std::size_t ReportCoverage::devicesInReport() const {
    return static_cast<std::size_t>(
        std::count_if(devices.begin(), devices.end(),
                      [](const DeviceCoverage& device) { return device.isInReport(); }));
}

ReportCoverage reportCoverage(std::string_view text, const DeviceList& list) {
    return CoverageFinder(text, list).find();
}

std::string_view nameOf(LeftOut reason) {
    constexpr std::array<std::string_view, 5> names = {
        "no_endpoint", "beyond_read_size", "after_zero_byte", "unfinished_line", "last_line"};
    return names.at(static_cast<std::size_t>(reason));
}

std::string_view nameOf(BlockField field) {
    constexpr std::array<std::string_view, fieldCount> names = {
        "topology", "descriptor",    "identifiers", "manufacturer",
        "product",  "serial_number", "power",       "interface"};
    return names.at(static_cast<std::size_t>(field));
}

}  // namespace devicelist
