// SPDX-License-Identifier: MIT
#include "cli/Help.h"

#include <sstream>

#include <gtest/gtest.h>

namespace usbhcdiag {
namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

void expectNarrow(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 92U) << line;
        EXPECT_TRUE(line.empty() || line.back() != ' ') << line;
    }
}

TEST(Help, NamesEveryCommandAndOption) {
    const std::string help = generalHelp();
    for (const CommandSyntax& syntax : commandTable()) {
        EXPECT_TRUE(contains(help, std::string("\n  ") + syntax.name + " ")) << syntax.name;
        EXPECT_TRUE(contains(help, syntax.summary)) << syntax.name;
    }
    for (const OptionSyntax& syntax : optionTable()) {
        EXPECT_TRUE(contains(help, std::string(", --") + syntax.name)) << syntax.name;
    }
    expectNarrow(help);
}

TEST(Help, OfACommandNamesItsOwnOptionsOnly) {
    const std::string help = commandHelp(syntaxOf(Command::tests));
    EXPECT_TRUE(contains(help, "Usage: usbhcdiag tests [OPTION]..."));
    EXPECT_TRUE(contains(help, "--json"));
    EXPECT_TRUE(contains(help, "--help"));
    EXPECT_FALSE(contains(help, "--element DEVICEID"));
    EXPECT_FALSE(contains(help, "--version"));
}

TEST(Help, OfEveryCommandShowsExamplesAndFitsATerminal) {
    for (const CommandSyntax& syntax : commandTable()) {
        const std::string help = commandHelp(syntax);
        EXPECT_TRUE(contains(help, std::string("\nExamples:\n  usbhcdiag ") + syntax.name))
            << syntax.name;
        expectNarrow(help);
    }
}

TEST(Help, VersionIsOneLine) {
    EXPECT_EQ(versionText().rfind("usbhcdiag ", 0), 0U);
    EXPECT_EQ(versionText().find('\n'), versionText().size() - 1);
}

}  // namespace
}  // namespace usbhcdiag
