// SPDX-License-Identifier: MIT
#include "cli/DeviceTree.h"

#include <algorithm>
#include <map>
#include <optional>

#include "cli/DeviceTexts.h"
#include "cli/TerminalText.h"
#include "devicelist/HostControllers.h"

namespace usbhcdiag {
namespace {

class Tree {
public:
    Tree(const devicelist::DeviceList& list, const std::vector<std::string>& texts)
        : list_(list), texts_(texts), hubOf_(list.devices.size()), isShown_(list.devices.size()) {
        // A list can name a device twice: it is attached to the last one before it, as the list's reader
        // takes it, so that no device is below itself.
        std::map<std::string, std::size_t> byPath;
        for (std::size_t position = 0; position < list.devices.size(); ++position) {
            const std::string& path = list.devices[position].portPath;
            const auto hub = byPath.find(parentPath(path));
            if (hub != byPath.end() && !path.empty()) {
                hubOf_[position] = hub->second;
            }
            byPath[path] = position;
        }
    }

    void show(std::size_t position) {
        for (std::optional<std::size_t> next = position; next && !isShown_[*next];
             next = hubOf_[*next]) {
            isShown_[*next] = true;
        }
    }

    std::string draw() {
        std::vector<std::size_t> rootHubs;
        std::vector<std::size_t> others;
        children_.resize(list_.devices.size());
        for (std::size_t position = 0; position < list_.devices.size(); ++position) {
            if (!isShown_[position]) {
                continue;
            }
            if (hubOf_[position]) {
                children_[*hubOf_[position]].push_back(position);
            } else if (list_.devices[position].level == 0U) {
                rootHubs.push_back(position);
            } else {
                others.push_back(position);
            }
        }
        for (const auto& controller : devicelist::groupedByController(list_, rootHubs)) {
            text_ += withoutControls(controller.id) + "\n";
            drawAll(controller.rootHubs, "");
        }
        if (!others.empty()) {
            text_ += "at hubs that the list does not show\n";
            drawAll(others, "");
        }
        return std::move(text_);
    }

private:
    /// No deeper than the kernel's levels: the list's reader gives no deeper port paths.
    void drawAll(const std::vector<std::size_t>& positions, const std::string& indentation) {
        for (const std::size_t position : positions) {
            const bool isLast = position == positions.back();
            const std::string& path = list_.devices[position].portPath;
            text_ += indentation + (isLast ? "└─ " : "├─ ") +
                     withoutControls((path.empty() ? "?" : path) + "  " + texts_[position]) + "\n";
            drawAll(children_[position], indentation + (isLast ? "   " : "│  "));
        }
    }

    const devicelist::DeviceList& list_;
    const std::vector<std::string>& texts_;
    std::vector<std::optional<std::size_t>> hubOf_;
    std::vector<bool> isShown_;
    std::vector<std::vector<std::size_t>> children_;
    std::string text_;
};

}  // namespace

std::string treeOf(const devicelist::DeviceList& list, const std::vector<std::size_t>& wanted,
                   const std::vector<std::string>& texts) {
    Tree tree(list, texts);
    for (const std::size_t position : wanted) {
        tree.show(position);
    }
    return tree.draw();
}

}  // namespace usbhcdiag
