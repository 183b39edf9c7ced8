// SPDX-License-Identifier: MIT
#include "devicelist/Descriptors.h"

#include <algorithm>
#include <array>
#include <string>

#include "devicelist/ClassNames.h"

namespace devicelist {

namespace {

// Kinds of descriptors, and how long each is at least.
constexpr unsigned configurationKind = 2;
constexpr unsigned interfaceKind = 4;
constexpr unsigned endpointKind = 5;
constexpr unsigned associationKind = 11;
constexpr std::size_t deviceLength = 18;
constexpr std::size_t configurationLength = 9;
constexpr std::size_t interfaceLength = 9;
constexpr std::size_t endpointLength = 7;
constexpr std::size_t associationLength = 8;

// What the kernel takes of one device at most.
constexpr std::size_t maximumConfigurations = 8;
constexpr std::size_t maximumInterfaces = 32;
constexpr std::size_t maximumAlternates = 128;
constexpr std::size_t maximumAssociations = 16;
constexpr std::size_t maximumEndpoints = 30;

constexpr unsigned numberBits = 0x0f;
constexpr unsigned inBit = 0x80;

enum class Speed { low, full, high, super };

Speed speedOf(const Device& device) {
    constexpr double highSpeed = 480;
    constexpr double lowSpeed = 1.5;
    if (!device.speed || *device.speed < highSpeed) {
        return device.speed == lowSpeed ? Speed::low : Speed::full;
    }
    return *device.speed == highSpeed ? Speed::high : Speed::super;
}

/// One descriptor, or several in a row. Numbers of more than one byte begin with the lowest.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }
    std::uint8_t at(std::size_t place) const { return static_cast<std::uint8_t>(bytes_[place]); }
    std::uint16_t wordAt(std::size_t place) const {
        constexpr unsigned byteBits = 8;
        return static_cast<std::uint16_t>(at(place) | at(place + 1) << byteBits);
    }
    UsbClass classAt(std::size_t place) const {
        return {at(place), std::string(abbreviationOfClass(at(place))), at(place + 1),
                at(place + 2)};
    }

    /// The descriptor at `place`; empty if there is no whole one.
    Bytes descriptorAt(std::size_t place) const {
        constexpr std::size_t headerLength = 2;
        if (size() - place < headerLength) {
            return Bytes({});
        }
        const std::size_t length = at(place);
        const bool isWhole = length >= headerLength && length <= size() - place;
        return Bytes(isWhole ? bytes_.substr(place, length) : std::string_view());
    }
    unsigned kind() const { return at(1); }
    bool is(unsigned wantedKind, std::size_t leastLength) const {
        return size() >= leastLength && kind() == wantedKind;
    }

    /// Those of the configuration that begins at `place`. They end where its announced length does,
    /// or before: the kernel shows no more than it has understood, and the next one follows then.
    Bytes configurationAt(std::size_t place) const {
        constexpr std::size_t totalLengthPlace = 2;
        const std::size_t end = std::min(
            size(),
            place + std::max<std::size_t>(wordAt(place + totalLengthPlace), configurationLength));
        std::size_t next = place;
        do {
            next += at(next);
        } while (next < end && descriptorAt(next).size() > 0 &&
                 next + descriptorAt(next).size() <= end &&
                 !descriptorAt(next).is(configurationKind, configurationLength));
        return Bytes(bytes_.substr(place, next - place));
    }

private:
    std::string_view bytes_;
};

/// The place of the highest bit that is set, from 1; 0 for 0.
unsigned highestBit(unsigned number) {
    unsigned place = 0;
    for (; number != 0; number >>= 1U) {
        ++place;
    }
    return place;
}

/// An endpoint as a device of that speed may have it.
class EndpointReader {
public:
    EndpointReader(const Bytes& descriptor, Speed speed)
        : address_(descriptor.at(2)),
          attributes_(descriptor.at(3)),
          packetSize_(descriptor.wordAt(4)),
          interval_(descriptor.at(6)),
          speed_(speed) {
        correctInterval();
        if (speed_ == Speed::low && type() == Endpoint::Type::bulk) {
            attributes_ = static_cast<std::uint8_t>(Endpoint::Type::interrupt);
            interval_ = 1;
        }
        correctPacketSize();
    }

