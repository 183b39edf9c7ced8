// SPDX-License-Identifier: MIT
// The list made from sysfs is the kernel's but for the bandwidth of root hubs.
#include "devicelist/SysfsReader.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"
#include "devicelist/DeviceListWriter.h"
#include "tests/devicelist/RecordedLists.h"
#include "tests/devicelist/SysfsTree.h"

namespace devicelist {
namespace {

/// The list without its "B:" lines.
std::string withoutBandwidth(const std::string& list) {
    std::string kept;
    for (std::size_t next = 0; next < list.size();) {
        const std::size_t end = std::min(list.find('\n', next), list.size() - 1) + 1;
        const std::string line = list.substr(next, end - next);
        kept += line.rfind("B:", 0) == 0 ? "" : line;
        next = end;
    }
    return kept;
}

class SysfsReaderTest : public testing::Test {
protected:
    SysfsReaderTest() {
        std::string pattern = testing::TempDir() + "sysfs-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
    }
    ~SysfsReaderTest() override { std::filesystem::remove_all(folder_); }

    DeviceList read() const { return readSysfsDevices(folder_); }
    std::string text() const { return writeDeviceList(read()); }

    /// A device that has a number and nothing else.
    void addBare(const std::string& name, unsigned number) const {
        tree().add(name);
        tree().write(name, "devnum", std::to_string(number) + "\n");
    }

    SysfsTree tree() const { return SysfsTree(folder_); }

    /// The devices that are found, in their order.
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const Device& device : read().devices) {
            found.push_back(device.portPath);
        }
        return found;
    }

    void add(const std::string& list) const {
        for (const Device& device : readDeviceList(list).devices) {
            tree().add(device);
        }
    }

    std::string folder_;
};

/// A hub with a device at port 2 that has an interface with two alternate settings.
const char* const smallList =
    "\nT:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=480  MxCh= 4\n"
    "D:  Ver= 2.00 Cls=09(hub  ) Sub=00 Prot=00 MxPS=64 #Cfgs=  1\n"
    "P:  Vendor=1d6b ProdID=0002 Rev= 6.01\n"
    "S:  SerialNumber=0000:00:1d.7\n"
    "C:* #Ifs= 1 Cfg#= 1 Atr=e0 MxPwr=  0mA\n"
    "I:* If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n"
    "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=256ms\n"
    "\nT:  Bus=01 Lev=01 Prnt=01 Port=01 Cnt=01 Dev#=  5 Spd=480  MxCh= 0\n"
    "D:  Ver= 2.00 Cls=ef(misc ) Sub=02 Prot=01 MxPS=64 #Cfgs=  2\n"
    "P:  Vendor=046d ProdID=0825 Rev= 0.12\n"
    "S:  Product=Webcam\n"
    "C:* #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=500mA\n"
    "A:  FirstIf#= 0 IfCount= 1 Cls=0e(video) Sub=03 Prot=00\n"
    "I:  If#= 0 Alt= 0 #EPs= 0 Cls=0e(video) Sub=02 Prot=00 Driver=(none)\n"
    "I:* If#= 0 Alt= 1 #EPs= 2 Cls=0e(video) Sub=02 Prot=00 Driver=(none)\n"
    "E:  Ad=81(I) Atr=05(Isoc) MxPS=3072 Ivl=125us\n"
    "E:  Ad=02(O) Atr=02(Bulk) MxPS= 512 Ivl=2125us\n"
    "C:  #Ifs= 1 Cfg#= 2 Atr=80 MxPwr=100mA\n"
    "I:  If#= 0 Alt= 0 #EPs= 0 Cls=ff(vend.) Sub=00 Prot=00 Driver=\n";

TEST_F(SysfsReaderTest, AMachineWithoutUsbHasNoDevices) {
    std::filesystem::remove_all(folder_ + "/bus");
    EXPECT_EQ(read().devices.size(), 0U);
    EXPECT_EQ(readSysfsDevices("/nonexistent").devices.size(), 0U);
}

TEST_F(SysfsReaderTest, WritesWhatTheKernelPrints) {
    add(smallList);
    EXPECT_EQ(text(), smallList);
}

TEST_F(SysfsReaderTest, WritesListsOfTodaysKernelsAgainButForTheBandwidth) {
    if (!std::filesystem::exists(ZORVA_CAPTURES)) {
        GTEST_SKIP() << "skipped: no recorded lists of real machines";
    }
    for (const RecordedList& recorded : recordedLists(ZORVA_CAPTURES)) {
        if (recorded.name.rfind("vm-", 0) == 0) {
            std::filesystem::remove_all(folder_);
            add(recorded.text);
            EXPECT_EQ(text(), withoutBandwidth(recorded.text)) << recorded.name;
        }
    }
}

