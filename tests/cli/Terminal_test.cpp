// SPDX-License-Identifier: MIT
#include "cli/Terminal.h"

#include <fcntl.h>
#include <stdlib.h>

#include <gtest/gtest.h>

#include "base/FileDescriptor.h"

namespace usbhcdiag {
namespace {

class TerminalTest : public testing::Test {
protected:
    void SetUp() override {
        ::unsetenv("NO_COLOR");
        ::setenv("TERM", "xterm", 1);
        ASSERT_GE(terminal_.get(), 0);
    }

    // The controlling side of a new pseudo terminal; it counts as a terminal itself.
    base::FileDescriptor terminal_{::posix_openpt(O_RDWR | O_NOCTTY)};
};

TEST_F(TerminalTest, ColoursATerminal) {
    EXPECT_TRUE(mayColour(terminal_.get()));
}

TEST_F(TerminalTest, DoesNotColourAFile) {
    const base::FileDescriptor file(::open("/dev/null", O_WRONLY));
    EXPECT_FALSE(mayColour(file.get()));
}

TEST_F(TerminalTest, DoesNotColourWithNoColor) {
    ::setenv("NO_COLOR", "1", 1);
    EXPECT_FALSE(mayColour(terminal_.get()));
}

TEST_F(TerminalTest, TakesAnEmptyNoColorAsNotSet) {
    ::setenv("NO_COLOR", "", 1);
    EXPECT_TRUE(mayColour(terminal_.get()));
}

TEST_F(TerminalTest, DoesNotColourADumbOrUnknownTerminal) {
    ::setenv("TERM", "dumb", 1);
    EXPECT_FALSE(mayColour(terminal_.get()));
    ::unsetenv("TERM");
    EXPECT_FALSE(mayColour(terminal_.get()));
}

}  // namespace
}  // namespace usbhcdiag
