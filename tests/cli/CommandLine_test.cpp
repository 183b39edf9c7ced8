// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include <gtest/gtest.h>

#include "cli/Errors.h"

namespace usbhcdiag {
namespace {

Invocation invocation(const std::vector<std::string>& words) {
    return std::get<Invocation>(readCommandLine(words));
}

std::string complaint(const std::vector<std::string>& words) {
    try {
        readCommandLine(words);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(none)";
}

TEST(CommandLine, TakesEachCommandAlone) {
    for (const CommandSyntax& syntax : commandTable()) {
        EXPECT_EQ(invocation({syntax.name}).command, syntax.command) << syntax.name;
    }
}

TEST(CommandLine, TakesOptionsOnBothSidesOfTheCommand) {
    const Invocation found = invocation(
        {"--server", "http://h:1", "run", "--element=e 1", "--credentials", "secret", "-j"});
    EXPECT_EQ(found.command, Command::run);
    EXPECT_EQ(found.server, "http://h:1");
    EXPECT_EQ(found.element, "e 1");
    EXPECT_EQ(found.credentials, "secret");
    EXPECT_EQ(found.devices, std::nullopt);
    EXPECT_TRUE(found.json);
}

TEST(CommandLine, TakesShortOptions) {
    const Invocation found = invocation({"run", "-d", "list", "-eusb1"});
    EXPECT_EQ(found.devices, "list");
    EXPECT_EQ(found.element, "usb1");
    EXPECT_FALSE(found.json);
}

TEST(CommandLine, TakesWordsAfterTwoDashesAsOperands) {
    EXPECT_EQ(complaint({"run", "--", "--json"}), "`run` does not take \"--json\"");
}

TEST(CommandLine, FindsHelpAndItsCommandInEveryOrder) {
    EXPECT_EQ(std::get<HelpRequest>(readCommandLine({"--help"})).command, std::nullopt);
    EXPECT_EQ(std::get<HelpRequest>(readCommandLine({"-h"})).command, std::nullopt);
    EXPECT_EQ(std::get<HelpRequest>(readCommandLine({"help"})).command, std::nullopt);
    EXPECT_EQ(std::get<HelpRequest>(readCommandLine({"help", "mof"})).command, Command::mof);
    EXPECT_EQ(std::get<HelpRequest>(readCommandLine({"run", "--help"})).command, Command::run);
    EXPECT_EQ(std::get<HelpRequest>(readCommandLine({"--help", "clear"})).command, Command::clear);
}

TEST(CommandLine, FindsVersion) {
    EXPECT_TRUE(std::holds_alternative<VersionRequest>(readCommandLine({"--version"})));
    EXPECT_TRUE(std::holds_alternative<VersionRequest>(readCommandLine({"-V"})));
}

TEST(CommandLine, NamesTheWordAtFault) {
    EXPECT_EQ(complaint({}), "which command?");
    EXPECT_EQ(complaint({"walk"}), "there is no command \"walk\"");
    EXPECT_EQ(complaint({"help", "walk"}), "there is no command \"walk\"");
    EXPECT_EQ(complaint({"run", "--fast"}), "there is no option --fast");
    EXPECT_EQ(complaint({"run", "-x"}), "there is no option -x");
    EXPECT_EQ(complaint({"run", "--element"}), "option --element needs an argument");
    EXPECT_EQ(complaint({"run", "-e"}), "option -e needs an argument");
    EXPECT_EQ(complaint({"run", "--json=yes"}), "option --json=yes takes no argument");
    EXPECT_EQ(complaint({"run", "now"}), "`run` does not take \"now\"");
    EXPECT_EQ(complaint({"tests", "--element", "e"}), "`tests` does not take --element");
    EXPECT_EQ(complaint({"mof", "-j"}), "`mof` does not take --json");
}

TEST(CommandLine, RefusesAnOptionGivenTwiceOrEmpty) {
    EXPECT_EQ(complaint({"run", "-e", "a", "--element", "b"}), "option --element is given twice");
    EXPECT_EQ(complaint({"run", "--devices="}), "the argument of --devices is empty");
}

TEST(CommandLine, RefusesWhatContradicts) {
    EXPECT_EQ(complaint({"run", "--server", "u", "--devices", "f"}),
              "--devices shows a list to a private server only; the server of --server reads its "
              "own machine's list");
    EXPECT_EQ(complaint({"run", "--credentials", "f"}),
              "--credentials is for the server of --server, which is missing");
}

}  // namespace
}  // namespace usbhcdiag
