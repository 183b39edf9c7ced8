// SPDX-License-Identifier: MIT
// The command line of cimhost.
#include "servers/cimhost/program/Options.h"

#include <string>

#include <gtest/gtest.h>

#include "options/UsageError.h"

namespace cimhost {
namespace {

std::string error(const std::vector<std::string>& arguments) {
    try {
        parseOptions(arguments);
    } catch (const options::UsageError& error) {
        return error.what();
    }
    return "no error";
}

TEST(OptionsTest, WithoutArgumentsTheInstalledFilesAreServedOnAFreeLoopbackPort) {
    const Options options = parseOptions({});
    EXPECT_EQ(options.address, "127.0.0.1");
    EXPECT_EQ(options.port, 0);
    EXPECT_TRUE(options.mofFiles.empty());
    EXPECT_FALSE(options.provider || options.devices || options.credentials);
    EXPECT_FALSE(options.open);
    EXPECT_FALSE(options.help || options.version || options.completion);
}

TEST(OptionsTest, EveryOptionIsRead) {
    const Options options = parseOptions({"--address", "::1", "--port", "5988", "--mof", "a.mof",
                                          "--mof=b=c.mof", "--provider", "x.so", "--devices=list",
                                          "--credentials", "users", "--help", "--version"});
    EXPECT_EQ(options.address, "::1");
    EXPECT_EQ(options.port, 5988);
    EXPECT_EQ(options.mofFiles, (std::vector<std::string>{"a.mof", "b=c.mof"}));
    EXPECT_EQ(options.provider, "x.so");
    EXPECT_EQ(options.devices, "list");
    EXPECT_EQ(options.credentials, "users");
    EXPECT_TRUE(options.help && options.version);
}

TEST(OptionsTest, EverybodyIsLetInOrThoseWithAPasswordNotBoth) {
    EXPECT_TRUE(parseOptions({"--open"}).open);
    EXPECT_EQ(error({"--open", "--credentials", "users"}),
              "--open and --credentials exclude each other");
}

TEST(OptionsTest, PortsHaveSixteenBits) {
    EXPECT_EQ(parseOptions({"--port", "0"}).port, 0);
    EXPECT_EQ(parseOptions({"--port", "65535"}).port, 65535);
    EXPECT_EQ(error({"--port", "65536"}),
              "\"65536\" is no port: a number from 0 to 65535 is needed");
    EXPECT_EQ(error({"--port", "-1"}), "\"-1\" is no port: a number from 0 to 65535 is needed");
    EXPECT_EQ(error({"--port", "1 "}), "\"1 \" is no port: a number from 0 to 65535 is needed");
    EXPECT_EQ(error({"--port", "99999999999999999999"}),
              "\"99999999999999999999\" is no port: a number from 0 to 65535 is needed");
}

TEST(OptionsTest, WrongUsageIsNamed) {
    EXPECT_EQ(error({"--prot", "1"}), "there is no option --prot");
    EXPECT_EQ(error({"--dev", "list"}), "there is no option --dev");
    EXPECT_EQ(error({"list"}), "`cimhost` does not take \"list\"");
    EXPECT_EQ(error({"--help=yes"}), "option --help=yes takes no argument");
    EXPECT_EQ(error({"--mof"}), "option --mof needs an argument");
    EXPECT_EQ(error({"--port="}), "the argument of --port is empty");
    EXPECT_EQ(error({"--mof", "a", "--mof", ""}), "the argument of --mof is empty");
    EXPECT_EQ(error({"--port", "1", "--port=1"}), "option --port is given twice");
}

TEST(OptionsTest, HelpAndVersionHaveALetter) {
    EXPECT_TRUE(parseOptions({"-h"}).help);
    EXPECT_TRUE(parseOptions({"-V"}).version);
}

TEST(OptionsTest, ACompletionIsForAShell) {
    EXPECT_EQ(parseOptions({"--completion", "zsh"}).completion, "zsh");
}

}  // namespace
}  // namespace cimhost
