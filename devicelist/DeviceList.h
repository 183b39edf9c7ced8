// SPDX-License-Identifier: MIT
// A whole device list, with what is wrong with it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "devicelist/Device.h"

namespace devicelist {

/// The length in bytes of the longest list that is read.
constexpr std::size_t maximumListSize = std::size_t{16} << 20;

/// The deepest level that a kernel prints: hubs below hubs have an end. It also bounds the length of a port path.
constexpr unsigned deepestLevel = 6;

/// Something that no kernel prints, or that contradicts the rest of the list.
struct Problem {
    enum class Kind {
        unknownLines,    ///< lines of no known form, or at a place where nothing takes them
        damagedLine,     ///< fields that are missing or cannot be read; the others are
        missingLine,     ///< what belongs to a record is there, its own line before it is not
        wrongCount,      ///< fewer or more lines than announced
        unknownParent,   ///< the hub that a device is attached to is not listed before it
        truncated,       ///< the kernel had no room for all of a device
        tooManyRecords,  ///< more than a list of the greatest length has: the rest is not read
    };

    std::size_t line = 0;  ///< its number, from 1
    Kind kind = Kind::unknownLines;
    std::string text;  ///< for people, one line; holds nothing of the list's own text
};

/// Successive lines of which no record is made, as they stand, with their line ends. Empty lines
/// are kept between others only.
struct UnknownLines {
    std::size_t firstLine = 0;  ///< its number, from 1
    std::string text;
};

/// What differs between kernels that print the same facts.
struct ListForm {
    bool emptyLineFirst = true;           ///< since Linux 2.5
    bool emptyLineBetweenDevices = true;  ///< since Linux 2.5
    bool narrowSpeed = false;     ///< old: "Spd=12  MxCh= 2"; now a column more, "Spd=12   MxCh= 2"
    bool paddedInterval = false;  ///< old: "Ivl= 10ms"; now "Ivl=10ms"
};

/// The content of a list. A plain value.
struct DeviceList {
    std::vector<Device> devices;             ///< in the list's order
    ListForm form;                           ///< today's where the list does not show another
    std::vector<UnknownLines> unknownLines;  ///< in the list's order
    std::vector<Problem> problems;           ///< by line
};

}  // namespace devicelist
