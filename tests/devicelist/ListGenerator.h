// SPDX-License-Identifier: MIT
// Device lists of machines that nobody has, printed with the formats of the kernel.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace devicelist {

/// In what the lists of kernels differ.
struct KernelForm {
    const char* name;
    bool hasEmptyLines;
    bool hasWideSpeed;
    bool marksInterfaces;
    bool hasPaddedInterval;
    bool hasDrivers;
};

inline const std::vector<KernelForm>& kernelForms() {
    static const std::vector<KernelForm> forms = {
        {"2.2", false, false, false, true, false},    {"2.4", false, false, false, true, true},
        {"2.4.19", false, false, false, false, true}, {"2.6.12", true, false, false, false, true},
        {"2.6.24", true, false, true, false, true},   {"6.1", true, true, true, false, true},
    };
    return forms;
}

/// Makes one list; the same seed makes the same list everywhere.
class ListGenerator {
public:
    ListGenerator(std::uint32_t seed, const KernelForm& form) : random_(seed), form_(form) {
        const unsigned buses = below(4);
        for (unsigned bus = 1; bus <= buses; ++bus) {
            lastNumber_ = 0;
            addDevice({bus, 0, 0, 0, 0}, "usb" + std::to_string(bus));
        }
    }

    const std::string& text() const { return text_; }
    /// What the devices are called in sysfs, in the list's order.
    const std::vector<std::string>& portPaths() const { return portPaths_; }

private:
    struct Place {
        unsigned bus;
        unsigned level;
        unsigned parent;
        unsigned port;
        unsigned count;
    };

    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    unsigned byte() { return below(256); }
    bool chance(unsigned percent) { return below(100) < percent; }

    template <typename... Values>
    void print(const char* format, Values... values);
    std::string bytes();
    std::string className();
    void addDevice(const Place& place, const std::string& path);
    void addTopology(const Place& place, unsigned number, unsigned ports);
    void addString(const char* label);
    void addConfiguration(unsigned value, bool isActive);
    void addInterface(unsigned number, unsigned alternate, bool isInUse);
    void addEndpoint();

    std::mt19937 random_;
    KernelForm form_;
    unsigned lastNumber_ = 0;
    std::string text_;
    std::vector<std::string> portPaths_;
};

template <typename... Values>
void ListGenerator::print(const char* format, Values... values) {
    char line[512];
    const int length = std::snprintf(line, sizeof line, format, values...);
    text_.append(line, static_cast<std::size_t>(length));
}

/// What a device may give as a string: anything but the end of it or of the line.
inline std::string ListGenerator::bytes() {
    std::string text(below(101), ' ');
    for (char& character : text) {
        const unsigned value = chance(90) ? 32 + below(95) : 1 + below(255);
        character = value == '\n' ? ' ' : static_cast<char>(value);
    }
    return text;
}

inline std::string ListGenerator::className() {
    const char* const names[] = {">ifc",  "audio", "comm.", "HID",   "hub",   "PID",  "print",
                                 "stor.", "data",  "app.",  "vend.", "c-sec", "unk.", "wlcon"};
    return names[below(14)];
}

inline void ListGenerator::addDevice(const Place& place, const std::string& path) {
    const unsigned number = ++lastNumber_;
    const unsigned ports = place.level == 6 || (place.level > 0 && chance(70)) ? 0 : 1 + below(31);
    portPaths_.push_back(path);
    addTopology(place, number, ports);
    const unsigned configurations = chance(5) ? 0 : 1 + below(3);
    print("D:  Ver=%2x.%02x Cls=%02x(%-5s) Sub=%02x Prot=%02x MxPS=%2d #Cfgs=%3d\n", byte(), byte(),
          byte(), className().c_str(), byte(), byte(), byte(), configurations);
    print("P:  Vendor=%04x ProdID=%04x Rev=%2x.%02x\n", below(65536), below(65536), byte(), byte());
    addString("Manufacturer");
    addString("Product");
    addString("SerialNumber");
    const unsigned active = below(4);
    for (unsigned index = 0; index < configurations; ++index) {
        addConfiguration(chance(90) ? index + 1 : byte(), index == active);
    }
    unsigned count = 0;
    for (unsigned port = 0; port < ports; ++port) {
        if (chance(10) && lastNumber_ < 127) {
            const std::string childPath =
                place.level == 0 ? std::to_string(place.bus) + "-" : path + ".";
            addDevice({place.bus, place.level + 1, number, port, ++count},
                      childPath + std::to_string(port + 1));
        }
    }
}

