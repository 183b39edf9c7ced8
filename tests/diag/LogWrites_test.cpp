// SPDX-License-Identifier: MIT
// The log where write() does not do all that it is asked at once. A program of its own, since it takes
// the place of the C library's write().
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "diag/DebugLogFile.h"
#include "tests/support/LogFolder.h"

namespace {

/// What becomes of the next calls of write().
int interruptedWrites = 0;
int failingWrites = 0;
std::size_t mostBytes = SIZE_MAX;
int writes = 0;

ssize_t failWith(int error) {
    errno = error;
    return -1;
}

}  // namespace

extern "C" ssize_t write(int file, const void* bytes, std::size_t size) {
    ++writes;
    if (interruptedWrites > 0) {
        --interruptedWrites;
        return failWith(EINTR);
    }
    if (failingWrites > 0) {
        --failingWrites;
        return failWith(EIO);
    }
    return syscall(SYS_write, file, bytes, size < mostBytes ? size : mostBytes);
}

namespace Pegasus {
namespace {

class LogWrites : public testing::Test {
protected:
    ~LogWrites() override {
        interruptedWrites = 0;
        failingWrites = 0;
        mostBytes = SIZE_MAX;
    }

    static std::string content() {
        std::ifstream file("log", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    LogFolder folder_;
};

TEST_F(LogWrites, InterruptedWriteIsTriedAgain) {
    interruptedWrites = 2;
    writes = 0;
    appendToLogFile("log", "text\n");
    EXPECT_EQ(writes, 3);
    EXPECT_EQ(content(), "text\n");
}

TEST_F(LogWrites, ShortWriteIsContinued) {
    mostBytes = 2;
    appendToLogFile("log", "text\n");
    EXPECT_EQ(content(), "text\n");
}

TEST_F(LogWrites, FailedWriteIsNotTriedAgain) {
    failingWrites = 1;
    writes = 0;
    appendToLogFile("log", "text\n");
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(content(), "");
}

}  // namespace
}  // namespace Pegasus
