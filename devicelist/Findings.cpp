// SPDX-License-Identifier: MIT
#include "devicelist/Findings.h"

#include <array>
#include <set>

namespace devicelist {

namespace {

constexpr std::uint16_t usb3 = 0x0300;
constexpr double highSpeed = 480;
constexpr int busyPercent = 80;

/// The numbers of the interfaces that no driver took, in the list's order, each once.
std::vector<std::optional<unsigned>> unclaimedInterfaces(const Configuration& configuration) {
    std::vector<std::optional<unsigned>> numbers;
    std::set<std::optional<unsigned>> known;
    for (const Interface& interface : configuration.interfaces) {
        if (interface.driver == noDriver && known.insert(interface.number).second) {
            numbers.push_back(interface.number);
        }
    }
    return numbers;
}

class Finder {
public:
    explicit Finder(const DeviceList& list) : list_(list) {}

    std::vector<Finding> find() {
        auto problem = list_.problems.begin();
        const auto takeProblems = [&](std::size_t end, std::optional<std::size_t> device) {
            for (; problem != list_.problems.end() && problem->line < end; ++problem) {
                found_.push_back({Finding::Kind::damagedList, device, problem->line,
                                  "line " + std::to_string(problem->line) + ": " + problem->text});
            }
        };
        for (std::size_t position = 0; position < list_.devices.size(); ++position) {
            takeProblems(list_.devices[position].line,
                         position == 0 ? std::nullopt : std::optional(position - 1));
            examine(position);
        }
        takeProblems(static_cast<std::size_t>(-1), list_.devices.empty()
                                                       ? std::nullopt
                                                       : std::optional(list_.devices.size() - 1));
        return std::move(found_);
    }

private:
    void examine(std::size_t position) {
        const Device& device = list_.devices[position];
        const auto add = [&](Finding::Kind kind, std::string fact) {
            found_.push_back({kind, position, {}, std::move(fact)});
        };
        if (device.level != 0U && device.usbVersion && *device.usbVersion >= usb3 && device.speed &&
            *device.speed <= highSpeed) {
            add(Finding::Kind::slow, "a device of USB 3 or later is at 480 Mb/s or less");
        }
        const Configuration* active = device.activeConfiguration();
        if (!device.isConfigured().value_or(true)) {
            add(Finding::Kind::unconfigured, "no configuration is active");
        }
        if (active != nullptr) {
            for (const auto& number : unclaimedInterfaces(*active)) {
                add(Finding::Kind::unclaimed,
                    "interface " + (number ? std::to_string(*number) : "?") + " has no driver");
            }
        }
        if (device.bandwidth && device.bandwidth->percent.value_or(0) > busyPercent) {
            add(Finding::Kind::bandwidth, "periodic transfers take " +
                                              std::to_string(*device.bandwidth->percent) +
                                              " % of the bus");
        }
    }

    const DeviceList& list_;
    std::vector<Finding> found_;
};

}  // namespace

std::vector<Finding> findingsOf(const DeviceList& list) {
    return Finder(list).find();
}

std::string_view nameOf(Finding::Kind kind) {
    constexpr std::array<std::string_view, 5> names = {"slow", "unclaimed", "unconfigured",
                                                       "bandwidth", "damaged_list"};
    return names.at(static_cast<std::size_t>(kind));
}

}  // namespace devicelist
