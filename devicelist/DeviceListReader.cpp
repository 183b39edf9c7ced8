// SPDX-License-Identifier: MIT
#include "devicelist/DeviceListReader.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

#include "devicelist/RecordLines.h"

namespace devicelist {

namespace {

// No kernel prints more in a list of the greatest length: the block of a device has 180 bytes at
// least, a line 45 on average. They bound the memory that any other text takes.
constexpr std::size_t maximumDevices = std::size_t{1} << 17;
constexpr std::size_t maximumRecords = std::size_t{1} << 19;

constexpr std::size_t letterAndColon = 2;

bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

/// How many interfaces there are; their alternate settings follow each other.
std::size_t countInterfaces(const Configuration& configuration) {
    std::size_t count = 0;
    const Interface* previous = nullptr;
    for (const Interface& interface : configuration.interfaces) {
        count += previous == nullptr || previous->number != interface.number ? 1 : 0;
        previous = &interface;
    }
    return count;
}

/// Sees to one text. Each record line goes into the record begun last that takes its kind.
class ListReader {
public:
    explicit ListReader(std::string_view text) : text_(text) {}

    DeviceList read();

private:
    struct Line {
        std::string_view text;  ///< without its line end
        std::size_t number = 0;
        std::size_t offset = 0;

        bool is(char letter) const {
            return text.size() >= letterAndColon && text[0] == letter && text[1] == ':';
        }
        std::string_view content() const { return text.substr(letterAndColon); }
    };

    /// Successive lines of which no record was made.
    struct UnknownRun {
        std::size_t firstLine = 0;
        std::size_t count = 0;
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    /// What the reader must know of the device that it is reading, beside the record itself.
    struct Current {
        bool hasCrLf = false;
        bool hasDescriptor = false;
        bool hasProduct = false;
        std::size_t descriptorLine = 0;
        std::size_t configurationLine = 0;
        std::size_t interfaceLine = 0;
    };

    Device& device() { return list_.devices.back(); }
    bool isFull(const Line& line) const;
    bool readLine(const Line& line);
    void beginDevice(const Line& line);
    void beginConfiguration(const Line& line);
    void beginInterface(const Line& line);
    void addAssociation(const Line& line);
    void addEndpoint(const Line& line);
    bool readBandwidth(const Line& line);
    bool readDescriptor(const Line& line);
    bool readProduct(const Line& line);
    bool readString(const Line& line);
    bool readTruncation(const Line& line);

    Configuration& configurationFor(const Line& line);
    Interface& interfaceFor(const Line& line);
    void closeDevice();
    void closeConfiguration();
    void closeInterface();
    void closeUnknownRun();

    void locate();
    void observeSpeedColumn(std::string_view line);
    std::string_view withoutCr(std::string_view text) const;
    void complain(std::size_t line, Problem::Kind kind, std::string text);
    void complainOfDamage(const Line& line, const std::string& damage);
    void checkCount(std::size_t line, const char* label, std::optional<unsigned> announced,
                    std::size_t listed);

