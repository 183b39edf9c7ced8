// SPDX-License-Identifier: MIT
#include "cli/Syntax.h"

#include <sstream>

#include <gtest/gtest.h>

#include "options/Help.h"

namespace usbhcdiag {
namespace {

void expectNarrow(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 92U) << line;
        EXPECT_TRUE(line.empty() || line.back() != ' ') << line;
    }
}

TEST(Syntax, HelpFitsATerminal) {
    expectNarrow(options::programHelp(program()));
    for (const options::Command& command : program().commands) {
        expectNarrow(options::commandHelp(program(), command));
    }
}

TEST(Syntax, CommandsTakeOptionsThatThereAre) {
    for (const options::Command& command : program().commands) {
        for (const std::string& name : command.options) {
            EXPECT_NE(options::findOption(program(), name), nullptr) << command.name << name;
        }
        EXPECT_TRUE(options::takes(&command, *options::findOption(program(), "help")))
            << command.name;
    }
}

TEST(Syntax, EveryCommandHasAnExample) {
    for (const options::Command& command : program().commands) {
        EXPECT_NE(command.examples.find("usbhcdiag " + command.name), std::string::npos)
            << command.name;
    }
}

}  // namespace
}  // namespace usbhcdiag
