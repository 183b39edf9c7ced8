// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/UserGate.h"

#include <unistd.h>

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/servers/cimhost/protocol/LocalConnection.h"
#include "wire/http/PercentEncoding.h"

namespace cimhost {
namespace {

/// "admitted", or the status and the detail.
std::string outcome(const UserGate& gate, int socket) {
    const auto refusal = gate.refusal(socket);
    return refusal ? std::to_string(refusal->status) + " " +
                         wire::percentDecoded(
                             wire::findField(refusal->fields, "PGErrorDetail").value_or(""))
                   : "admitted";
}

TEST(UserGate, TheSameUserIsLetIn) {
    LocalConnection connection;
    connection.connectOwn();
    EXPECT_EQ(outcome(UserGate(), connection.accepted()), "admitted");
}

TEST(UserGate, AnotherUserIsNotAndIsCounted) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    LocalConnection connection;
    connection.connectAsOtherUser();
    const UserGate gate;
    testing::internal::CaptureStderr();
    EXPECT_EQ(outcome(gate, connection.accepted()),
              "403 this server answers its own user and root only, unless it is started with "
              "--credentials FILE or --open");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "cimhost: a connection of another user was refused; --credentials or --open would "
              "let it in (1 so far)\n");
}

TEST(UserGate, UsersOfIpv6AreToldApartToo) {
    const auto connection = ipv6Connection();
    if (!connection) {
        GTEST_SKIP() << "no IPv6 here";
    }
    connection->connectOwn();
    EXPECT_EQ(outcome(UserGate(), connection->accepted()), "admitted");
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    const auto foreign = ipv6Connection();
    ASSERT_NE(foreign, nullptr);
    foreign->connectAsOtherUser();
    testing::internal::CaptureStderr();
    EXPECT_EQ(outcome(UserGate(), foreign->accepted()).substr(0, 3), "403");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

TEST(UserGate, RootIsLetInByAnotherUsersServer) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    LocalConnection connection;
    connection.connectOwn();
    ASSERT_EQ(seteuid(otherUser), 0);
    const std::string admitted = outcome(UserGate(), connection.accepted());
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_EQ(admitted, "admitted");
}

TEST(UserGate, WhoIsNotKnownIsRefused) {
    LocalConnection connection;
    connection.connectOwn();
    connection.other().close();
    EXPECT_EQ(outcome(UserGate(), connection.accepted()),
              "403 the kernel does not tell whose connection this is; started with --credentials "
              "FILE or --open the server does not ask");
}

TEST(UserGate, WhereTheKernelDoesNotTellItSaysWhatToDo) {
    std::string reason = "none";
    const bool done = withoutNetwork([&] {
        try {
            const UserGate gate;
        } catch (const std::runtime_error& failure) {
            reason = failure.what();
        }
    });
    if (!done) {
        GTEST_SKIP() << "only root can make a network";
    }
    EXPECT_EQ(reason,
              "the kernel does not tell whose connections there are (no connection to try it out "
              "with: Network is unreachable), so that this user and root cannot be let in alone; "
              "start it with --credentials FILE to let in users with a password, or with --open to "
              "let in every local user");
}

}  // namespace
}  // namespace cimhost
