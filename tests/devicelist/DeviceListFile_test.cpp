// SPDX-License-Identifier: MIT
// Files are read whole, without waiting and within bounds.
#include "devicelist/DeviceListFile.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>

#include "devicelist/DeviceList.h"

namespace devicelist {
namespace {

/// A folder of its own, removed at the end.
class DeviceListFileTest : public testing::Test {
protected:
    DeviceListFileTest() {
        std::string pattern = testing::TempDir() + "device-list-file-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
        file_ = folder_ + "/list";
    }
    ~DeviceListFileTest() override { std::filesystem::remove_all(folder_); }

    void write(const std::string& text) const { std::ofstream(file_, std::ios::binary) << text; }

    /// The reason why the file is not read, "missing: " before it if there is none.
    static std::string refusalOf(const std::string& path) {
        try {
            readDeviceListFile(path);
        } catch (const DeviceListFileError& error) {
            return (error.isMissing() ? "missing: " : "") + std::string(error.what());
        }
        return "read";
    }

    std::string folder_;
    std::string file_;
};

TEST_F(DeviceListFileTest, GivesTheBytesOfTheFile) {
    write("");
    EXPECT_EQ(readDeviceListFile(file_), "");
    const std::string text = std::string("T:\0\r\n\xff", 6) + std::string(200000, 'x');
    write(text);
    EXPECT_EQ(readDeviceListFile(file_), text);
}

TEST_F(DeviceListFileTest, ReadsFilesThatDoNotTellTheirLength) {
    EXPECT_NE(readDeviceListFile("/proc/self/status").find("Pid:"), std::string::npos);
}

TEST_F(DeviceListFileTest, GivesTheSystemsReason) {
    EXPECT_EQ(refusalOf(file_), "missing: No such file or directory");
    write("");
    EXPECT_EQ(refusalOf(file_ + "/below"), "missing: Not a directory");
    EXPECT_EQ(refusalOf(folder_), "Is a directory");
}

TEST_F(DeviceListFileTest, ReadsRegularFilesAlone) {
    write("the list\n");
    EXPECT_EQ(readRegularDeviceListFile(file_), "the list\n");
    for (const std::string& path : {folder_, std::string("/dev/null")}) {
        try {
            readRegularDeviceListFile(path);
            ADD_FAILURE() << path;
        } catch (const DeviceListFileError& error) {
            EXPECT_STREQ(error.what(), "it is no regular file");
        }
    }
}

TEST_F(DeviceListFileTest, ReadsUpTo16MiB) {
    write(std::string(maximumListSize, 'x'));
    EXPECT_EQ(readDeviceListFile(file_).size(), maximumListSize);
    write(std::string(maximumListSize + 1, 'x'));
    EXPECT_EQ(refusalOf(file_), "it is longer than 16 MiB");
    EXPECT_EQ(refusalOf("/dev/zero"), "it is longer than 16 MiB");
}

TEST_F(DeviceListFileTest, AFifosWriterGoesOnWaiting) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    EXPECT_EQ(refusalOf(file_), "it is a FIFO");
    const pid_t writer = ::fork();
    if (writer == 0) {
        const int opened = ::open(file_.c_str(), O_WRONLY);
        ::_exit(opened >= 0 ? 0 : 1);
    }
    ASSERT_GT(writer, 0);
    // Long enough for it to arrive at the FIFO, and for whoever opens that to be seen by it.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(refusalOf(file_), "it is a FIFO");
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(::waitpid(writer, nullptr, WNOHANG), 0) << "somebody opened the FIFO";
    ::kill(writer, SIGKILL);
    ::waitpid(writer, nullptr, 0);
}

}  // namespace
}  // namespace devicelist
