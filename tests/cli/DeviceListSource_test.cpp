// SPDX-License-Identifier: MIT
// A list comes from the file that is named, from the kernel, or from sysfs.
#include "cli/DeviceListSource.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "cli/Errors.h"

namespace usbhcdiag {
namespace {

class DeviceListSourceTest : public testing::Test {
protected:
    DeviceListSourceTest() {
        std::string pattern = testing::TempDir() + "source-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
        places_ = {folder_ + "/expected", folder_ + "/kernel", folder_ + "/sys"};
    }
    ~DeviceListSourceTest() override { std::filesystem::remove_all(folder_); }

    std::string folder_;
    MachinePlaces places_;
};

TEST_F(DeviceListSourceTest, ANamedFileComesFirstThenTheKernelsListThenSysfs) {
    std::filesystem::create_directories(places_.devices() + "/usb1");
    std::ofstream(places_.devices() + "/usb1/devnum") << "1\n";
    const DeviceListSource fromSysfs = readSource(std::nullopt, places_);
    EXPECT_STREQ(nameOf(fromSysfs.kind), "sysfs");
    EXPECT_EQ(fromSysfs.path, folder_ + "/sys/bus/usb/devices");
    EXPECT_EQ(fromSysfs.text.find("\nT:  Bus=01 "), 0U);
    EXPECT_EQ(fromSysfs.origin, "the device list was made from " + fromSysfs.path + ", since " +
                                    places_.kernel + " cannot be read (No such file or directory)");

    for (const std::string& place : {places_.kernel, places_.expected}) {
        std::ofstream(place) << "list at " << place;
        const DeviceListSource source = readSource(std::nullopt, places_);
        EXPECT_STREQ(nameOf(source.kind), "kernel");
        EXPECT_EQ(source.path, place);
        EXPECT_EQ(source.text, "list at " + place);
        EXPECT_EQ(source.origin, "the device list is the kernel's, " + place);
    }

    std::ofstream(folder_ + "/file") << "named";
    const DeviceListSource named = readSource(folder_ + "/file", places_);
    EXPECT_STREQ(nameOf(named.kind), "file");
    EXPECT_EQ(named.path, folder_ + "/file");
    EXPECT_EQ(named.text, "named");
    EXPECT_EQ(named.origin, "");
}

TEST_F(DeviceListSourceTest, AMachineWithoutUsbHasNothingToRead) {
    EXPECT_THROW(readSource(std::nullopt, places_), NothingRead);
}

TEST_F(DeviceListSourceTest, AKernelsListThatCannotBeReadAfterAllIsAFailure) {
    std::filesystem::create_directory(places_.kernel);
    try {
        readSource(std::nullopt, places_);
        ADD_FAILURE();
    } catch (const Failure& error) {
        EXPECT_EQ(std::string(error.what()), "device list " + places_.kernel + ": Is a directory");
    }
}

TEST_F(DeviceListSourceTest, AFifoIsNotWaitedFor) {
    const std::string fifo = folder_ + "/fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    try {
        readSource(fifo, places_);
        ADD_FAILURE();
    } catch (const Failure& error) {
        EXPECT_EQ(std::string(error.what()),
                  "device list " + fifo +
                      " is no file that can be read to its end. A FIFO is read as standard "
                      "input:\n    usbhcdiag COMMAND - <" +
                      fifo);
    }
}

}  // namespace
}  // namespace usbhcdiag