    Endpoint read() const { return {address_, attributes_, packetBytes(), microseconds()}; }

private:
    Endpoint::Type type() const { return Endpoint{{}, attributes_, {}, {}}.type().value(); }
    bool isPeriodic() const {
        return type() == Endpoint::Type::interrupt || type() == Endpoint::Type::isochronous;
    }
    bool isFast() const { return speed_ >= Speed::high; }

    void correctInterval() {
        if (!isPeriodic()) {
            return;
        }
        constexpr unsigned largestExponent = 16;
        const bool isExponent = isFast() || type() == Endpoint::Type::isochronous;
        if (interval_ >= 1 && (!isExponent || interval_ <= largestExponent)) {
            return;
        }
        // All mean 8 or 10 ms, but for a number of milliseconds where an exponent should be.
        constexpr unsigned eightMillisecondsInMicroframes = 7;
        constexpr unsigned eightMillisecondsInFrames = 4;
        constexpr unsigned tenMilliseconds = 10;
        constexpr unsigned microframesInMillisecond = 8;
        if (type() == Endpoint::Type::isochronous) {
            interval_ =
                speed_ == Speed::high ? eightMillisecondsInMicroframes : eightMillisecondsInFrames;
        } else if (!isFast()) {
            interval_ = tenMilliseconds;
        } else {
            interval_ = interval_ == 0 ? eightMillisecondsInMicroframes
                                       : highestBit(interval_ * microframesInMillisecond);
        }
    }

    void correctPacketSize() {
        using Largest = std::array<unsigned, 4>;  // by type
        constexpr std::array<Largest, 4> bySpeed = {{
            {8, 0, 0, 8},
            {64, 1023, 64, 64},
            {64, 1024, 1024, 1024},
            {512, 1024, 1024, 1024},
        }};
        const unsigned largest =
            bySpeed.at(static_cast<std::size_t>(speed_)).at(static_cast<std::size_t>(type()));
        if ((packetSize_ & sizeBits) > largest) {
            packetSize_ = largest | (isPeriodic() ? packetSize_ & moreTransactionsBits : 0);
        }
    }

    /// With the further transactions in the same microframe.
    unsigned packetBytes() const {
        constexpr unsigned moreTransactionsShift = 11;
        const unsigned more = (packetSize_ & moreTransactionsBits) >> moreTransactionsShift;
        return (packetSize_ & sizeBits) * (speed_ == Speed::high ? 1 + more : 1);
    }

    std::int64_t microseconds() const {
        constexpr std::int64_t frame = 1000;
        constexpr std::int64_t microframe = 125;
        const std::int64_t unit = isFast() ? microframe : frame;
        const bool isExponent = type() == Endpoint::Type::isochronous ||
                                (type() == Endpoint::Type::interrupt && isFast());
        if (isExponent) {
            return unit << (interval_ - 1);
        }
        if (type() == Endpoint::Type::interrupt) {
            return unit * interval_;
        }
        // How often a device refuses at most, which high speed alone has, and never for input.
        const bool mayRefuse =
            speed_ == Speed::high && (type() == Endpoint::Type::control || (address_ & inBit) == 0);
        return mayRefuse ? unit * interval_ : 0;
    }

    static constexpr unsigned sizeBits = 0x07ff;
    static constexpr unsigned moreTransactionsBits = 0x1800;

    std::uint8_t address_;
    std::uint8_t attributes_;
    unsigned packetSize_;
    unsigned interval_;
    Speed speed_;
};

/// Takes the descriptors of one configuration.
class ConfigurationReader {
public:
    explicit ConfigurationReader(Speed speed) : speed_(speed) {}

    Configuration read(const Bytes& bytes) {
        const unsigned powerUnit = speed_ == Speed::super ? 8 : 2;
        Configuration configuration;
        configuration.value = bytes.at(5);
        configuration.attributes = bytes.at(7);
        configuration.maxPowerMilliamperes = bytes.at(8) * powerUnit;
        for (std::size_t next = bytes.at(0); next < bytes.size();) {
            const Bytes descriptor = bytes.descriptorAt(next);
            if (descriptor.kind() == interfaceKind) {
                takeInterface(descriptor);
            } else if (descriptor.is(endpointKind, endpointLength)) {
                takeEndpoint(descriptor);
            } else if (descriptor.is(associationKind, associationLength) &&
                       configuration.associations.size() < maximumAssociations) {
                configuration.associations.push_back(
                    {descriptor.at(2), descriptor.at(3), descriptor.classAt(4)});
            }
            next += descriptor.size();
        }
        configuration.interfaceCount = static_cast<unsigned>(functions_.size());
        for (Function& function : functions_) {
            for (Interface& alternate : function.alternates) {
                alternate.endpointCount = static_cast<unsigned>(alternate.endpoints.size());
                configuration.interfaces.push_back(std::move(alternate));
            }
        }
        return configuration;
    }

private:
    /// An interface with its alternate settings, which may stand apart.
    struct Function {
        unsigned number;
        std::vector<Interface> alternates;
        std::uint32_t endpoints = 0;  ///< of all alternate settings, as bitsOf()
    };

