// SPDX-License-Identifier: MIT
#include "wire/http/SocketStream.h"

#include <sys/socket.h>

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include <gtest/gtest.h>

using namespace wire;
using std::chrono::milliseconds;

namespace {

/// A stream and the other end of its connection.
class SocketStreamTest : public testing::Test {
protected:
    SocketStreamTest() {
        std::array<int, 2> ends{};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
        stream_.emplace(base::FileDescriptor(ends[0]), milliseconds(10));
        peer_ = base::FileDescriptor(ends[1]);
    }

    std::string read() {
        std::array<char, 16> buffer{};
        return {buffer.data(), stream_->read(buffer.data(), buffer.size())};
    }

    std::optional<StreamEnd> endOfRead() {
        try {
            read();
            return std::nullopt;
        } catch (const StreamEnded& end) {
            return end.why;
        }
    }

    std::optional<SocketStream> stream_;
    base::FileDescriptor peer_;
};

}  // namespace

TEST_F(SocketStreamTest, readsWhatIsThere) {
    ASSERT_EQ(send(peer_.get(), "abc", 3, 0), 3);
    EXPECT_EQ(read(), "abc");
}

TEST_F(SocketStreamTest, tellsTheEndFromTheDeadline) {
    stream_->setDeadline(milliseconds(30));
    EXPECT_EQ(endOfRead(), StreamEnd::timeout);
    stream_->setDeadline(milliseconds(10'000));
    peer_.close();
    EXPECT_EQ(endOfRead(), StreamEnd::closed);
}

TEST_F(SocketStreamTest, aPeerThatDripsDoesNotMoveTheDeadline) {
    std::thread dripping([this] {
        while (send(peer_.get(), "x", 1, MSG_NOSIGNAL) == 1) {
            std::this_thread::sleep_for(milliseconds(5));
        }
    });
    stream_->setDeadline(milliseconds(100));
    const auto start = SocketStream::Clock::now();
    try {
        while (true) {
            read();
        }
    } catch (const StreamEnded& end) {
        EXPECT_EQ(end.why, StreamEnd::timeout);
    }
    EXPECT_LT(SocketStream::Clock::now() - start, std::chrono::seconds(5));
    stream_.reset();
    dripping.join();
}

TEST_F(SocketStreamTest, aPeerThatDoesNotReadEndsAtTheDeadline) {
    const std::string large(16UL * 1024 * 1024, 'x');
    stream_->setDeadline(milliseconds(50));
    try {
        stream_->write("head", large);
        FAIL();
    } catch (const StreamEnded& end) {
        EXPECT_EQ(end.why, StreamEnd::timeout);
    }
}

TEST_F(SocketStreamTest, writesBothPartsWhole) {
    const std::string head(100'000, 'h');
    const std::string body(900'000, 'b');
    std::string received;
    std::thread reading([&] {
        std::array<char, 4096> buffer{};
        for (ssize_t count = 0; (count = recv(peer_.get(), buffer.data(), buffer.size(), 0)) > 0;) {
            received.append(buffer.data(), static_cast<std::size_t>(count));
        }
    });
    stream_->write(head, body);
    stream_.reset();
    reading.join();
    EXPECT_TRUE(received == head + body);
}

TEST_F(SocketStreamTest, writingToNobodyFails) {
    peer_.close();
    try {
        stream_->write("x");
        stream_->write("x");
        FAIL();
    } catch (const StreamEnded& end) {
        EXPECT_EQ(end.why, StreamEnd::failed);
    }
}

TEST_F(SocketStreamTest, drainReadsUntilThePeerCloses) {
    ASSERT_EQ(send(peer_.get(), "rest", 4, 0), 4);
    std::thread closing([this] {
        std::array<char, 1> buffer{};
        EXPECT_EQ(recv(peer_.get(), buffer.data(), buffer.size(), 0), 0)
            << "the sending side is closed";
        peer_.close();
    });
    stream_->setDeadline(milliseconds(10'000));
    stream_->drain();
    closing.join();
    EXPECT_EQ(endOfRead(), StreamEnd::closed);
}
