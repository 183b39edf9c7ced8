// SPDX-License-Identifier: MIT
#include "options/Help.h"

#include <gtest/gtest.h>

#include "tests/options/samplePrograms.h"

namespace options {
namespace {

TEST(Help, OfAProgramListsCommandsAndOptions) {
    EXPECT_EQ(programHelp(keeper()),
              "Usage: keeper COMMAND [OPTION]...\n"
              "\n"
              "Keeps what it's given.\n"
              "\n"
              "Commands (keeper COMMAND --help tells more):\n"
              "  put                     keep: things\n"
              "  list                    show what's kept\n"
              "\n"
              "Options:\n"
              "  -p, --place FOLDER      where to keep it\n"
              "                          (here, or [there]: C:\\)\n"
              "      --tag TAG           a name; may be given more than once\n"
              "  -q, --quiet             say nothing\n"
              "  -h, --help              print help\n"
              "  -V, --version           print the version\n"
              "\n"
              "That is all.\n");
}

TEST(Help, OfACommandListsItsOwnOptionsOnly) {
    const Program program = keeper();
    EXPECT_EQ(commandHelp(program, *findCommand(program, "list")),
              "Usage: keeper list [OPTION]...\n"
              "\n"
              "Lists.\n"
              "\n"
              "Options:\n"
              "  -q, --quiet             say nothing\n"
              "  -h, --help              print help\n"
              "\n"
              "Examples:\n"
              "  keeper list\n");
}

TEST(Help, ShowsOperands) {
    const Program program = keeper();
    EXPECT_EQ(commandHelp(program, *findCommand(program, "put"))
                  .rfind("Usage: keeper put [OPTION]... THING [COLOUR]\n", 0),
              0U);
    EXPECT_EQ(
        programHelp(wrapper()).rfind(
            "Usage: wrap-it [OPTION]... PAPER [--] COMMAND [ARGUMENT]...\n\nWraps.\n\nOptions:\n",
            0),
        0U);
}

TEST(Help, VersionIsOneLine) {
    EXPECT_EQ(versionText(wrapper()).rfind("wrap-it ", 0), 0U);
    EXPECT_EQ(versionText(wrapper()).find('\n'), versionText(wrapper()).size() - 1);
}

TEST(Help, AComplaintSaysWhereHelpIs) {
    EXPECT_EQ(usageComplaint(wrapper(), "what now?"),
              "wrap-it: what now?\nTry `wrap-it --help`.\n");
}

}  // namespace
}  // namespace options
