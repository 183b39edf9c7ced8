// SPDX-License-Identifier: MIT
// What is wrong with the devices of a list, as far as a list tells.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devicelist/DeviceList.h"

namespace devicelist {

/// Something that a person should look at.
struct Finding {
    enum class Kind {
        slow,          ///< a device of USB 3 or later at 480 Mb/s or less
        unclaimed,     ///< an interface of a configured device that no driver has taken
        unconfigured,  ///< a device without active configuration
        bandwidth,     ///< a bus whose periodic transfers take more than 80 % of what they may
        damagedList,   ///< a line that no kernel prints, or that contradicts the rest of the list
    };

    Kind kind = Kind::slow;
    std::optional<std::size_t> device;  ///< its position in the list; none: of no device
    std::optional<std::size_t> line;    ///< of damagedList: its number, from 1
    std::string fact;  ///< for people, one line; holds nothing of the list's own text
};

/// All there is to find, by device; what is of no device comes first. Any thread may call it.
std::vector<Finding> findingsOf(const DeviceList& list);

/// The name of a kind for programs: "slow", "damaged_list".
std::string_view nameOf(Finding::Kind kind);

}  // namespace devicelist
