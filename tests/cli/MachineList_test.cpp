// SPDX-License-Identifier: MIT
// A list is made from sysfs where the kernel's cannot be read, and nowhere else.
#include "cli/MachineList.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace usbhcdiag {
namespace {

class MachineListTest : public testing::Test {
protected:
    MachineListTest() {
        std::string pattern = testing::TempDir() + "machine-list-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
        places_ = {folder_ + "/expected", folder_ + "/kernel", folder_ + "/sys"};
    }
    ~MachineListTest() override { std::filesystem::remove_all(folder_); }

    void addDevice() const {
        const std::string device = places_.devices() + "/usb3";
        std::filesystem::create_directories(device);
        std::ofstream(device + "/devnum") << "1\n";
    }

    std::string folder_;
    MachinePlaces places_;
};

TEST_F(MachineListTest, IsMadeWhereThereIsNoOther) {
    addDevice();
    const auto list = sysfsList(places_);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->text, "\nT:  Bus=03 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=??  \n");
    EXPECT_EQ(list->origin, "the device list was made from " + folder_ +
                                "/sys/bus/usb/devices, since " + folder_ +
                                "/kernel cannot be read (No such file or directory)");
}

TEST_F(MachineListTest, IsNotMadeWhereTheKernelsCanBeRead) {
    addDevice();
    for (const std::string& place : {places_.expected, places_.kernel}) {
        std::ofstream file(place);
        EXPECT_EQ(places_.readable(), place);
        EXPECT_FALSE(sysfsList(places_));
        std::filesystem::remove(place);
    }
    EXPECT_EQ(places_.readable(), "");
}

TEST_F(MachineListTest, IsNotMadeWithoutDevices) {
    EXPECT_FALSE(sysfsList(places_));
    std::filesystem::create_directories(places_.devices());
    EXPECT_FALSE(sysfsList(places_));
}

}  // namespace
}  // namespace usbhcdiag
