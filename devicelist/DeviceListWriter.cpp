// SPDX-License-Identifier: MIT
#include "devicelist/DeviceListWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "devicelist/RecordLines.h"

namespace devicelist {

namespace {

std::string padded(std::string_view text, std::size_t width, char padding) {
    std::string result(width - std::min(width, text.size()), padding);
    return result.append(text);
}

std::string hexadecimal(unsigned number, std::size_t width, char padding = '0') {
    std::array<char, 8> digits{};
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return padded({digits.data(), static_cast<std::size_t>(end - digits.data())}, width, padding);
}

template <typename Integer>
std::string decimal(Integer number, std::size_t width, char padding = ' ') {
    return padded(std::to_string(number), width, padding);
}

std::string bracketed(std::string_view text, std::size_t width) {
    std::string result = "(";
    result.append(text).append(width - std::min(width, text.size()), ' ');
    return result += ')';
}

std::string speedText(std::optional<double> speed) {
    if (!speed) {
        return "??";
    }
    constexpr int inTenths = 10;
    const auto tenths = std::llround(*speed * inTenths);
    std::string text = std::to_string(tenths / inTenths);
    if (tenths % inTenths != 0) {
        text += "." + std::to_string(tenths % inTenths);
    }
    return text;
}

/// One line, from its letter on; a field without a value is left out.
class LineWriter {
public:
    explicit LineWriter(char letter, bool isMarked = false) : text_{letter, ':', ' '} {
        text_.back() = isMarked ? '*' : ' ';
    }

    void field(std::string_view label, std::string_view value) {
        text_.append(" ").append(label).append(value);
    }

    void number(std::string_view label, std::optional<unsigned> value, std::size_t width,
                char padding = ' ') {
        if (value) {
            field(label, decimal(*value, width, padding));
        }
    }

    template <typename Unsigned>
    void code(std::string_view label, std::optional<Unsigned> value) {
        if (value) {
            field(label, hexadecimal(*value, 2 * sizeof(Unsigned)));
        }
    }

    void version(std::string_view label, std::optional<std::uint16_t> value) {
        if (value) {
            constexpr unsigned lowByte = 0xff;
            field(label,
                  hexadecimal(*value >> 8U, 2, ' ') + "." + hexadecimal(*value & lowByte, 2));
        }
    }

    void usbClass(const UsbClass& value) {
        constexpr std::size_t nameWidth = 5;
        if (value.code) {
            field("Cls=", hexadecimal(*value.code, 2) + bracketed(value.name, nameWidth));
        }
        code("Sub=", value.subclass);
        code("Prot=", value.protocol);
    }

    bool hasFields() const { return text_.find('=') != std::string::npos; }

    void appendTo(std::string& list) const { list.append(text_).append("\n"); }

private:
    std::string text_;
};

class ListWriter {
public:
    explicit ListWriter(const DeviceList& list) : list_(list) {}

    std::string write() {
        for (const Device& device : list_.devices) {
            const bool isFirst = &device == &list_.devices.front();
            if (isFirst ? list_.form.emptyLineFirst : list_.form.emptyLineBetweenDevices) {
                text_ += '\n';
            }
            write(device);
        }
        return std::move(text_);
    }

private:
    void write(const Device& device);
    void writeTopology(const Device& device);
    void write(const Bandwidth& bandwidth);
    void writeDescriptors(const Device& device);
    void writeString(const char* label, const std::optional<std::string>& value);
    void write(const Configuration& configuration);
    void write(const Association& association);
    void write(const Interface& interface);
    void write(const Endpoint& endpoint);

