// SPDX-License-Identifier: MIT
#include "diag/DebugLogFile.h"

#include "tests/support/LogFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <iterator>
#include <string>

namespace Pegasus {
namespace {

class DebugLogFile : public testing::Test {
protected:
    static std::string content(const char* name) {
        std::ifstream file(name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    LogFolder folder_;
};

TEST_F(DebugLogFile, TwoTextsStandOneBehindTheOther) {
    appendToLogFile("log", "a");
    appendToLogFile("log", "b\n");
    EXPECT_EQ(content("log"), "ab\n");
}

TEST_F(DebugLogFile, ExistingFileIsExtendedNeverTruncated) {
    std::ofstream("log") << "before\n";
    appendToLogFile("log", "after\n");
    EXPECT_EQ(content("log"), "before\nafter\n");
}

TEST_F(DebugLogFile, NewFileHasPermissions0664WithoutAnUmask) {
    const mode_t before = umask(0);
    appendToLogFile("log", "a");
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat("log", &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0664U);
}

TEST_F(DebugLogFile, UmaskOfTheProcessCounts) {
    const mode_t before = umask(027);
    appendToLogFile("log", "a");
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat("log", &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(DebugLogFile, EmptyNameLogsNothing) {
    appendToLogFile("", "a");
    EXPECT_NE(access("log", F_OK), 0);
    EXPECT_EQ(content(""), "");
}

TEST_F(DebugLogFile, EmptyTextMakesTheFileAlone) {
    appendToLogFile("log", "");
    EXPECT_EQ(access("log", F_OK), 0);
    EXPECT_EQ(content("log"), "");
}

TEST_F(DebugLogFile, FileThatCannotBeOpenedIsPassedOver) {
    ASSERT_EQ(mkdir("log", 0700), 0);
    appendToLogFile("log", "a");
    appendToLogFile("no-such-folder/log", "a");
    EXPECT_NE(access("no-such-folder", F_OK), 0);
}

TEST_F(DebugLogFile, FileThatCannotBeWrittenIsPassedOver) {
    appendToLogFile("/dev/full", "a");
}

TEST_F(DebugLogFile, FifoWithoutReaderDoesNotBlock) {
    ASSERT_EQ(mkfifo("log", 0600), 0);
    appendToLogFile("log", "a");
}

TEST_F(DebugLogFile, NothingStaysOpen) {
    appendToLogFile("log", "a");
    const int first = open("/dev/null", O_RDONLY);
    close(first);
    for (int i = 0; i < 100; ++i) {
        appendToLogFile("log", "a");
    }
    const int later = open("/dev/null", O_RDONLY);
    close(later);
    EXPECT_EQ(later, first);
}

TEST_F(DebugLogFile, LongTextArrivesWhole) {
    const std::string text(1 << 20, 'x');
    appendToLogFile("log", text.c_str());
    EXPECT_EQ(content("log"), text);
}

}  // namespace
}  // namespace Pegasus
