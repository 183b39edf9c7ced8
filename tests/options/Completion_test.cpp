// SPDX-License-Identifier: MIT
// The texts of the scripts, as far as the shells themselves do not try them: the programs' own
// completions are tried in each shell.
#include "options/Completion.h"

#include <gtest/gtest.h>

#include "options/UsageError.h"
#include "tests/options/samplePrograms.h"

namespace options {
namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(Completion, OfEachShellKnowsEveryCommandAndOption) {
    const Program program = keeper();
    for (const std::string& shell : completedShells()) {
        const std::string script = completionScript(program, shell);
        for (const Command& command : program.commands) {
            EXPECT_TRUE(contains(script, command.name)) << shell << " " << command.name;
        }
        for (const Option& option : program.options) {
            EXPECT_TRUE(contains(script, option.name)) << shell << " " << option.name;
        }
        EXPECT_TRUE(contains(script, "red blue")) << shell;
        EXPECT_TRUE(contains(completionScript(wrapper(), shell), "small large")) << shell;
    }
}

TEST(Completion, OfAnUnknownShellNamesThoseThereAre) {
    try {
        completionScript(keeper(), "csh");
        FAIL();
    } catch (const UsageError& error) {
        EXPECT_STREQ(error.what(), "there is no completion for \"csh\", only for bash, zsh, fish");
    }
}

TEST(Completion, OfZshQuotesWhatArgumentsWouldRead) {
    const std::string script = zshCompletion(keeper());
    EXPECT_TRUE(contains(script,
                         "'(--place -p)--place=[where to keep it (here, or \\[there\\]\\: "
                         "C\\:\\\\)]:FOLDER:_files'\n"));
    EXPECT_TRUE(contains(script, "'*--tag=[a name; may be given more than once]:TAG: '\n"));
    EXPECT_TRUE(contains(script, "'put:keep\\: things'\n"));
    EXPECT_TRUE(contains(script, "'list:show what'\\''s kept'\n"));
    EXPECT_TRUE(contains(script, " ':THING:_files' '::COLOUR:(red blue)' ;;\n"));
}

TEST(Completion, OfFishQuotesApostrophesAndBackslashes) {
    const std::string script = fishCompletion(keeper());
    EXPECT_TRUE(contains(script, " -a list -d 'show what\\'s kept'\n"));
    EXPECT_TRUE(
        contains(script,
                 "complete -c keeper -n 'not __fish_seen_subcommand_from list' -s p -l place "
                 "-r -F -d 'where to keep it (here, or [there]: C:\\\\)'\n"));
    EXPECT_TRUE(contains(script, "-n '__fish_seen_subcommand_from put' -F\n"));
}

TEST(Completion, NamesFunctionsAsTheShellAllows) {
    EXPECT_TRUE(contains(bashCompletion(wrapper()), "\n_wrap_it() {\n"));
    // The name of the file that zsh looks for.
    EXPECT_TRUE(contains(zshCompletion(wrapper()), "\n_wrap-it() {\n"));
}

}  // namespace
}  // namespace options
