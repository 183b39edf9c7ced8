// SPDX-License-Identifier: MIT
#include "wire/client/ServerUrl.h"

#include <stdexcept>

#include <gtest/gtest.h>

using namespace wire;

namespace {

std::string whatIsWrong(const std::string& url) {
    try {
        ServerUrl::parse(url);
        return "nothing";
    } catch (const std::invalid_argument& error) {
        const std::string begin =
            "the URL of a CIM server reads http://[user:password@]host[:port]: ";
        const std::string text = error.what();
        EXPECT_EQ(text.substr(0, begin.size()), begin);
        return text.substr(begin.size());
    }
}

}  // namespace

TEST(ServerUrl, readsHostAndPort) {
    const ServerUrl url = ServerUrl::parse("http://example.org:15988");
    EXPECT_EQ(url.host, "example.org");
    EXPECT_EQ(url.port, 15988);
    EXPECT_EQ(url.userAndPassword, "");
    EXPECT_EQ(url.withoutCredentials(), "http://example.org:15988");
}

TEST(ServerUrl, thePortHasADefault) {
    EXPECT_EQ(ServerUrl::parse("http://example.org").port, 5988);
    EXPECT_EQ(ServerUrl::parse("http://example.org/").host, "example.org");
}

TEST(ServerUrl, readsIpv6InBrackets) {
    const ServerUrl url = ServerUrl::parse("http://[::1]:99");
    EXPECT_EQ(url.host, "::1");
    EXPECT_EQ(url.port, 99);
    EXPECT_EQ(url.withoutCredentials(), "http://[::1]:99");
    EXPECT_EQ(ServerUrl::parse("http://[::1]").port, 5988);
}

TEST(ServerUrl, readsCredentialsAndKeepsThemOutOfMessages) {
    const ServerUrl url = ServerUrl::parse("http://me:s%40cret:x@host:1");
    EXPECT_EQ(url.userAndPassword, "me:s@cret:x");
    EXPECT_EQ(url.withoutCredentials(), "http://host:1");
    EXPECT_EQ(ServerUrl::parse("http://me:p@ss@host").userAndPassword, "me:p@ss");
}

TEST(ServerUrl, saysWhatIsWrong) {
    EXPECT_EQ(whatIsWrong("https://host"),
              "https is not supported; reach a remote server through a tunnel (ssh -L)");
    EXPECT_EQ(whatIsWrong("host:5988"), "it must begin with http://");
    EXPECT_EQ(whatIsWrong(""), "it must begin with http://");
    EXPECT_EQ(whatIsWrong("http://"), "the host is missing");
    EXPECT_EQ(whatIsWrong("http://:5988"), "the host is missing");
    EXPECT_EQ(whatIsWrong("http://host:0"), "\"0\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host:65536"), "\"65536\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host:"), "\"\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host:x"), "\"x\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host/cimom"), "nothing is expected after the port");
    EXPECT_EQ(whatIsWrong("http://[::1"), "the \"[\" is not closed");
    EXPECT_EQ(whatIsWrong("http://[::1]x"), "a port is expected after the \"]\"");
    EXPECT_EQ(whatIsWrong("http://me@host"), "a user is given without a password");
}

TEST(ServerUrl, knowsWhatStaysOnThisMachine) {
    for (const char* own :
         {"localhost", "LocalHost", "127.0.0.1", "127.255.3.4", "[::1]", "[0:0::1]"}) {
        EXPECT_TRUE(ServerUrl::parse(std::string("http://") + own).isLoopback()) << own;
    }
    for (const char* other :
         {"127.evil.example", "127.0.0.1.evil.example", "localhost.evil.example", "128.0.0.1",
          "[::2]", "[::127.0.0.1]", "127."}) {
        EXPECT_FALSE(ServerUrl::parse(std::string("http://") + other).isLoopback()) << other;
    }
}
