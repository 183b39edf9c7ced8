// SPDX-License-Identifier: MIT
#include "diag/DebugLogFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/LogFolder.h"

namespace Pegasus {
namespace {

class DebugLogFile : public testing::Test {
protected:
    static std::string content(const char* name) {
        std::ifstream file(name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    // The descriptor that the next open() returns: higher if a file was left open.
    static int nextFreeNumber() {
        const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
        close(file);
        return file;
    }

    LogFolder folder_;
};

TEST_F(DebugLogFile, SecondTextIsAppendedToTheFirst) {
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

TEST_F(DebugLogFile, NewFileRespectsTheUmaskOfTheProcess) {
    const mode_t before = umask(027);
    appendToLogFile("log", "a");
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat("log", &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(DebugLogFile, EmptyNameLogsNothing) {
    appendToLogFile("", "a");
    EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(DebugLogFile, EmptyTextCreatesAnEmptyFile) {
    appendToLogFile("log", "");
    EXPECT_EQ(access("log", F_OK), 0);
    EXPECT_EQ(content("log"), "");
}

TEST_F(DebugLogFile, FileThatCannotBeOpenedIsIgnored) {
    ASSERT_EQ(mkdir("log", 0700), 0);
    appendToLogFile("log", "a");
    appendToLogFile("no-such-folder/log", "a");
    EXPECT_NE(access("no-such-folder", F_OK), 0);
}

TEST_F(DebugLogFile, FileThatCannotBeWrittenIsIgnoredAndClosed) {
    const int before = nextFreeNumber();
    appendToLogFile("/dev/full", "a");
    EXPECT_EQ(nextFreeNumber(), before);
}

TEST_F(DebugLogFile, FifoWithoutReaderDoesNotBlockAndReceivesNothing) {
    ASSERT_EQ(mkfifo("log", 0600), 0);
    appendToLogFile("log", "a");
    const int reader = open("log", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(DebugLogFile, NothingStaysOpen) {
    const int before = nextFreeNumber();
    appendToLogFile("log", "a");
    EXPECT_EQ(nextFreeNumber(), before);
}

TEST_F(DebugLogFile, LongTextIsWrittenCompletely) {
    const std::string text(1 << 20, 'x');
    appendToLogFile("log", text.c_str());
    EXPECT_EQ(content("log"), text);
}

}  // namespace
}  // namespace Pegasus
