// SPDX-License-Identifier: MIT
#include "base/FileDescriptor.h"

#include <fcntl.h>

#include <type_traits>

#include <gtest/gtest.h>

namespace base {

namespace {

static_assert(!std::is_copy_constructible_v<FileDescriptor>);
static_assert(!std::is_copy_assignable_v<FileDescriptor>);
static_assert(std::is_nothrow_move_constructible_v<FileDescriptor>);
static_assert(std::is_nothrow_move_assignable_v<FileDescriptor>);

int openNull() {
    return ::open("/dev/null", O_RDONLY | O_CLOEXEC);
}

bool isOpen(int fd) {
    return ::fcntl(fd, F_GETFD) >= 0;
}

TEST(FileDescriptor, closesWithItsOwner) {
    int fd = -1;
    {
        const FileDescriptor file(openNull());
        fd = file.get();
        EXPECT_TRUE(file.isOpen());
        EXPECT_TRUE(isOpen(fd));
    }
    EXPECT_FALSE(isOpen(fd));
}

TEST(FileDescriptor, mayOwnNone) {
    EXPECT_EQ(FileDescriptor().get(), -1);
    EXPECT_FALSE(FileDescriptor().isOpen());
    EXPECT_FALSE(FileDescriptor(::open("/no/such/file", O_RDONLY)).isOpen());
}

TEST(FileDescriptor, changesItsOwner) {
    FileDescriptor file(openNull());
    const int fd = file.get();
    FileDescriptor next(std::move(file));
    EXPECT_EQ(next.get(), fd);
    EXPECT_FALSE(file.isOpen());  // NOLINT(bugprone-use-after-move): what is left is the question
    EXPECT_TRUE(isOpen(fd));
}

TEST(FileDescriptor, closesAtOnceWhatAnotherReplaces) {
    FileDescriptor file(openNull());
    FileDescriptor other(openNull());
    const int replaced = file.get();
    const int kept = other.get();
    file = std::move(other);
    EXPECT_EQ(file.get(), kept);
    EXPECT_FALSE(isOpen(replaced));
    EXPECT_TRUE(isOpen(kept));
    EXPECT_FALSE(other.isOpen());  // NOLINT(bugprone-use-after-move): what is left is the question
}

TEST(FileDescriptor, survivesBeingAssignedToItself) {
    FileDescriptor file(openNull());
    const int fd = file.get();
    FileDescriptor& same = file;
    file = std::move(same);
    EXPECT_EQ(file.get(), fd);
    EXPECT_TRUE(isOpen(fd));
}

TEST(FileDescriptor, closesEarlyAndOnce) {
    FileDescriptor file(openNull());
    const int fd = file.get();
    file.close();
    EXPECT_FALSE(file.isOpen());
    EXPECT_FALSE(isOpen(fd));
    const FileDescriptor successor(openNull());
    ASSERT_EQ(successor.get(), fd) << "the lowest free number is given again";
    file.close();
    EXPECT_TRUE(isOpen(fd));
}

TEST(FileDescriptor, canBeLeftToTheCaller) {
    int fd = -1;
    {
        FileDescriptor file(openNull());
        fd = file.release();
        EXPECT_FALSE(file.isOpen());
    }
    EXPECT_TRUE(isOpen(fd));
    ::close(fd);
}

}  // namespace

}  // namespace base