    const DeviceList& list_;
    std::string text_;
};

void ListWriter::write(const Device& device) {
    writeTopology(device);
    if (device.bandwidth) {
        write(*device.bandwidth);
    }
    writeDescriptors(device);
    writeString("Manufacturer=", device.manufacturer);
    writeString("Product=", device.product);
    writeString("SerialNumber=", device.serialNumber);
    for (const Configuration& configuration : device.configurations) {
        write(configuration);
    }
    if (device.truncated) {
        text_ += "(truncated)\n";
    }
}

void ListWriter::writeTopology(const Device& device) {
    LineWriter line('T');
    line.number("Bus=", device.bus, 2, '0');
    line.number("Lev=", device.level, 2, '0');
    line.number("Prnt=", device.parentNumber, 2, '0');
    line.number("Port=", device.port, 2, '0');
    line.number("Cnt=", device.count, 2, '0');
    line.number("Dev#=", device.number, 3);
    std::string speed = speedText(device.speed);
    speed.resize(std::max<std::size_t>(speed.size(), list_.form.narrowSpeed ? 3 : 4), ' ');
    line.field("Spd=", speed);
    line.number("MxCh=", device.maxChildren, 2);
    line.appendTo(text_);
}

void ListWriter::write(const Bandwidth& bandwidth) {
    LineWriter line('B');
    if (bandwidth.allocatedMicroseconds && bandwidth.availableMicroseconds && bandwidth.percent) {
        line.field("Alloc=", decimal(*bandwidth.allocatedMicroseconds, 3) + "/" +
                                 decimal(*bandwidth.availableMicroseconds, 3) + " us (" +
                                 decimal(*bandwidth.percent, 2) + "%),");
    }
    if (bandwidth.interruptRequests) {
        line.field("#Int=", decimal(*bandwidth.interruptRequests, 3) + ",");
    }
    if (bandwidth.isochronousRequests) {
        line.field("#Iso=", decimal(*bandwidth.isochronousRequests, 3));
    }
    line.appendTo(text_);
}

void ListWriter::writeDescriptors(const Device& device) {
    LineWriter descriptor('D');
    descriptor.version("Ver=", device.usbVersion);
    descriptor.usbClass(device.usbClass);
    descriptor.number("MxPS=", device.maxPacketSize, 2);
    descriptor.number("#Cfgs=", device.configurationCount, 3);
    LineWriter product('P');
    product.code("Vendor=", device.vendorId);
    product.code("ProdID=", device.productId);
    product.version("Rev=", device.release);
    for (const LineWriter* line : {&descriptor, &product}) {
        if (line->hasFields()) {
            line->appendTo(text_);
        }
    }
}

void ListWriter::writeString(const char* label, const std::optional<std::string>& value) {
    if (value) {
        LineWriter line('S');
        line.field(label, *value);
        line.appendTo(text_);
    }
}

void ListWriter::write(const Configuration& configuration) {
    if (configuration.listed) {
        LineWriter line('C', configuration.active);
        line.number("#Ifs=", configuration.interfaceCount, 2);
        line.number("Cfg#=", configuration.value, 2);
        line.code("Atr=", configuration.attributes);
        if (configuration.maxPowerMilliamperes) {
            line.field("MxPwr=", decimal(*configuration.maxPowerMilliamperes, 3) + "mA");
        }
        line.appendTo(text_);
    }
    for (const Association& association : configuration.associations) {
        write(association);
    }
    for (const Interface& interface : configuration.interfaces) {
        write(interface);
    }
}

void ListWriter::write(const Association& association) {
    LineWriter line('A');
    line.number("FirstIf#=", association.firstInterface, 2);
    line.number("IfCount=", association.interfaceCount, 2);
    line.usbClass(association.usbClass);
    line.appendTo(text_);
}

void ListWriter::write(const Interface& interface) {
    if (interface.listed) {
        LineWriter line('I', interface.active);
        line.number("If#=", interface.number, 2);
        line.number("Alt=", interface.alternate, 2);
        line.number("#EPs=", interface.endpointCount, 2);
        line.usbClass(interface.usbClass);
        if (interface.driver) {
            line.field("Driver=", *interface.driver);
        }
        line.appendTo(text_);
    }
    for (const Endpoint& endpoint : interface.endpoints) {
        write(endpoint);
    }
}

void ListWriter::write(const Endpoint& endpoint) {
    LineWriter line('E');
    if (endpoint.address) {
        // It is known then: only an endpoint without an address may have no direction.
        const char direction = letterOf(endpoint.direction().value_or(Endpoint::Direction::both));
        line.field("Ad=", hexadecimal(*endpoint.address, 2) + bracketed({&direction, 1}, 1));
    }
    if (const auto type = endpoint.type()) {
        line.field("Atr=", hexadecimal(*endpoint.attributes, 2) + bracketed(nameOf(*type), 4));
    }
    line.number("MxPS=", endpoint.maxPacketSize, 4);
    if (endpoint.intervalMicroseconds) {
        constexpr std::int64_t inMilliseconds = 1000;
        const bool isFine = *endpoint.intervalMicroseconds % inMilliseconds != 0;
        line.field("Ivl=", decimal(*endpoint.intervalMicroseconds / (isFine ? 1 : inMilliseconds),
                                   list_.form.paddedInterval ? 3 : 0) +
                               (isFine ? "us" : "ms"));
    }
    line.appendTo(text_);
}

}  // namespace

std::string writeDeviceList(const DeviceList& list) {
    return ListWriter(list).write();
}

}  // namespace devicelist
