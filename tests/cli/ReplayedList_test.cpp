// SPDX-License-Identifier: MIT
// The list of --devices is opened once, without waiting, and what was opened is examined.
#include "cli/ReplayedList.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "cli/Errors.h"
#include "devicelist/DeviceList.h"
#include "devicelist/DeviceListFile.h"

namespace usbhcdiag {
namespace {

/// A folder of its own, removed at the end.
class ReplayedListTest : public testing::Test {
protected:
    ReplayedListTest() {
        std::string pattern = testing::TempDir() + "replayed-list-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
        file_ = folder_ + "/list";
    }
    ~ReplayedListTest() override { std::filesystem::remove_all(folder_); }

    void write(const std::string& text) const { std::ofstream(file_, std::ios::binary) << text; }

    static std::string refusalOf(const std::string& file) {
        try {
            const ReplayedList list(file);
        } catch (const Failure& error) {
            return error.what();
        } catch (const NothingRead& error) {
            return error.what();
        }
        return "taken";
    }

    std::string folder_;
    std::string file_;
};

/// A pipe that holds a text and whose writing end is closed.
base::FileDescriptor pipeWith(const std::string& text) {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    EXPECT_EQ(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    ::close(ends[1]);
    return base::FileDescriptor(ends[0]);
}

TEST_F(ReplayedListTest, AFileIsReadOnceAndShownAsItWas) {
    write("the list\n");
    const ReplayedList list(file_);
    write("another\n");
    ::unlink(file_.c_str());
    EXPECT_EQ(list.text(), "the list\n");
    EXPECT_EQ(devicelist::readDeviceListFile(list.path()), "the list\n");
    EXPECT_EQ(list.name(), file_);
}

TEST_F(ReplayedListTest, APipeWithoutANameIsRead) {
    const base::FileDescriptor pipe = pipeWith("through\n");
    const ReplayedList list("/dev/fd/" + std::to_string(pipe.get()));
    EXPECT_EQ(list.text(), "through\n");
    EXPECT_EQ(devicelist::readDeviceListFile(list.path()), "through\n");
}

TEST_F(ReplayedListTest, AMinusIsStandardInput) {
    const base::FileDescriptor before(::dup(STDIN_FILENO));
    ::dup2(pipeWith("from there\n").get(), STDIN_FILENO);
    const ReplayedList list("-");
    ::dup2(before.get(), STDIN_FILENO);
    EXPECT_EQ(list.text(), "from there\n");
    EXPECT_EQ(list.name(), "standard input");
}

TEST_F(ReplayedListTest, AFifoIsLeftForTheProvider) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    const ReplayedList list(file_);
    EXPECT_EQ(list.text(), std::nullopt);
    EXPECT_LT(::open(file_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC), 0) << "somebody reads it";
    const base::FileDescriptor both(::open(file_.c_str(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(::write(both.get(), "kept", 4), 4);
    const base::FileDescriptor reader(::open(list.path().c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, 8> content{};
    EXPECT_EQ(::read(reader.get(), content.data(), content.size()), 4);
}

TEST_F(ReplayedListTest, ProgramsThatAreStartedFindIt) {
    write("inherited\n");
    const ReplayedList list(file_);
    const std::string command = "test \"$(cat " + list.path() + ")\" = inherited";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST_F(ReplayedListTest, WhatCannotBeReadIsNamedInOneLine) {
    EXPECT_EQ(refusalOf(file_), "device list " + file_ + ": No such file or directory");
    EXPECT_EQ(refusalOf(folder_), "device list " + folder_ + ": Is a directory");
    write(std::string(devicelist::maximumListSize, '.'));
    EXPECT_EQ(refusalOf(file_), "taken");
    write(std::string(devicelist::maximumListSize + 1, '.'));
    EXPECT_EQ(refusalOf(file_), "device list " + file_ + ": it is longer than 16 MiB");
}

TEST_F(ReplayedListTest, ACompressedListIsRecognized) {
    write("\x1F\x8B\x08 and more");
    EXPECT_EQ(refusalOf(file_), "nothing was read: " + file_ +
                                    " is compressed with gzip. Unpacked it can be read:\n"
                                    "    zcat FILE | usbhcdiag run --devices -\n");
    write("\x1F");
    EXPECT_EQ(refusalOf(file_), "taken");
}

}  // namespace
}  // namespace usbhcdiag