    /// A bit for the address; for a control endpoint those of both its directions.
    static std::uint32_t bitsOf(const Bytes& descriptor) {
        constexpr unsigned directionShift = 16;
        constexpr unsigned typeBits = 0x03;
        const std::uint32_t out = std::uint32_t{1} << (descriptor.at(2) & numberBits);
        const std::uint32_t in = out << directionShift;
        const bool isControl = (descriptor.at(3) & typeBits) == 0;
        return isControl ? out | in : (descriptor.at(2) & inBit) != 0 ? in : out;
    }

    void takeInterface(const Bytes& descriptor) {
        isOpen_ = false;
        if (descriptor.size() < interfaceLength) {
            return;
        }
        current_ = 0;
        while (current_ < functions_.size() && functions_[current_].number != descriptor.at(2)) {
            ++current_;
        }
        if (current_ == functions_.size()) {
            if (current_ == maximumInterfaces) {
                return;
            }
            functions_.push_back({descriptor.at(2), {}});
        }
        auto& alternates = functions_[current_].alternates;
        const auto isSame = [&](const Interface& other) {
            return other.alternate == descriptor.at(3);
        };
        if (alternates.size() == maximumAlternates ||
            std::any_of(alternates.begin(), alternates.end(), isSame)) {
            return;
        }
        Interface& begun = alternates.emplace_back();
        begun.number = descriptor.at(2);
        begun.alternate = descriptor.at(3);
        begun.usbClass = descriptor.classAt(5);
        begun.driver.emplace();  // without a name while the configuration is not active
        announced_ = std::min<std::size_t>(descriptor.at(4), maximumEndpoints);
        endpoints_ = 0;
        isOpen_ = true;
    }

    void takeEndpoint(const Bytes& descriptor) {
        const unsigned number = descriptor.at(2) & ~inBit;
        if (!isOpen_ || number == 0 || number > numberBits) {
            return;
        }
        Interface& alternate = functions_[current_].alternates.back();
        std::uint32_t taken = endpoints_;
        for (std::size_t other = 0; other < functions_.size(); ++other) {
            taken |= other == current_ ? 0 : functions_[other].endpoints;
        }
        const std::uint32_t bits = bitsOf(descriptor);
        if (alternate.endpoints.size() == announced_ || (taken & bits) != 0) {
            return;
        }
        endpoints_ |= bits;
        functions_[current_].endpoints |= bits;
        alternate.endpoints.push_back(EndpointReader(descriptor, speed_).read());
    }

    Speed speed_;
    std::vector<Function> functions_;
    bool isOpen_ = false;          ///< whether endpoints belong to the alternate begun last
    std::size_t current_ = 0;      ///< the interface of that
    std::size_t announced_ = 0;    ///< its endpoints
    std::uint32_t endpoints_ = 0;  ///< those taken, as bitsOf()
};

}  // namespace

void readDescriptors(std::string_view descriptors, Device& device) {
    const Bytes bytes(descriptors.substr(0, maximumDescriptorsSize));
    if (bytes.size() < deviceLength) {
        return;
    }
    device.usbVersion = bytes.wordAt(2);
    device.usbClass = bytes.classAt(4);
    device.maxPacketSize = bytes.at(7);
    device.vendorId = bytes.wordAt(8);
    device.productId = bytes.wordAt(10);
    device.release = bytes.wordAt(12);
    device.configurationCount = bytes.at(17);
    const Speed speed = speedOf(device);
    const std::size_t wanted = std::min<std::size_t>(bytes.at(17), maximumConfigurations);
    for (std::size_t next = deviceLength;
         device.configurations.size() < wanted &&
         bytes.descriptorAt(next).is(configurationKind, configurationLength);) {
        const Bytes configuration = bytes.configurationAt(next);
        device.configurations.push_back(ConfigurationReader(speed).read(configuration));
        next += configuration.size();
    }
}

}  // namespace devicelist
