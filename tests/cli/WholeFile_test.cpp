// SPDX-License-Identifier: MIT
#include "cli/WholeFile.h"

#include <signal.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "cli/Errors.h"

namespace usbhcdiag {
namespace {

class WholeFileTest : public testing::Test {
protected:
    WholeFileTest() {
        std::string pattern = testing::TempDir() + "whole-file-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
        path_ = folder_ + "/file";
    }
    ~WholeFileTest() override { std::filesystem::remove_all(folder_); }

    std::string content() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::size_t files() const {
        const std::filesystem::directory_iterator all(folder_);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    static std::string complaint(const std::string& path, std::string_view text) {
        try {
            writeWholeFile(path, text);
        } catch (const Failure& error) {
            return error.what();
        }
        return "(none)";
    }

    std::string folder_;
    std::string path_;
};

TEST_F(WholeFileTest, TakesThePlaceOfTheOldOne) {
    const std::string text("a\0\r\n\xff", 5);
    for (const std::string& written :
         {std::string("longer than the next one"), text, std::string()}) {
        writeWholeFile(path_, written);
        EXPECT_EQ(content(), written);
    }
    EXPECT_EQ(files(), 1U);
}

TEST_F(WholeFileTest, ReadersOfTheOldOneKeepIt) {
    writeWholeFile(path_, "old");
    std::ifstream reader(path_);
    writeWholeFile(path_, "new");
    std::string read;
    reader >> read;
    EXPECT_EQ(read, "old");
}

TEST_F(WholeFileTest, TheUmaskDecidesWhoMayReadIt) {
    for (const mode_t mask : {0077, 0022, 0027}) {
        const mode_t before = ::umask(mask);
        writeWholeFile(path_, "text");
        EXPECT_EQ(::umask(before), mask);
        struct stat facts {};
        ASSERT_EQ(::stat(path_.c_str(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 07777U, 0666U & ~mask);
    }
}

TEST_F(WholeFileTest, WhatFailsLeavesNothingBehindAndTheOldOneAsItWas) {
    writeWholeFile(path_, "old");
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const struct rlimit small = {3, before.rlim_max};
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string said = complaint(path_, "much longer");
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    ::signal(SIGXFSZ, handler);
    EXPECT_EQ(said, path_ + " cannot be written: File too large");
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(files(), 1U);
}

TEST_F(WholeFileTest, ALinkStays) {
    const std::string link = folder_ + "/link";
    writeWholeFile(path_, "old");
    std::filesystem::create_symlink("file", link);
    writeWholeFile(link, "new");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(content(), "new");
    EXPECT_EQ(files(), 2U);
}

TEST_F(WholeFileTest, WhatIsNoFileStaysWhatItIs) {
    ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0);
    const std::string reason =
        " cannot be written: it is no regular file. Without --output standard output is written";
    EXPECT_EQ(complaint(path_, "text"), path_ + reason);
    EXPECT_TRUE(std::filesystem::is_fifo(path_));
    EXPECT_EQ(complaint(folder_, "text"), folder_ + " cannot be written: Is a directory");
    EXPECT_EQ(complaint(folder_ + "/none/file", "text"),
              folder_ + "/none/file cannot be written: No such file or directory");
    EXPECT_EQ(files(), 1U);
}

}  // namespace
}  // namespace usbhcdiag