TEST_F(SysfsReaderTest, BusesComeByNumberAndDevicesDepthFirstByPort) {
    for (const char* const name : {"usb2", "usb10", "usb1", "1-1", "1-2", "1-10", "1-2.1.4",
                                   "1-2.1", "1-2.10", "1-2.9", "2-1"}) {
        addBare(name, 7);
    }
    EXPECT_EQ(names(), (std::vector<std::string>{"usb1", "1-1", "1-2", "1-2.1", "1-2.1.4", "1-2.9",
                                                 "1-2.10", "1-10", "usb2", "2-1", "usb10"}));
    const DeviceList list = read();
    const auto counts = [&](std::size_t position) {
        const Device& device = list.devices[position];
        return std::vector<unsigned>{*device.bus, *device.level, *device.port, *device.count};
    };
    EXPECT_EQ(counts(0), (std::vector<unsigned>{1, 0, 0, 0}));
    EXPECT_EQ(counts(4), (std::vector<unsigned>{1, 3, 3, 1}));
    EXPECT_EQ(counts(6), (std::vector<unsigned>{1, 2, 9, 3}));
    EXPECT_EQ(counts(7), (std::vector<unsigned>{1, 1, 9, 3}));
    EXPECT_EQ(counts(10), (std::vector<unsigned>{10, 0, 0, 0}));
}

TEST_F(SysfsReaderTest, TheParentIsTheHubByItsNumber) {
    addBare("usb3", 1);
    addBare("3-4", 12);
    addBare("3-4.1", 9);
    const DeviceList list = read();
    EXPECT_EQ(list.devices[0].parentNumber, 0U);
    EXPECT_EQ(list.devices[1].parentNumber, 1U);
    EXPECT_EQ(list.devices[2].parentNumber, 12U);
}

TEST_F(SysfsReaderTest, OtherNamesAreNoDevices) {
    addBare("usb1", 1);
    for (const char* const name :
         {"1-0:1.0", "usb", "usbx", "usb1-1", "1", "1-", "-1", "1-1.", "1-1..2", "1-0", "1-x",
          "1.1", "1-2-3", "ep_81", "99999999999-1", "1-1 "}) {
        addBare(name, 2);
    }
    EXPECT_EQ(names(), std::vector<std::string>{"usb1"});
}

TEST_F(SysfsReaderTest, ADeviceThatIsGoneIsLeftOutWithAllThatIsAttached) {
    for (const char* const name : {"usb1", "1-1", "1-1.1", "1-1.1.1", "1-2", "2-1"}) {
        addBare(name, 2);
    }
    tree().remove("1-1", "devnum");
    EXPECT_EQ(names(), (std::vector<std::string>{"usb1", "1-2"}));
    EXPECT_EQ(read().devices[1].count, 1U);
    std::filesystem::remove_all(folder_ + "/devices");  // the links lead nowhere now
    EXPECT_EQ(names(), std::vector<std::string>{});
}

TEST_F(SysfsReaderTest, TheSixthLevelIsTheDeepest) {
    std::string name = "1-1";
    addBare("usb1", 1);
    addBare(name, 2);
    for (unsigned level = 2; level <= 7; ++level) {
        addBare(name += ".1", level + 1);
    }
    EXPECT_EQ(names().size(), 7U);
    EXPECT_EQ(names().back(), "1-1.1.1.1.1.1");
}

TEST_F(SysfsReaderTest, ReadsNoMoreDevicesThanAKernelHas) {
    addBare("usb1", 1);
    const auto addBus = [&](unsigned bus) {
        std::filesystem::create_symlink("usb1", tree().folder("usb" + std::to_string(bus)));
    };
    for (unsigned bus = 2; bus <= 8128; ++bus) {
        addBus(bus);
    }
    EXPECT_EQ(names().size(), 8128U);
    addBus(8129);
    EXPECT_EQ(names().size(), 8128U);
}

TEST_F(SysfsReaderTest, WhatIsMissingHasNoValue) {
    addBare("usb1", 3);
    EXPECT_EQ(text(), "\nT:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  3 Spd=??  \n");
    for (const char* const damage : {"", "\n", "x\n", "-1\n", "4 4\n", "99999999999\n"}) {
        tree().write("usb1", "maxchild", damage);
        tree().write("usb1", "speed", damage);
        tree().write("usb1", "bConfigurationValue", damage);
        tree().write("usb1", "descriptors", damage);
        const Device device = read().devices.at(0);
        EXPECT_FALSE(device.maxChildren) << damage;
        EXPECT_TRUE(device.configurations.empty()) << damage;
    }
}

TEST_F(SysfsReaderTest, SpeedsAreThoseOfTheList) {
    addBare("usb1", 1);
    for (const auto& [shown, listed] : {std::pair<const char*, const char*>{"1.5", "Spd=1.5 "},
                                        {"12", "Spd=12  "},
                                        {"480", "Spd=480 "},
                                        {"5000", "Spd=5000"},
                                        {"10000", "Spd=10000"},
                                        {"20000", "Spd=10000"},
                                        {"unknown", "Spd=??  "}}) {
        tree().write("usb1", "speed", std::string(shown) + "\n");
        EXPECT_NE(text().find(listed), std::string::npos) << shown;
    }
}

