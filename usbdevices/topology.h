// SPDX-License-Identifier: MIT
// The record of a 'T:' line.
// A plain value: one thread at a time, unless it is only read.
#pragma once

#include <string>

/// The record of a 'T:' line: the position of a device in the tree of its bus.
/// A value is the unchanged text of the line, with its blanks. It is empty if the line does not
/// have it or if its end marker is missing.
class topology {
public:
    /// Sets all fields from `line`, one line of the device list without its line end. Fields that
    /// the line does not have become empty. Never fails.
    void Initialize(std::string line);

    /// The bus number.
    std::string getBus() const { return bus_; }
    /// The level in the tree; 0 for a root hub.
    std::string getLevel() const { return level_; }
    /// The device number of the parent.
    std::string getParentDevice() const { return parentDevice_; }
    /// The port on the parent.
    std::string getPort() const { return port_; }
    /// The count of devices at this level, the line's 'Cnt=' item.
    std::string getDeviceLevelNum() const { return deviceLevelNum_; }
    /// The device number on the bus, the line's 'Dev#=' item.
    std::string getDeviceBusNumber() const { return deviceBusNumber_; }
    /// The speed in Mbit/s.
    std::string getSpeed() const { return speed_; }
    /// The number of downstream connections, the line's 'MxCh=' item.
    std::string getConnections() const { return connections_; }

private:
    std::string bus_;
    std::string level_;
    std::string parentDevice_;
    std::string port_;
    std::string deviceLevelNum_;
    std::string deviceBusNumber_;
    std::string speed_;
    std::string connections_;
};
