// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/SocketOwners.h"

#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/servers/cimhost/protocol/LocalConnection.h"

namespace cimhost {
namespace {

class SocketOwnersTest : public testing::Test {
protected:
    const SocketOwners owners_;
    LocalConnection connection_;
};

TEST_F(SocketOwnersTest, TellsWhoMadeTheOtherEnd) {
    connection_.connectOwn();
    EXPECT_EQ(owners_.ownerOfPeer(connection_.accepted()), geteuid());
}

TEST_F(SocketOwnersTest, TellsItOfAnotherUser) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    connection_.connectAsOtherUser();
    EXPECT_EQ(owners_.ownerOfPeer(connection_.accepted()), otherUser);
}

TEST_F(SocketOwnersTest, AClientMayUseAnIpv6SocketForAnIpv4Address) {
    connection_.connectOwn(AF_INET6);
    if (connection_.accepted() < 0) {
        GTEST_SKIP() << "no IPv6 here";
    }
    EXPECT_EQ(owners_.ownerOfPeer(connection_.accepted()), geteuid());
}

TEST_F(SocketOwnersTest, TellsWhoMadeTheOtherEndOfAnIpv6Connection) {
    const auto connection = ipv6Connection();
    if (!connection) {
        GTEST_SKIP() << "no IPv6 here";
    }
    connection->connectOwn();
    EXPECT_EQ(owners_.ownerOfPeer(connection->accepted()), geteuid());
    connection->other().close();
    EXPECT_EQ(owners_.ownerOfPeer(connection->accepted()), std::nullopt);
}

TEST_F(SocketOwnersTest, TellsItOfAnotherUserOfAnIpv6Connection) {
    const auto connection = ipv6Connection();
    if (!connection || geteuid() != 0) {
        GTEST_SKIP() << "no IPv6 here, or not root, who alone can become another user";
    }
    connection->connectAsOtherUser();
    EXPECT_EQ(owners_.ownerOfPeer(connection->accepted()), otherUser);
}

// The kernel says of a socket without a process that it is root's.
TEST_F(SocketOwnersTest, WhoHasClosedIsNobody) {
    connection_.connectOwn();
    connection_.other().close();
    EXPECT_EQ(owners_.ownerOfPeer(connection_.accepted()), std::nullopt);
}

TEST_F(SocketOwnersTest, WhoHasBeenResetIsNobody) {
    connection_.connectOwn();
    const linger none{1, 0};
    setsockopt(connection_.other().get(), SOL_SOCKET, SO_LINGER, &none, sizeof none);
    connection_.other().close();
    EXPECT_EQ(owners_.ownerOfPeer(connection_.accepted()), std::nullopt);
}

TEST_F(SocketOwnersTest, WhoHasClosedTheSendingSideIsStillKnown) {
    connection_.connectOwn();
    shutdown(connection_.other().get(), SHUT_WR);
    EXPECT_EQ(owners_.ownerOfPeer(connection_.accepted()), geteuid());
}

TEST_F(SocketOwnersTest, WhatIsNotConnectedHasNoPeer) {
    const base::FileDescriptor lonely(socket(AF_INET, SOCK_STREAM, 0));
    EXPECT_EQ(owners_.ownerOfPeer(lonely.get()), std::nullopt);
    EXPECT_EQ(owners_.ownerOfPeer(-1), std::nullopt);
    int pair[2] = {};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, pair), 0);
    const base::FileDescriptor one(pair[0]);
    const base::FileDescriptor two(pair[1]);
    EXPECT_EQ(owners_.ownerOfPeer(one.get()), std::nullopt);
}

TEST_F(SocketOwnersTest, ThreadsMayAskAtOnce) {
    connection_.connectOwn();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this] {
            for (int round = 0; round < 100; ++round) {
                EXPECT_EQ(owners_.ownerOfPeer(connection_.accepted()), geteuid());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(SocketOwners, WhereTheKernelCannotBeAskedTheReasonIsTold) {
    std::string reason = "none";
    const bool done = withoutNetwork([&] {
        try {
            const SocketOwners owners;
        } catch (const std::runtime_error& failure) {
            reason = failure.what();
        }
    });
    if (!done) {
        GTEST_SKIP() << "only root can make a network";
    }
    EXPECT_EQ(reason, "no connection to try it out with: Network is unreachable");
}

}  // namespace
}  // namespace cimhost
