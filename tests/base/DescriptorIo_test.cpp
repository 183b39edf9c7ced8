// SPDX-License-Identifier: MIT
#include "base/DescriptorIo.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <thread>

#include <gtest/gtest.h>

#include "base/FileDescriptor.h"

namespace base {
namespace {

FileDescriptor fileOf(const std::string& content) {
    FileDescriptor file(memfd_create("test", MFD_CLOEXEC));
    EXPECT_TRUE(writeAll(file.get(), content));
    lseek(file.get(), 0, SEEK_SET);
    return file;
}

struct Pipe {
    Pipe() {
        std::array<int, 2> ends = {-1, -1};
        EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
        out = FileDescriptor(ends[0]);
        in = FileDescriptor(ends[1]);
    }
    FileDescriptor out;
    FileDescriptor in;
};

TEST(DescriptorPath, leadsToTheFile) {
    const FileDescriptor file = fileOf("text");
    const FileDescriptor again(open(descriptorPath(file.get()).c_str(), O_RDONLY | O_CLOEXEC));
    std::string content;
    EXPECT_TRUE(readUpTo(again.get(), 100, content));
    EXPECT_EQ(content, "text");
}

TEST(ReadUpTo, readsToTheEndOrTheLimit) {
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{9}, std::size_t{10}, std::size_t{11}}) {
        const FileDescriptor file = fileOf(std::string(size, 'x'));
        std::string content = "begin ";
        EXPECT_TRUE(readUpTo(file.get(), 10, content));
        EXPECT_EQ(content, "begin " + std::string(std::min<std::size_t>(size, 10), 'x'));
    }
}

TEST(ReadUpTo, readsMoreThanOneStep) {
    const std::string text = std::string(65536, 'a') + std::string(65536, 'b') + "c";
    for (const std::size_t limit : {text.size() - 1, text.size(), text.size() + 1}) {
        const FileDescriptor file = fileOf(text);
        std::string content;
        EXPECT_TRUE(readUpTo(file.get(), limit, content));
        EXPECT_EQ(content, text.substr(0, limit));
    }
}

TEST(ReadUpTo, putsPartsTogether) {
    Pipe pipe;
    std::thread writer([&pipe] {
        for (const char* part : {"one ", "two ", "three"}) {
            EXPECT_TRUE(writeAll(pipe.in.get(), part));
            std::this_thread::yield();
        }
        pipe.in.close();
    });
    std::string content;
    EXPECT_TRUE(readUpTo(pipe.out.get(), 100, content));
    writer.join();
    EXPECT_EQ(content, "one two three");
}

TEST(ReadUpTo, keepsWhatCameBeforeAFailure) {
    Pipe pipe;
    ASSERT_EQ(fcntl(pipe.out.get(), F_SETFL, O_NONBLOCK), 0);
    ASSERT_TRUE(writeAll(pipe.in.get(), "text"));
    std::string content;
    EXPECT_FALSE(readUpTo(pipe.out.get(), 100, content));
    EXPECT_EQ(errno, EAGAIN);
    EXPECT_EQ(content, "text");
}

TEST(WriteAll, writesMoreThanAPipeHolds) {
    Pipe pipe;
    const std::string text(std::size_t{1} << 20, 'x');
    std::string content;
    std::thread reader([&] { EXPECT_TRUE(readUpTo(pipe.out.get(), text.size() + 1, content)); });
    EXPECT_TRUE(writeAll(pipe.in.get(), text));
    pipe.in.close();
    reader.join();
    EXPECT_EQ(content, text);
}

TEST(WriteAll, aPartIsNotAll) {
    Pipe pipe;
    ASSERT_EQ(fcntl(pipe.in.get(), F_SETFL, O_NONBLOCK), 0);
    EXPECT_FALSE(writeAll(pipe.in.get(), std::string(std::size_t{1} << 20, 'x')));
    EXPECT_EQ(errno, EAGAIN);
}

TEST(WriteAll, saysWhyNot) {
    EXPECT_TRUE(writeAll(-1, ""));
    EXPECT_FALSE(writeAll(-1, "text"));
    EXPECT_EQ(errno, EBADF);
}

}  // namespace
}  // namespace base