    std::string_view text_;
    DeviceList list_;
    std::size_t records_ = 0;
    bool isAfterEmptyLine_ = false;
    UnknownRun unknown_;
    Current current_;
    std::map<std::pair<unsigned, unsigned>, std::size_t> byBusAndNumber_;  ///< the last of a kind
};

DeviceList ListReader::read() {
    std::size_t number = 0;
    for (std::size_t next = 0; next < text_.size();) {
        const std::size_t offset = next;
        const auto end = std::min(text_.find('\n', offset), text_.size());
        next = std::min(end + 1, text_.size());
        const Line line = {text_.substr(offset, end - offset), ++number, offset};
        if (isBlank(line.text)) {
            isAfterEmptyLine_ = true;
            continue;
        }
        if (isFull(line)) {
            complain(number, Problem::Kind::tooManyRecords,
                     "no device list has more records; the rest is not read");
            closeUnknownRun();
            list_.unknownLines.push_back({number, std::string(text_.substr(offset))});
            break;
        }
        if (readLine(line)) {
            ++records_;
            closeUnknownRun();
        } else {
            if (unknown_.count == 0) {
                unknown_ = {number, 0, offset, next};
            }
            ++unknown_.count;
            unknown_.end = next;
        }
        isAfterEmptyLine_ = false;
    }
    closeUnknownRun();
    closeDevice();
    std::stable_sort(list_.problems.begin(), list_.problems.end(),
                     [](const Problem& a, const Problem& b) { return a.line < b.line; });
    return std::move(list_);
}

bool ListReader::isFull(const Line& line) const {
    return records_ == maximumRecords || (line.is('T') && list_.devices.size() == maximumDevices);
}

/// Whether the line became a record or part of one.
bool ListReader::readLine(const Line& line) {
    if (line.is('T')) {
        beginDevice(line);
        return true;
    }
    if (list_.devices.empty()) {
        return false;
    }
    if (line.is('B')) {
        return readBandwidth(line);
    }
    if (line.is('D')) {
        return readDescriptor(line);
    }
    if (line.is('P')) {
        return readProduct(line);
    }
    if (line.is('S')) {
        return readString(line);
    }
    if (line.is('C')) {
        beginConfiguration(line);
        return true;
    }
    if (line.is('A')) {
        addAssociation(line);
        return true;
    }
    if (line.is('I')) {
        beginInterface(line);
        return true;
    }
    if (line.is('E')) {
        addEndpoint(line);
        return true;
    }
    return readTruncation(line);
}

void ListReader::beginDevice(const Line& line) {
    closeDevice();
    ListForm& form = list_.form;
    (list_.devices.empty() ? form.emptyLineFirst : form.emptyLineBetweenDevices) =
        isAfterEmptyLine_;
    list_.devices.emplace_back();
    device().line = line.number;
    device().offset = line.offset;
    current_ = {};
    // No string is read before this line, which no device can end in a carriage return.
    current_.hasCrLf = line.text.back() == '\r';
    complainOfDamage(line, readTopologyLine(line.content(), device()).damage);
    observeSpeedColumn(line.text);
    locate();
}

void ListReader::beginConfiguration(const Line& line) {
    closeConfiguration();
    current_.configurationLine = line.number;
    Configuration& begun = device().configurations.emplace_back();
    complainOfDamage(line, readConfigurationLine(line.content(), begun).damage);
}

void ListReader::beginInterface(const Line& line) {
    closeInterface();
    current_.interfaceLine = line.number;
    Interface& begun = configurationFor(line).interfaces.emplace_back();
    complainOfDamage(line, readInterfaceLine(withoutCr(line.content()), begun).damage);
}

void ListReader::addAssociation(const Line& line) {
    Association& added = configurationFor(line).associations.emplace_back();
    complainOfDamage(line, readAssociationLine(line.content(), added).damage);
}

void ListReader::addEndpoint(const Line& line) {
    Endpoint& added = interfaceFor(line).endpoints.emplace_back();
    complainOfDamage(line, readEndpointLine(line.content(), added).damage);
    if (line.text.find("Ivl= ") != std::string_view::npos) {
        list_.form.paddedInterval = true;
    }
}

bool ListReader::readBandwidth(const Line& line) {
    Bandwidth bandwidth;
    const LineResult result = readBandwidthLine(line.content(), bandwidth);
    if (device().bandwidth.has_value() || !result.anyRead) {
        return false;
    }
    device().bandwidth = bandwidth;
    complainOfDamage(line, result.damage);
    return true;
}

bool ListReader::readDescriptor(const Line& line) {
    if (current_.hasDescriptor) {
        return false;
    }
    const LineResult result = readDescriptorLine(line.content(), device());
    if (result.anyRead) {
        current_.hasDescriptor = true;
        current_.descriptorLine = line.number;
        complainOfDamage(line, result.damage);
    }
    return result.anyRead;
}

bool ListReader::readProduct(const Line& line) {
    if (current_.hasProduct) {
        return false;
    }
    const LineResult result = readProductLine(line.content(), device());
    if (result.anyRead) {
        current_.hasProduct = true;
        complainOfDamage(line, result.damage);
    }
    return result.anyRead;
}

bool ListReader::readString(const Line& line) {
    std::string_view text = withoutCr(line.content());
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const auto readInto = [text](std::string_view label, std::optional<std::string>& field) {
        if (text.substr(0, label.size()) != label || field.has_value()) {
            return false;
        }
        field = text.substr(label.size());
        return true;
    };
    return readInto("Manufacturer=", device().manufacturer) ||
           readInto("Product=", device().product) ||
           readInto("SerialNumber=", device().serialNumber);
}

bool ListReader::readTruncation(const Line& line) {
    constexpr std::string_view mark = "(truncated)";
    if (withoutCr(line.text) != mark || device().truncated) {
        return false;
    }
    device().truncated = true;
    complain(line.number, Problem::Kind::truncated, "the kernel left out the rest of the device");
    return true;
}

/// The configuration that the line belongs to.
Configuration& ListReader::configurationFor(const Line& line) {
    if (device().configurations.empty()) {
        complain(line.number, Problem::Kind::missingLine, "there is no \"C:\" line before it");
        device().configurations.emplace_back().listed = false;
    }
    return device().configurations.back();
}

/// The interface that the line belongs to.
Interface& ListReader::interfaceFor(const Line& line) {
    Configuration& configuration = configurationFor(line);
    if (configuration.interfaces.empty()) {
        complain(line.number, Problem::Kind::missingLine, "there is no \"I:\" line before it");
        configuration.interfaces.emplace_back().listed = false;
    }
    return configuration.interfaces.back();
}

void ListReader::closeDevice() {
    if (!list_.devices.empty()) {
        closeConfiguration();
        checkCount(current_.descriptorLine, "#Cfgs=", device().configurationCount,
                   device().configurations.size());
    }
}

void ListReader::closeConfiguration() {
    if (!device().configurations.empty()) {
        closeInterface();
        const Configuration& closed = device().configurations.back();
        checkCount(current_.configurationLine, "#Ifs=", closed.interfaceCount,
                   countInterfaces(closed));
    }
}

void ListReader::closeInterface() {
    if (!device().configurations.empty() && !device().configurations.back().interfaces.empty()) {
        const Interface& closed = device().configurations.back().interfaces.back();
        checkCount(current_.interfaceLine, "#EPs=", closed.endpointCount, closed.endpoints.size());
    }
}

void ListReader::closeUnknownRun() {
    if (unknown_.count == 0) {
        return;
    }
    list_.unknownLines.push_back(
        {unknown_.firstLine,
         std::string(text_.substr(unknown_.begin, unknown_.end - unknown_.begin))});
    complain(unknown_.firstLine, Problem::Kind::unknownLines,
             "nothing that a device list has there" +
                 (unknown_.count == 1 ? std::string()
                                      : ", in " + std::to_string(unknown_.count) + " lines"));
    unknown_ = {};
}

/// Finds out where the device is attached, as far as the list tells it.
void ListReader::locate() {
    Device& located = device();
    if (!located.bus || !located.level) {
        return;
    }
    if (*located.level == 0) {
        located.portPath = "usb" + std::to_string(*located.bus);
    } else if (located.parentNumber && located.port) {
        const auto found = byBusAndNumber_.find({*located.bus, *located.parentNumber});
        const Device* parent =
            found == byBusAndNumber_.end() ? nullptr : &list_.devices[found->second];
        if (parent != nullptr && parent->level != *located.level - 1) {
            parent = nullptr;
        }
        if (parent == nullptr) {
            complain(located.line, Problem::Kind::unknownParent,
                     "device " + std::to_string(*located.parentNumber) + " of bus " +
                         std::to_string(*located.bus) + " at level " +
                         std::to_string(*located.level - 1) +
                         ", which it is attached to, is not listed before it");
        }
        const std::string portNumber = std::to_string(std::size_t{*located.port} + 1);
        if (*located.level == 1) {
            located.portPath = std::to_string(*located.bus) + "-" + portNumber;
        } else if (parent != nullptr && !parent->portPath.empty() &&
                   *located.level <= deepestLevel) {
            located.portPath = parent->portPath + "." + portNumber;
        }
    }
    if (located.number) {
        byBusAndNumber_[{*located.bus, *located.number}] = list_.devices.size() - 1;
    }
}

/// The width of the column of the speed tells an old kernel, if the speed does not fill it.
void ListReader::observeSpeedColumn(std::string_view line) {
    constexpr std::string_view label = "Spd=";
    constexpr std::size_t narrow = 3;
    const auto begin = line.find(label);
    const auto end = line.find(" MxCh=");
    if (begin == std::string_view::npos || end == std::string_view::npos || end < begin) {
        return;
    }
    const auto column = line.substr(begin + label.size(), end - begin - label.size());
    if (column.find_last_not_of(' ') + 1 <= narrow) {
        list_.form.narrowSpeed = column.size() == narrow;
    }
}

/// Takes off the carriage return that belongs to the line end.
std::string_view ListReader::withoutCr(std::string_view text) const {
    if (current_.hasCrLf && !text.empty() && text.back() == '\r') {
        text.remove_suffix(1);
    }
    return text;
}

void ListReader::complain(std::size_t line, Problem::Kind kind, std::string text) {
    list_.problems.push_back({line, kind, std::move(text)});
}

void ListReader::complainOfDamage(const Line& line, const std::string& damage) {
    if (!damage.empty()) {
        complain(line.number, Problem::Kind::damagedLine, damage);
    }
}

void ListReader::checkCount(std::size_t line, const char* label, std::optional<unsigned> announced,
                            std::size_t listed) {
    if (announced && *announced != listed && !device().truncated) {
        complain(line, Problem::Kind::wrongCount,
                 "\"" + std::string(label) + "\" announces " + std::to_string(*announced) +
                     ", but " + std::to_string(listed) + " follow");
    }
}

}  // namespace

DeviceList readDeviceList(std::string_view text) {
    if (text.size() > maximumListSize) {
        throw std::length_error("the device list is longer than 16 MiB");
    }
    return ListReader(text).read();
}

}  // namespace devicelist
