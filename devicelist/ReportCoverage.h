// SPDX-License-Identifier: MIT
// What the test's report holds of a device list.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "devicelist/DeviceList.h"

namespace devicelist {

/// How many bytes of a list the test reads.
constexpr std::size_t testReadSize = 8192;

/// Why the report has no block of a device. The test ends a device at the first endpoint after its
/// "T:" line, so all but the first say why it does not read that line.
enum class LeftOut {
    noEndpoint,      ///< the device has none
    beyondReadSize,  ///< the line ends beyond the first 8192 bytes
    afterZeroByte,   ///< the line ends after a zero byte, where the test stops
    unfinishedLine,  ///< the line is the last one and has no line feed
    /// The list begins with an empty line, for which the test leaves out the last line that it has
    /// read whole: this one.
    lastLine,
};

/// The fields of a block that come from one line of the list, or from one kind of "S:" line.
enum class BlockField {
    topology,      ///< "T:": port and speed
    descriptor,    ///< "D:": USB specification
    identifiers,   ///< "P:": vendor, product and revision
    manufacturer,  ///< "S:"
    product,       ///< "S:"
    serialNumber,  ///< "S:"
    power,         ///< "C:": maximum current draw
    interface,     ///< "I:": number, class, subclass, protocol and driver
};

/// Fields of a block that come from lines of another device.
struct ForeignFields {
    std::optional<std::size_t>
        source;                      ///< its position among the list's devices; none: no device's
    std::vector<BlockField> fields;  ///< in the order of BlockField

    bool operator==(const ForeignFields& other) const {
        return source == other.source && fields == other.fields;
    }
};

/// What became of one device of the list.
struct DeviceCoverage {
    std::optional<LeftOut> leftOut;      ///< none: the report has its block
    std::size_t block = 0;               ///< which of the report's, from 0, if it is there
    std::vector<ForeignFields> foreign;  ///< in its block; by source
    /// The devices in whose blocks fields of this one stand: their positions, ascending.
    std::vector<std::size_t> lentTo;

    bool isInReport() const { return !leftOut.has_value(); }
};

/// What became of the devices of a list. A plain value.
struct ReportCoverage {
    std::vector<DeviceCoverage> devices;  ///< for each of the list's, in its order
    /// How many blocks the report has. There are more than devices in it where lines that begin with
    /// "T" but with no "T:" are followed by endpoints.
    std::size_t blocks = 0;

    std::size_t devicesInReport() const;
};

/// What the test's report holds of the list `text`, whose content is `list`.
///
/// It is found from where the lines stand, by the rules that the test's reader keeps; that reader
/// itself is another program's and is not called. Any thread may call it.
ReportCoverage reportCoverage(std::string_view text, const DeviceList& list);

/// A word for programs: "no_endpoint".
std::string_view nameOf(LeftOut reason);

/// The same: "serial_number".
std::string_view nameOf(BlockField field);

}  // namespace devicelist
