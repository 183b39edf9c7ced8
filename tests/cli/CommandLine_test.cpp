// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include <gtest/gtest.h>

#include "cli/Syntax.h"
#include "options/UsageError.h"

namespace usbhcdiag {
namespace {

Invocation invocation(const std::vector<std::string>& words) {
    return std::get<Invocation>(readCommandLine(words));
}

std::string complaint(const std::vector<std::string>& words) {
    try {
        readCommandLine(words);
    } catch (const options::UsageError& error) {
        return error.what();
    }
    return "(none)";
}

/// The name of the command that help is asked for.
std::string helpOn(const std::vector<std::string>& words) {
    const options::Command* command = std::get<HelpRequest>(readCommandLine(words)).command;
    return command == nullptr ? "everything" : command->name;
}

TEST(CommandLine, TakesEachCommandAlone) {
    EXPECT_EQ(invocation({"run"}).command, Command::run);
    EXPECT_EQ(invocation({"tests"}).command, Command::tests);
    EXPECT_EQ(invocation({"elements"}).command, Command::elements);
    EXPECT_EQ(invocation({"results"}).command, Command::results);
    EXPECT_EQ(invocation({"clear"}).command, Command::clear);
    EXPECT_EQ(invocation({"mof"}).command, Command::mof);
}

TEST(CommandLine, KnowsEveryCommandOfTheTable) {
    for (const options::Command& command : program().commands) {
        EXPECT_NO_THROW(readCommandLine({command.name, "--help"})) << command.name;
        if (command.operands.empty()) {
            EXPECT_NO_THROW(readCommandLine({command.name})) << command.name;
        }
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
    EXPECT_EQ(helpOn({"--help"}), "everything");
    EXPECT_EQ(helpOn({"-h"}), "everything");
    EXPECT_EQ(helpOn({"help"}), "everything");
    EXPECT_EQ(helpOn({"help", "mof"}), "mof");
    EXPECT_EQ(helpOn({"help", "help"}), "help");
    EXPECT_EQ(helpOn({"help", "--help"}), "help");
    EXPECT_EQ(helpOn({"run", "--help"}), "run");
    EXPECT_EQ(helpOn({"--help", "clear"}), "clear");
    EXPECT_EQ(helpOn({"completion", "--help"}), "completion");
}

TEST(CommandLine, FindsTheShellOfACompletion) {
    EXPECT_EQ(std::get<CompletionRequest>(readCommandLine({"completion", "fish"})).shell, "fish");
    EXPECT_EQ(complaint({"completion"}), "`completion` needs SHELL");
    EXPECT_EQ(complaint({"completion", "bash", "zsh"}), "`completion` does not take \"zsh\"");
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
    EXPECT_EQ(complaint({"run", "--json", "-j"}), "option --json is given twice");
    EXPECT_EQ(complaint({"run", "--devices="}), "the argument of --devices is empty");
    EXPECT_EQ(complaint({"--server=", "run"}), "the argument of --server is empty");
    EXPECT_EQ(complaint({"run", "--server", ""}), "the argument of --server is empty");
}

TEST(CommandLine, RefusesWhatContradicts) {
    EXPECT_EQ(complaint({"run", "--server", "u", "--devices", "f"}),
              "--devices shows a list to a private server only; the server of --server reads its "
              "own machine's list");
    EXPECT_EQ(complaint({"run", "--credentials", "f"}),
              "--credentials is for the server of --server, which is missing");
    EXPECT_EQ(complaint({"tests", "--insecure"}),
              "--insecure is for the server of --server, which is missing");
    EXPECT_EQ(complaint({"tests", "--timeout", "5"}),
              "--timeout is for the server of --server, which is missing");
    EXPECT_EQ(complaint({"tests", "-s", "https://h", "--key", "f"}),
              "--key belongs to the certificate of --cert, which is missing");
    EXPECT_EQ(complaint({"tests", "-s", "https://h", "--insecure", "--cacert", "f"}),
              "--cacert says what to trust, --insecure trusts everything: take one of them");
}

TEST(CommandLine, TakesWhatIsSaidOfTheServer) {
    const Invocation bare = invocation({"tests"});
    EXPECT_EQ(bare.cacert, std::nullopt);
    EXPECT_EQ(bare.timeout, std::nullopt);
    EXPECT_FALSE(bare.insecure);
    const Invocation full = invocation({"tests", "-s", "https://h", "--cacert", "a", "--cert", "c",
                                        "--key", "k", "--proxy", "http://p", "--timeout", "1"});
    EXPECT_EQ(full.cacert, "a");
    EXPECT_EQ(full.cert, "c");
    EXPECT_EQ(full.key, "k");
    EXPECT_EQ(full.proxy, "http://p");
    EXPECT_EQ(full.timeout, std::chrono::seconds(1));
    EXPECT_TRUE(invocation({"tests", "-s", "https://h", "--insecure"}).insecure);
}

TEST(CommandLine, TheTimeoutIsADayAtMost) {
    EXPECT_EQ(invocation({"tests", "-s", "https://h", "--timeout", "86400"}).timeout,
              std::chrono::hours(24));
    for (const std::string other : {"0", "86401", "99999999999", "-1", "1.5", "1s"}) {
        EXPECT_EQ(complaint({"tests", "-s", "https://h", "--timeout", other}),
                  "--timeout is a number of seconds from 1 to 86400, not \"" + other + "\"");
    }
}

DevicesRequest devicesOf(const std::vector<std::string>& words) {
    return std::get<DevicesRequest>(readCommandLine(words));
}

TEST(CommandLine, DevicesTakesAListAndConditions) {
    const DevicesRequest bare = devicesOf({"devices"});
    EXPECT_FALSE(bare.file);
    EXPECT_FALSE(bare.tree);
    EXPECT_FALSE(bare.filter.onlyProblems);
    EXPECT_EQ(devicesOf({"devices", "list"}).file, "list");
    EXPECT_EQ(devicesOf({"-d", "list", "devices"}).file, "list");
    EXPECT_EQ(devicesOf({"devices", "-"}).file, "-");
    const DevicesRequest full = devicesOf({"devices", "-t", "-p", "-i", "046d:c00e", "-b", "2",
                                           "--class", "hub", "--driver", "usbhid"});
    EXPECT_TRUE(full.tree);
    EXPECT_TRUE(full.filter.onlyProblems);
    EXPECT_EQ(full.filter.vendor, 0x046d);
    EXPECT_EQ(full.filter.product, 0xc00e);
    EXPECT_EQ(full.filter.bus, 2U);
    EXPECT_EQ(full.filter.usbClass, "hub");
    EXPECT_EQ(full.filter.driver, "usbhid");
    EXPECT_TRUE(devicesOf({"devices", "--json"}).json);
    EXPECT_THROW(devicesOf({"devices", "--json", "--tree"}), options::UsageError);
}

TEST(CommandLine, RecordTakesAListAndAFileToWrite) {
    const auto record = [](const std::vector<std::string>& words) {
        return std::get<RecordRequest>(readCommandLine(words));
    };
    const RecordRequest bare = record({"record"});
    EXPECT_FALSE(bare.file);
    EXPECT_FALSE(bare.output);
    EXPECT_FALSE(bare.redact);
    const RecordRequest full = record({"record", "-o", "out", "--redact", "-d", "-"});
    EXPECT_EQ(full.file, "-");
    EXPECT_EQ(full.output, "out");
    EXPECT_TRUE(full.redact);
    EXPECT_EQ(complaint({"record", "list"}), "`record` does not take \"list\"");
    EXPECT_EQ(complaint({"run", "-o", "out"}), "`run` does not take --output");
}

TEST(CommandLine, DiffTakesOneListOrTwo) {
    const auto diff = [](const std::vector<std::string>& words) {
        return std::get<DiffRequest>(readCommandLine(words));
    };
    EXPECT_EQ(diff({"diff", "old"}).before, "old");
    EXPECT_FALSE(diff({"diff", "old"}).after);
    EXPECT_FALSE(diff({"diff", "old"}).json);
    const DiffRequest full = diff({"-j", "diff", "-", "new"});
    EXPECT_EQ(full.before, "-");
    EXPECT_EQ(full.after, "new");
    EXPECT_TRUE(full.json);
    EXPECT_EQ(complaint({"diff"}), "`diff` needs OLD");
    EXPECT_EQ(complaint({"diff", "a", "b", "c"}), "`diff` does not take \"c\"");
    EXPECT_EQ(complaint({"diff", "-", "-"}),
              "standard input (-) can be one of the lists, not both");
    EXPECT_EQ(complaint({"diff", "a", "--devices", "b"}), "`diff` does not take --devices");
}

TEST(CommandLine, DevicesTakesOneListAndNoServer) {
    EXPECT_THROW(readCommandLine({"devices", "a", "--devices", "b"}), options::UsageError);
    EXPECT_THROW(readCommandLine({"devices", "a", "b"}), options::UsageError);
    EXPECT_THROW(readCommandLine({"devices", "--server", "http://localhost"}), options::UsageError);
    EXPECT_THROW(readCommandLine({"run", "--tree"}), options::UsageError);
}

}  // namespace
}  // namespace usbhcdiag
