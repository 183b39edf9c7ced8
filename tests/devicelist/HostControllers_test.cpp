// SPDX-License-Identifier: MIT
// Host controllers are found in sysfs and in recorded lists.
#include "devicelist/HostControllers.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/FileDescriptor.h"
#include "devicelist/DeviceListReader.h"

namespace devicelist {
namespace {

using Names = std::vector<std::string>;

Names hostControllersOfText(const std::string& list) {
    return hostControllersOfList(readDeviceList(list));
}

/// A folder of its own, removed at the end.
class HostControllersTest : public testing::Test {
protected:
    HostControllersTest() {
        std::string pattern = testing::TempDir() + "host-controllers-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
    }
    ~HostControllersTest() override { std::filesystem::remove_all(folder_); }

    /// A device as sysfs shows it: a link among the devices to its place in the device tree.
    void addDevice(const std::string& name, const std::string& place) const {
        std::filesystem::create_directories(folder_ / "devices" / place / name);
        std::filesystem::create_directories(folder_ / "bus/usb/devices");
        std::filesystem::create_symlink("../../../devices/" + place + "/" + name,
                                        folder_ / "bus/usb/devices" / name);
    }

    std::filesystem::path folder_;
};

TEST_F(HostControllersTest, AControllerIsTheParentOfItsRootHubs) {
    addDevice("usb1", "pci0000:00/0000:00:14.0");
    addDevice("usb2", "pci0000:00/0000:00:14.0");
    addDevice("1-1", "pci0000:00/0000:00:14.0/usb1");
    addDevice("1-1:1.0", "pci0000:00/0000:00:14.0/usb1/1-1");
    addDevice("usb10", "platform/soc/fe980000.usb");
    EXPECT_EQ(hostControllersOfMachine(folder_.string()), (Names{"0000:00:14.0", "fe980000.usb"}));
}

TEST_F(HostControllersTest, AMachineWithoutUsbHasNone) {
    EXPECT_EQ(hostControllersOfMachine(folder_.string()), Names{});
    EXPECT_EQ(hostControllersOfMachine("/nonexistent"), Names{});
}

TEST_F(HostControllersTest, ADanglingLinkIsPassedOver) {
    addDevice("usb1", "pci0000:00/0000:00:14.0");
    std::filesystem::create_symlink("../../../devices/gone/usb3", folder_ / "bus/usb/devices/usb3");
    EXPECT_EQ(hostControllersOfMachine(folder_.string()), Names{"0000:00:14.0"});
}

TEST_F(HostControllersTest, ARootHubsSerialNumberIsItsControllersAddress) {
    EXPECT_EQ(hostControllersOfText("T:  Bus=02 Lev=00 Prnt=00\n"
                                    "S:  Product=EHCI Host Controller\n"
                                    "S:  SerialNumber=0000:00:1d.7\n"
                                    "T:  Bus=02 Lev=01 Prnt=01\n"
                                    "S:  SerialNumber=1.2.3\n"
                                    "\n"
                                    "T:  Bus=01 Lev=00 Prnt=00\n"
                                    "S:  SerialNumber=ff540000.usb\n"),
              (Names{"0000:00:1d.7", "ff540000.usb"}));
}

TEST_F(HostControllersTest, ARootHubWithoutAddressIsNamedAfterItsBus) {
    EXPECT_EQ(hostControllersOfText("T:  Bus=01 Lev=00 Prnt=00\nS:  SerialNumber=c4846000\n"
                                    "T:  Bus= 3 Lev=00 Prnt=00\n"
                                    "T:  Bus=010 Lev=00 Prnt=00\nS:  SerialNumber=a/b.c\n"
                                    "T:  Bus=00 Lev=00 Prnt=00\n"),
              (Names{"usb1", "usb3", "usb10", "usb0"}));
    EXPECT_EQ(hostControllersOfText(
                  "T:  Bus=01 Lev=00\nS:  SerialNumber=0." + std::string(62, '0') +
                  "\nT:  Bus=02 Lev=00\nS:  SerialNumber=0." + std::string(63, '0') + "\n"),
              (Names{"0." + std::string(62, '0'), "usb2"}));
}

TEST_F(HostControllersTest, AnAddressCountsOnce) {
    EXPECT_EQ(hostControllersOfText("T:  Bus=01 Lev=00\nS:  SerialNumber=0000:00:14.0\n"
                                    "T:  Bus=02 Lev=00\nS:  SerialNumber=0000:00:14.0\n"),
              Names{"0000:00:14.0"});
}

TEST_F(HostControllersTest, AListWithoutRootHubHasOneControllerAllTheSame) {
    EXPECT_EQ(hostControllersOfText(""), Names{"usbhc0"});
    EXPECT_EQ(hostControllersOfText("T:  Bus=01 Lev=01 Prnt=01\nS:  SerialNumber=0000:00:1d.7"),
              Names{"usbhc0"});
    EXPECT_EQ(hostControllersOfText("S:  SerialNumber=0000:00:1d.7\n\n\n"), Names{"usbhc0"});
    EXPECT_EQ(hostControllersOfText("T:  Bus=01 Prnt=00\n"), Names{"usbhc0"});
}

TEST_F(HostControllersTest, AListWithOtherLineEndsHasTheSameControllers) {
    const std::string list =
        "T:  Bus=02 Lev=00 Prnt=00\r\n"
        "S:  SerialNumber=0000:00:1d.7\r\n"
        "\r\n"
        "T:  Bus=01 Lev=00\r\n";
    EXPECT_EQ(hostControllersOfText(list), (Names{"0000:00:1d.7", "usb1"}));
}

TEST_F(HostControllersTest, ALongListIsReadWhole) {
    std::string list;
    for (int bus = 1; bus <= 300; ++bus) {
        list += "T:  Bus=" + std::to_string(bus) +
                " Lev=00\nS:  Product=" + std::string(4000, 'x') + "\n";
    }
    const std::string file = (folder_ / "list").string();
    std::ofstream(file) << list;
    const Names controllers = hostControllersOfFile(file);
    ASSERT_EQ(controllers.size(), 300U);
    EXPECT_EQ(controllers.back(), "usb300");
}

TEST_F(HostControllersTest, AFileIsReadUpToItsLimit) {
    const std::string file = (folder_ / "list").string();
    std::string list = "T:  Bus=01 Lev=00\n";
    list.resize(maximumListSize, ' ');
    std::ofstream(file) << list;
    EXPECT_EQ(hostControllersOfFile(file), Names{"usb1"});
    std::ofstream(file, std::ios::app) << ' ';
    EXPECT_EQ(hostControllersOfFile(file), Names{"usbhc0"}) << "one byte too many";
    EXPECT_EQ(hostControllersOfFile("/nonexistent"), Names{"usbhc0"});
}

TEST_F(HostControllersTest, APipeIsLeftForTheProvider) {
    const std::string pipe = (folder_ / "pipe").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(hostControllersOfFile(pipe), Names{"usbhc0"}) << "and does not wait for a writer";
}

TEST_F(HostControllersTest, ATerminalIsLeftForTheProvider) {
    const base::FileDescriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_TRUE(terminal.isOpen());
    ASSERT_EQ(::grantpt(terminal.get()), 0);
    ASSERT_EQ(::unlockpt(terminal.get()), 0);
    const std::string typed = "T:  Bus=07 Lev=00\n\x04\x04";
    ASSERT_EQ(::write(terminal.get(), typed.data(), typed.size()),
              static_cast<ssize_t>(typed.size()));
    const std::string path = ::ptsname(terminal.get());
    const base::FileDescriptor keptOpen(::open(path.c_str(), O_RDWR | O_NOCTTY));
    EXPECT_EQ(hostControllersOfFile(path), Names{"usbhc0"});
}

TEST(RootHubs, AreGroupedByTheirControllerInTheOrderGiven) {
    const auto rootHub = [](const std::string& bus, const std::string& address) {
        return "T:  Bus=" + bus + " Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=480  MxCh= 4\n" +
               "S:  SerialNumber=" + address + "\n";
    };
    const DeviceList list =
        readDeviceList(rootHub("03", "0000:00:1a.0") + rootHub("01", "0000:00:14.0") +
                       "T:  Bus=01 Lev=01 Prnt=01 Port=00 Cnt=01 Dev#=  2 Spd=12  MxCh= 0\n" +
                       rootHub("02", "0000:00:14.0"));
    EXPECT_EQ(rootHubsOf(list), (std::vector<std::size_t>{0, 1, 3}));
    const auto all = groupedByController(list, rootHubsOf(list));
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].id, "0000:00:1a.0");
    EXPECT_EQ(all[0].rootHubs, std::vector<std::size_t>{0});
    EXPECT_EQ(all[1].id, "0000:00:14.0");
    EXPECT_EQ(all[1].rootHubs, (std::vector<std::size_t>{1, 3}));
    const auto some = groupedByController(list, {3, 0});
    ASSERT_EQ(some.size(), 2U);
    EXPECT_EQ(some[0].id, "0000:00:14.0");
    EXPECT_EQ(some[0].rootHubs, std::vector<std::size_t>{3});
    EXPECT_TRUE(groupedByController(list, {}).empty());
}

}  // namespace
}  // namespace devicelist
