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
            "the URL of a CIM server reads http[s]://[user:password@]host[:port]: ";
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
    EXPECT_EQ(ServerUrl::parse("https://example.org").port, 5989);
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
    const std::string noScheme = "it must begin with https:// or http://";
    EXPECT_EQ(whatIsWrong("host:5988"), noScheme);
    EXPECT_EQ(whatIsWrong("ftp://host"), noScheme);
    EXPECT_EQ(whatIsWrong("file:///host"), noScheme);
    EXPECT_EQ(whatIsWrong(""), noScheme);
    EXPECT_EQ(whatIsWrong("http://"), "the host is missing");
    EXPECT_EQ(whatIsWrong("http://:5988"), "the host is missing");
    EXPECT_EQ(whatIsWrong("http://host:0"), "\"0\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host:65536"), "\"65536\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host:"), "\"\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host:x"), "\"x\" is not a port");
    EXPECT_EQ(whatIsWrong("http://host/cimom"), "nothing is expected after the port");
    EXPECT_EQ(whatIsWrong("http://[::1"), "the \"[\" is not closed");
    EXPECT_EQ(whatIsWrong("http://[::1]x"), "a port is expected after the \"]\"");
    EXPECT_EQ(whatIsWrong("https://good#evil"), "\"good#evil\" is not a host");
    EXPECT_EQ(whatIsWrong("http://me@host"), "a user is given without a password");
}

TEST(ServerUrl, knowsWhetherItIsEncrypted) {
    EXPECT_FALSE(ServerUrl::parse("http://example.org").isEncrypted);
    const ServerUrl url = ServerUrl::parse("https://me:secret@[::1]:1/");
    EXPECT_TRUE(url.isEncrypted);
    EXPECT_EQ(url.withoutCredentials(), "https://[::1]:1");
}
