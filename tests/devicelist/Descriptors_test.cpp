// SPDX-License-Identifier: MIT
// Descriptors are taken as the kernel takes them, whatever the device sends.
#include "devicelist/Descriptors.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/devicelist/SysfsTree.h"

namespace devicelist {
namespace {

constexpr unsigned bulk = 2;
constexpr unsigned interrupt = 3;

std::string deviceDescriptor(unsigned configurations) {
    return bytes({18, 1, 0x10, 0x02, 0xef, 2, 1, 64, 0x6d, 0x04, 0x25, 0x08, 0x12, 0x03, 1, 2, 3,
                  configurations});
}

std::string configuration(unsigned value, const std::string& content, unsigned totalLength = 0) {
    const unsigned length =
        totalLength != 0 ? totalLength : static_cast<unsigned>(content.size()) + 9;
    return bytes({9, 2, length & 0xffU, length >> 8U, 99, value, 0, 0x80, 50}) + content;
}

std::string interface(unsigned number, unsigned alternate, unsigned endpoints) {
    return bytes({9, 4, number, alternate, endpoints, 0xff, 1, 2, 0});
}

std::string endpoint(unsigned address, unsigned attributes = bulk, unsigned size = 64,
                     unsigned interval = 0) {
    return bytes({7, 5, address, attributes, size & 0xffU, size >> 8U, interval});
}

std::string association(unsigned first) {
    return bytes({8, 11, first, 2, 0x0e, 3, 0, 0});
}

Device deviceOf(const std::string& descriptors, double speed = 12) {
    Device device;
    device.speed = speed;
    readDescriptors(descriptors, device);
    return device;
}

Configuration configurationOf(const std::string& content, double speed = 12) {
    return deviceOf(deviceDescriptor(1) + configuration(1, content), speed).configurations.at(0);
}

Endpoint endpointOf(const std::string& descriptor, double speed) {
    return configurationOf(interface(0, 0, 1) + descriptor, speed).interfaces.at(0).endpoints.at(0);
}

/// The addresses of the endpoints of each alternate setting.
std::vector<std::vector<unsigned>> addresses(const std::string& content) {
    std::vector<std::vector<unsigned>> found;
    for (const Interface& alternate : configurationOf(content).interfaces) {
        found.emplace_back();
        for (const Endpoint& taken : alternate.endpoints) {
            found.back().push_back(*taken.address);
        }
        EXPECT_EQ(alternate.endpointCount, alternate.endpoints.size());
    }
    return found;
}

using Addresses = std::vector<std::vector<unsigned>>;

TEST(Descriptors, TheDeviceDescriptorIsThere) {
    const Device device = deviceOf(deviceDescriptor(0));
    EXPECT_EQ(device.usbVersion, 0x0210U);
    EXPECT_EQ(device.usbClass, (UsbClass{0xef, "misc", 2, 1}));
    EXPECT_EQ(device.maxPacketSize, 64U);
    EXPECT_EQ(device.vendorId, 0x046dU);
    EXPECT_EQ(device.productId, 0x0825U);
    EXPECT_EQ(device.release, 0x0312U);
    EXPECT_EQ(device.configurationCount, 0U);
}

TEST(Descriptors, ACutDeviceDescriptorTellsNothing) {
    const std::string whole = deviceDescriptor(0);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(deviceOf(whole.substr(0, length)).vendorId);
    }
}

TEST(Descriptors, EveryConfigurationIsThere) {
    const Device device =
        deviceOf(deviceDescriptor(3) + configuration(1, interface(0, 0, 0)) + configuration(2, "") +
                 configuration(7, interface(3, 0, 1) + endpoint(0x81)));
    ASSERT_EQ(device.configurations.size(), 3U);
    EXPECT_EQ(device.configurations[0].value, 1U);
    EXPECT_EQ(device.configurations[0].interfaceCount, 1U);
    EXPECT_EQ(device.configurations[0].attributes, 0x80U);
    EXPECT_EQ(device.configurations[1].interfaceCount, 0U);
    EXPECT_EQ(device.configurations[2].value, 7U);
    EXPECT_EQ(device.configurations[2].interfaces.at(0).number, 3U);
}

TEST(Descriptors, NoMoreConfigurationsAreReadThanAnnouncedAndEightAtMost) {
    std::string nine;
    for (unsigned value = 1; value <= 9; ++value) {
        nine += configuration(value, "");
    }
    EXPECT_EQ(deviceOf(deviceDescriptor(0) + nine).configurations.size(), 0U);
    EXPECT_EQ(deviceOf(deviceDescriptor(7) + nine).configurations.size(), 7U);
    EXPECT_EQ(deviceOf(deviceDescriptor(8) + nine).configurations.size(), 8U);
    EXPECT_EQ(deviceOf(deviceDescriptor(9) + nine).configurations.size(), 8U);
}

TEST(Descriptors, AConfigurationEndsBeforeItsAnnouncedLengthWhereTheNextBegins) {
    const Device device = deviceOf(deviceDescriptor(2) + configuration(1, interface(0, 0, 0), 400) +
                                   configuration(2, interface(0, 0, 0)));
    ASSERT_EQ(device.configurations.size(), 2U);
    EXPECT_EQ(device.configurations[0].interfaces.size(), 1U);
    EXPECT_EQ(device.configurations[1].value, 2U);
}

TEST(Descriptors, AConfigurationEndsWhereItsAnnouncedLengthDoes) {
    const Device device = deviceOf(deviceDescriptor(1) +
                                   configuration(1, interface(0, 0, 0) + interface(1, 0, 0), 18));
    EXPECT_EQ(device.configurations.at(0).interfaces.size(), 1U);
}

TEST(Descriptors, PowerIsInUnitsOfTheSpeed) {
    const std::string text = deviceDescriptor(1) + configuration(1, "");
    for (const auto& [speed, power] :
         {std::pair{1.5, 100U}, {12.0, 100U}, {480.0, 100U}, {5000.0, 400U}, {10000.0, 400U}}) {
        EXPECT_EQ(deviceOf(text, speed).configurations.at(0).maxPowerMilliamperes, power) << speed;
    }
}

TEST(Descriptors, OtherDescriptorsAndShortOnesAreSkipped) {
    EXPECT_EQ(addresses(bytes({5, 0x24, 0, 1, 2}) + endpoint(0x83) + bytes({2, 4}) +
                        interface(0, 0, 2) + bytes({3, 0x30, 0}) + bytes({6, 5, 0x82, 2, 0, 0}) +
                        endpoint(0x81) + bytes({2, 0xff}) + bytes({9, 5, 2, 2, 64, 0, 0, 0, 0})),
              (Addresses{{0x81, 0x02}}));
}

TEST(Descriptors, EndpointsAfterAShortInterfaceBelongToNone) {
    EXPECT_EQ(addresses(interface(0, 0, 2) + endpoint(0x81) + bytes({8, 4, 1, 0, 1, 0, 0, 0}) +
                        endpoint(0x82)),
              (Addresses{{0x81}}));
}

TEST(Descriptors, AnInvalidLengthEndsTheConfiguration) {
    for (const unsigned length : {0U, 1U, 200U}) {
        EXPECT_EQ(
            addresses(interface(0, 0, 2) + endpoint(0x81) + bytes({length, 5, 0x82, 2, 0, 0, 0})),
            (Addresses{{0x81}}))
            << length;
    }
}

TEST(Descriptors, AlternateSettingsOfOneInterfaceStandTogether) {
    const Configuration read = configurationOf(interface(4, 0, 0) + interface(2, 0, 0) +
                                               interface(4, 1, 0) + interface(2, 5, 0));
    std::vector<std::pair<unsigned, unsigned>> found;
    for (const Interface& each : read.interfaces) {
        found.emplace_back(*each.number, *each.alternate);
    }
    EXPECT_EQ(found, (std::vector<std::pair<unsigned, unsigned>>{{4, 0}, {4, 1}, {2, 0}, {2, 5}}));
    EXPECT_EQ(read.interfaceCount, 2U);
}

TEST(Descriptors, AnAlternateSettingThatIsGivenTwiceCountsOnce) {
    EXPECT_EQ(addresses(interface(0, 0, 1) + endpoint(0x81) + interface(0, 0, 1) + endpoint(0x82) +
                        interface(0, 1, 1) + endpoint(0x83)),
              (Addresses{{0x81}, {0x83}}));
}

TEST(Descriptors, ThirtyTwoInterfacesAreTaken) {
    std::string content;
    for (unsigned number = 0; number < 32; ++number) {
        content += interface(number, 0, 0);
    }
    EXPECT_EQ(configurationOf(content).interfaces.size(), 32U);
    content += interface(32, 0, 1) + endpoint(0x81) + interface(31, 1, 0);
    EXPECT_EQ(configurationOf(content).interfaces.size(), 33U);
    EXPECT_EQ(configurationOf(content).interfaceCount, 32U);
}

TEST(Descriptors, A128AlternateSettingsAreTaken) {
    std::string content;
    for (unsigned alternate = 0; alternate < 128; ++alternate) {
        content += interface(0, alternate, 0);
    }
    EXPECT_EQ(configurationOf(content).interfaces.size(), 128U);
    EXPECT_EQ(configurationOf(content + interface(0, 128, 0)).interfaces.size(), 128U);
}

TEST(Descriptors, SixteenAssociationsAreTaken) {
    std::string content;
    for (unsigned first = 0; first < 16; ++first) {
        content += association(first);
    }
    EXPECT_EQ(configurationOf(content).associations.size(), 16U);
    content += association(16) + bytes({7, 11, 0, 1, 2, 3, 4});
    EXPECT_EQ(configurationOf(content).associations.size(), 16U);
    EXPECT_EQ(configurationOf(content).associations.back().firstInterface, 15U);
}

TEST(Descriptors, AShortAssociationIsSkipped) {
    EXPECT_TRUE(configurationOf(bytes({7, 11, 0, 1, 2, 3, 4})).associations.empty());
}

TEST(Descriptors, NoMoreEndpointsAreTakenThanAnnouncedAndThirtyAtMost) {
    std::string all;
    for (unsigned number = 1; number <= 15; ++number) {
        all += endpoint(number) + endpoint(number | 0x80U);
    }
    EXPECT_EQ(addresses(interface(0, 0, 0) + all).at(0).size(), 0U);
    EXPECT_EQ(addresses(interface(0, 0, 29) + all).at(0).size(), 29U);
    EXPECT_EQ(addresses(interface(0, 0, 30) + all).at(0).size(), 30U);
    EXPECT_EQ(addresses(interface(0, 0, 255) + all + all).at(0).size(), 30U);
}

TEST(Descriptors, EndpointsWithoutANumberOfTheirOwnAreSkipped) {
    for (const unsigned address : {0x00U, 0x80U, 0x10U, 0x91U, 0x70U}) {
        EXPECT_EQ(addresses(interface(0, 0, 2) + endpoint(address) + endpoint(0x81)),
                  (Addresses{{0x81}}))
            << address;
    }
}

TEST(Descriptors, AnEndpointIsTakenOnceInASettingAndByOneInterface) {
    EXPECT_EQ(addresses(interface(0, 0, 2) + endpoint(0x81) + endpoint(0x81)), (Addresses{{0x81}}));
    EXPECT_EQ(addresses(interface(0, 0, 1) + endpoint(0x81) + interface(0, 1, 1) + endpoint(0x81)),
              (Addresses{{0x81}, {0x81}}));
    EXPECT_EQ(addresses(interface(0, 0, 0) + interface(0, 1, 1) + endpoint(0x81) +
                        interface(1, 0, 2) + endpoint(0x81) + endpoint(0x01)),
              (Addresses{{}, {0x81}, {0x01}}));
    // A control endpoint has both directions.
    EXPECT_EQ(addresses(interface(0, 0, 2) + endpoint(0x01, 0) + endpoint(0x81)),
              (Addresses{{0x01}}));
    EXPECT_EQ(addresses(interface(0, 0, 2) + endpoint(0x81) + endpoint(0x01, 0)),
              (Addresses{{0x81}}));
}

TEST(Descriptors, IntervalsAreOfTheTypeAndSpeed) {
    struct Case {
        double speed;
        unsigned attributes;
        unsigned address;
        unsigned interval;
        std::int64_t microseconds;
    };
    constexpr unsigned control = 0;
    constexpr unsigned isochronous = 1;
    for (const Case& each : std::vector<Case>{
             {1.5, interrupt, 0x81, 10, 10000},
             {12, interrupt, 0x81, 255, 255000},
             {12, interrupt, 0x81, 0, 10000},
             {480, interrupt, 0x81, 1, 125},
             {480, interrupt, 0x81, 16, 4096000},
             {480, interrupt, 0x81, 0, 8000},
             {480, interrupt, 0x81, 17, 16000},
             {480, interrupt, 0x81, 255, 128000},
             {5000, interrupt, 0x81, 16, 4096000},
             {5000, interrupt, 0x81, 32, 32000},
             {12, isochronous, 0x81, 1, 1000},
             {12, isochronous, 0x81, 16, 32768000},
             {12, isochronous, 0x81, 17, 8000},
             {12, isochronous, 0x81, 0, 8000},
             {480, isochronous, 0x81, 4, 1000},
             {480, isochronous, 0x81, 0, 8000},
             {5000, isochronous, 0x81, 17, 1000},
             {12, bulk, 0x02, 255, 0},
             {480, bulk, 0x02, 255, 31875},
             {480, bulk, 0x82, 255, 0},
             {5000, bulk, 0x02, 255, 0},
             {480, control, 0x82, 3, 375},
             {12, control, 0x02, 3, 0},
         }) {
        const Endpoint read =
            endpointOf(endpoint(each.address, each.attributes, 8, each.interval), each.speed);
        EXPECT_EQ(read.intervalMicroseconds, each.microseconds)
            << each.speed << " " << each.attributes << " " << each.interval;
    }
}

TEST(Descriptors, PacketSizesAreThoseThatTheSpeedAllows) {
    struct Case {
        double speed;
        unsigned attributes;
        unsigned field;
        unsigned size;
    };
    constexpr unsigned isochronous = 1;
    for (const Case& each : std::vector<Case>{
             {1.5, interrupt, 8, 8},
             {1.5, interrupt, 9, 8},
             {12, interrupt, 64, 64},
             {12, interrupt, 65, 64},
             {12, bulk, 512, 64},
             {12, isochronous, 1023, 1023},
             {12, isochronous, 1024, 1023},
             {12, isochronous, 0x0800 | 100, 100},
             {480, bulk, 512, 512},
             {480, bulk, 1024, 1024},
             {480, bulk, 1025, 1024},
             {480, interrupt, 1024, 1024},
             {480, isochronous, 0x1000 | 1024, 3072},
             {480, isochronous, 0x0800 | 1025, 2048},
             {5000, isochronous, 0x1000 | 1024, 1024},
             {5000, bulk, 1025, 1024},
         }) {
        const Endpoint read =
            endpointOf(endpoint(0x81, each.attributes, each.field, 1), each.speed);
        EXPECT_EQ(read.maxPacketSize, each.size)
            << each.speed << " " << each.attributes << " " << each.field;
    }
}

TEST(Descriptors, ABulkEndpointAtLowSpeedIsTakenForAnInterruptEndpoint) {
    const Endpoint read = endpointOf(endpoint(0x81, bulk, 64, 0), 1.5);
    EXPECT_EQ(read.type(), Endpoint::Type::interrupt);
    EXPECT_EQ(read.maxPacketSize, 8U);
    EXPECT_EQ(read.intervalMicroseconds, 1000);
}

TEST(Descriptors, AnyPrefixAndAnyChangedByteIsRead) {
    const std::string whole =
        deviceDescriptor(2) +
        configuration(1, association(0) + interface(0, 0, 1) + endpoint(0x81) + interface(0, 1, 2) +
                             endpoint(0x81, interrupt, 1024, 4) + endpoint(0x02)) +
        configuration(2, interface(0, 0, 0));
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        EXPECT_LE(deviceOf(whole.substr(0, length)).configurations.size(), 2U);
    }
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (unsigned value = 0; value < 256; ++value) {
            std::string damaged = whole;
            damaged[place] = static_cast<char>(value);
            EXPECT_LE(deviceOf(damaged, 480).configurations.size(), 3U);
        }
    }
}

TEST(Descriptors, NoMoreIsReadThanTheKernelKeeps) {
    std::string content;
    while (content.size() < 0xffff - 9) {
        content += bytes({2, 0x24});
    }
    content.resize(0xffff - 9);
    content[content.size() - 3] = 3;
    std::string text = deviceDescriptor(8);
    for (unsigned value = 1; value <= 8; ++value) {
        text += configuration(value, content);
    }
    ASSERT_EQ(text.size(), maximumDescriptorsSize);
    EXPECT_EQ(deviceOf(text).configurations.size(), 8U);
    EXPECT_EQ(deviceOf(text + text).configurations.size(), 8U);
}

}  // namespace
}  // namespace devicelist