TEST_F(SysfsReaderTest, StringsAreCutAsTheKernelCutsThem) {
    addBare("usb1", 1);
    const auto product = [&](const std::string& content) {
        tree().write("usb1", "product", content);
        return read().devices.at(0).product;
    };
    EXPECT_EQ(product(std::string(100, 'a') + "\n"), std::string(100, 'a'));
    EXPECT_EQ(product(std::string(101, 'a') + "\n"), std::string(100, 'a'));
    EXPECT_EQ(product(std::string(5000, 'a')), std::string(100, 'a'));
    EXPECT_EQ(product("\n"), "");
    EXPECT_EQ(product("a\nb\n\n"), "a\nb\n");
    EXPECT_EQ(product(std::string("a\0b\n", 4)), "a");
    EXPECT_EQ(product("\xff \x1b\n"), "\xff \x1b");
}

TEST_F(SysfsReaderTest, AnInterfaceThatIsGoneHasNoDriverAndIsNotActive) {
    add(smallList);
    std::filesystem::remove(tree().folder("1-2:1.0"));
    const Interface interface = read().devices.at(1).configurations.at(0).interfaces.at(1);
    EXPECT_FALSE(interface.active);
    EXPECT_EQ(interface.driver, "");
}

TEST_F(SysfsReaderTest, WithoutActiveConfigurationNothingIsMarked) {
    add(smallList);
    for (const char* const value : {"\n", "0\n", "7\n"}) {
        tree().write("1-2", "bConfigurationValue", value);
        const Device device = read().devices.at(1);
        for (const Configuration& configuration : device.configurations) {
            EXPECT_FALSE(configuration.active);
            for (const Interface& interface : configuration.interfaces) {
                EXPECT_FALSE(interface.active);
                EXPECT_EQ(interface.driver, "");
            }
        }
    }
}

TEST_F(SysfsReaderTest, NeverWaitsForAFifo) {
    add(smallList);
    for (const char* const name : {"product", "descriptors", "bConfigurationValue", "speed"}) {
        tree().remove("1-2", name);
        ASSERT_EQ(::mkfifo((tree().folder("1-2") / name).c_str(), 0600), 0);
    }
    EXPECT_EQ(names(), (std::vector<std::string>{"usb1", "1-2"}));
}

/// A device with that many alternate settings, none of them active.
Device longDevice(std::size_t settings) {
    Device device = readDeviceList(smallList).devices.at(0);
    Configuration& configuration = device.configurations.at(0);
    Interface setting = configuration.interfaces.at(0);
    setting.active = false;
    setting.driver = "";
    setting.endpoints.clear();
    setting.endpointCount = 0;
    for (std::size_t i = 0; i < settings; ++i) {
        setting.number = static_cast<unsigned>(i / 128);
        setting.alternate = static_cast<unsigned>(i % 128);
        configuration.interfaces.push_back(setting);
    }
    configuration.interfaces.erase(configuration.interfaces.begin());
    configuration.interfaceCount = static_cast<unsigned>((settings + 127) / 128);
    return device;
}

std::string textOf(const Device& device) {
    return writeDeviceList({{device}, {}, {}, {}});
}

TEST_F(SysfsReaderTest, ALongDeviceIsTruncatedWhereTheKernelTruncates) {
    const auto room = 2 * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) - 256;
    std::size_t settings = 1;
    while (textOf(longDevice(settings + 1)).size() < room) {
        ++settings;
    }
    Device device = longDevice(settings);
    tree().add(device);
    // Every place at which the limit can fall into a line, and before and after it.
    bool wasWhole = false;
    bool wasTruncated = false;
    bool hasLost = false;
    for (std::size_t length = 0; length <= 200; ++length) {
        device.product = std::string(length / 2, 'p');
        device.manufacturer = std::string(length - length / 2, 'm');
        tree().write("usb1", "product", *device.product + "\n");
        tree().write("usb1", "manufacturer", *device.manufacturer + "\n");
        const std::string whole = textOf(device);
        const bool isTruncated = whole.size() > room;
        // A line is printed if it begins within the room.
        std::size_t end = whole.size();
        while (whole.rfind('\n', end - 2) + 1 > room) {
            end = whole.rfind('\n', end - 2) + 1;
        }
        (isTruncated ? wasTruncated : wasWhole) = true;
        hasLost = hasLost || end != whole.size();
        EXPECT_EQ(text(), whole.substr(0, end) + (isTruncated ? "(truncated)\n" : "")) << length;
        EXPECT_EQ(read().devices.at(0).truncated, isTruncated);
    }
    EXPECT_TRUE(wasWhole);
    EXPECT_TRUE(wasTruncated);
    EXPECT_TRUE(hasLost);
}

}  // namespace
}  // namespace devicelist
