// SPDX-License-Identifier: MIT
// Controllers, hubs and devices, drawn as a tree.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "devicelist/DeviceList.h"

namespace usbhcdiag {

/// The devices at `wanted` (ascending positions) of the list below the hubs that lead to them and their
/// host controllers, a line for each; `texts` has what stands after each device's port path, for every
/// device of the list. Devices whose hub is not in the list stand below a line that says so. Control
/// characters are replaced. Any thread may call it.
std::string treeOf(const devicelist::DeviceList& list, const std::vector<std::size_t>& wanted,
                   const std::vector<std::string>& texts);

}  // namespace usbhcdiag