inline void ListGenerator::addTopology(const Place& place, unsigned number, unsigned ports) {
    const char* const narrow[] = {"1.5", "12 ", "480", "?? ", "5000"};
    const char* const wide[] = {"1.5", "12", "480", "??", "5000", "10000"};
    text_ += form_.hasEmptyLines ? "\n" : "";
    print("T:  Bus=%2.2d Lev=%2.2d Prnt=%2.2d Port=%2.2d Cnt=%2.2d Dev#=%3d ", place.bus,
          place.level, place.parent, place.port, place.count, number);
    if (form_.hasWideSpeed) {
        // The first tells of the column's width.
        print("Spd=%-4s ", portPaths_.size() == 1 ? "480" : wide[below(6)]);
    } else {
        print("Spd=%3s ", narrow[below(5)]);
    }
    print("MxCh=%2d\n", ports);
    if (place.level == 0) {
        const int most = chance(50) ? 800 : 900;
        const int taken = static_cast<int>(below(1200)) - 100;
        print("B:  Alloc=%3d/%3d us (%2d%%), #Int=%3d, #Iso=%3d\n", taken, most,
              (100 * taken + most / 2) / most, below(300), static_cast<int>(below(20)) - 2);
    }
}

inline void ListGenerator::addString(const char* label) {
    if (chance(70)) {
        text_.append("S:  ").append(label).append("=").append(bytes()).append("\n");
    }
}

inline void ListGenerator::addConfiguration(unsigned value, bool isActive) {
    const unsigned interfaces = below(5);
    print("C:%c #Ifs=%2d Cfg#=%2d Atr=%02x MxPwr=%3dmA\n", isActive ? '*' : ' ', interfaces, value,
          byte(), 2 * byte());
    if (form_.marksInterfaces && interfaces > 1 && chance(30)) {
        print("A:  FirstIf#=%2d IfCount=%2d Cls=%02x(%-5s) Sub=%02x Prot=%02x\n", 0, interfaces,
              byte(), className().c_str(), byte(), byte());
    }
    for (unsigned number = 0; number < interfaces; ++number) {
        const unsigned settings = 1 + below(3);
        for (unsigned alternate = 0; alternate < settings; ++alternate) {
            addInterface(number, alternate, isActive && alternate == 0);
        }
    }
}

inline void ListGenerator::addInterface(unsigned number, unsigned alternate, bool isInUse) {
    const unsigned endpoints = below(4);
    print("I:%c If#=%2d Alt=%2d #EPs=%2d Cls=%02x(%-5s) Sub=%02x Prot=%02x",
          form_.marksInterfaces && isInUse ? '*' : ' ', number, alternate, endpoints, byte(),
          className().c_str(), byte(), byte());
    if (form_.hasDrivers) {
        const char* const drivers[] = {"(none)",      "",     "hub", "Philips webcam",
                                       "usb-storage", "usbfs"};
        print(" Driver=%s", drivers[below(6)]);
    }
    text_ += "\n";
    for (unsigned endpoint = 0; endpoint < endpoints; ++endpoint) {
        addEndpoint();
    }
}

inline void ListGenerator::addEndpoint() {
    const char* const types[] = {"Ctrl", "Isoc", "Bulk", "Int."};
    const unsigned address = byte();
    const unsigned attributes = byte();
    const unsigned type = attributes % 4;
    print("E:  Ad=%02x(%c) Atr=%02x(%-4s) MxPS=%4d ", address,
          type == 0 ? 'B' : (address >= 128 ? 'I' : 'O'), attributes, types[type], below(4096));
    if (form_.hasPaddedInterval) {
        print("Ivl=%3dms\n", byte());
    } else if (chance(20)) {
        print("Ivl=%dus\n", 125 * (1 + 2 * below(4)));
    } else {
        print("Ivl=%dms\n", below(4096));
    }
}

}  // namespace devicelist
