// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/RequestOrigin.h"

#include <unistd.h>

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "servers/cimhost/protocol/CimHeaders.h"

namespace cimhost {
namespace {

/// "taken", or the status and the reason.
std::string outcome(const wire::HttpFields& fields) {
    try {
        requireCimClient(fields);
        return "taken";
    } catch (const RequestRefused& refusal) {
        return std::to_string(refusal.status()) + " " + refusal.what();
    }
}

std::string outcomeForHost(const std::string& host) {
    return outcome({{"Host", host}});
}

TEST(RequestOrigin, LoopbackAddressesAndLocalhostAreOwnHosts) {
    for (const char* const host : {"127.0.0.1", "127.0.0.1:5988", "127.1.2.3:1", "localhost",
                                   "LocalHost:5988", "[::1]", "[::1]:5988", "localhost:"}) {
        EXPECT_EQ(outcomeForHost(host), "taken") << host;
    }
    EXPECT_EQ(outcome({}), "taken");
}

TEST(RequestOrigin, TheNameOfThisMachineIsOwn) {
    std::array<char, 256> buffer{};
    ASSERT_EQ(gethostname(buffer.data(), buffer.size() - 1), 0);
    const std::string name = buffer.data();
    if (name.find_first_of("(: ") != std::string::npos) {
        GTEST_SKIP() << "nobody named this machine";
    }
    EXPECT_EQ(outcomeForHost(name), "taken");
    EXPECT_EQ(outcomeForHost(name + ":5988"), "taken");
    EXPECT_EQ(outcomeForHost(name.substr(0, name.find('.'))), "taken");
    EXPECT_NE(outcomeForHost(name + ".evil.example"), "taken");
}

TEST(RequestOrigin, OtherHostsAreRefused) {
    EXPECT_EQ(outcomeForHost("evil.example"),
              "403 the Host \"evil.example\" is neither a loopback address nor \"localhost\" nor "
              "the name of this machine");
    for (const char* const host :
         {"", ":5988", "127.evil.example", "127.0.0.1.evil.example", "localhost.evil.example",
          "10.0.0.1", "0.0.0.0", "[::2]", "[::1", "::1", "[::1]x", "127.0.0.1:x", "127.0.0.1:80:80",
          "localhost, evil.example", "2130706433", "0x7f.1", "localhost@evil.example", "127.1"}) {
        EXPECT_EQ(outcomeForHost(host).substr(0, 3), "403") << host;
    }
    EXPECT_EQ(outcome({{"Host", "localhost"}, {"Host", "evil.example"}}).substr(0, 3), "403");
}

TEST(RequestOrigin, WhatBrowsersSendIsRefused) {
    for (const char* const field : {"Origin", "origin", "Sec-Fetch-Site", "sec-fetch-mode",
                                    "SEC-FETCH-DEST", "Sec-Fetch-User"}) {
        EXPECT_EQ(outcome({{"Host", "localhost"}, {field, "null"}}),
                  std::string("403 requests of browsers (") + field + ") are refused");
    }
    EXPECT_EQ(outcome({{"Original", "x"}, {"Sec-Other", "x"}}), "taken");
}

}  // namespace
}  // namespace cimhost
