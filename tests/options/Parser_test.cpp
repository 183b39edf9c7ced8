// SPDX-License-Identifier: MIT
#include "options/Parser.h"

#include <gtest/gtest.h>

#include "options/UsageError.h"
#include "tests/options/samplePrograms.h"

namespace options {
namespace {

using Texts = std::vector<std::string>;

ParsedLine keep(const Texts& words) {
    static const Program program = keeper();
    return parse(program, words);
}

ParsedLine wrap(const Texts& words) {
    static const Program program = wrapper();
    return parse(program, words);
}

template <typename Parse>
std::string complaint(Parse parseWords, const Texts& words) {
    try {
        parseWords(words);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(none)";
}

TEST(Parser, TakesOptionsBeforeBetweenAndAfterOperands) {
    const ParsedLine line = keep({"-q", "put", "--place", "here", "coat", "--tag=warm"});
    ASSERT_NE(line.command, nullptr);
    EXPECT_EQ(line.command->name, "put");
    EXPECT_EQ(line.operands, Texts{"coat"});
    EXPECT_TRUE(line.has("quiet"));
    EXPECT_EQ(line.argument("place"), "here");
    EXPECT_EQ(line.argument("tag"), "warm");
    EXPECT_FALSE(line.has("help"));
}

TEST(Parser, TakesShortOptionsTogetherAndWithTheirArgument) {
    EXPECT_EQ(keep({"put", "x", "-qphere"}).argument("place"), "here");
    EXPECT_EQ(keep({"put", "x", "-p", "here", "-q"}).argument("place"), "here");
}

TEST(Parser, TakesAnArgumentAsItIs) {
    EXPECT_EQ(keep({"put", "x", "--place=a=b"}).argument("place"), "a=b");
    EXPECT_EQ(keep({"put", "x", "--place", "-1"}).argument("place"), "-1");
    EXPECT_EQ(keep({"put", "x", "--place", "put"}).argument("place"), "put");
    EXPECT_EQ(keep({"put", "x", "--place", "--quiet"}).argument("place"), "--quiet");
    EXPECT_EQ(keep({"put", "x", "--place", "\"a b\" "}).argument("place"), "\"a b\" ");
    EXPECT_EQ(keep({"put", "x", "--tag", "[a,b]", "--tag", "-"}).options.at("tag"),
              (Texts{"[a,b]", "-"}));
}

TEST(Parser, TakesWordsAfterTwoDashesAsOperands) {
    EXPECT_EQ(keep({"put", "--", "--quiet"}).operands, Texts{"--quiet"});
    EXPECT_EQ(keep({"--", "put", "--", "red"}).operands, (Texts{"--", "red"}));
    EXPECT_EQ(keep({"put", "-"}).operands, Texts{"-"});
    EXPECT_EQ(keep({"put", "++", "[a]"}).operands, (Texts{"++", "[a]"}));
}

TEST(Parser, NamesTheWordAtFault) {
    EXPECT_EQ(complaint(keep, {}), "which command?");
    EXPECT_EQ(complaint(keep, {"push"}), "there is no command \"push\"");
    EXPECT_EQ(complaint(keep, {"push", "put"}), "there is no command \"push\"");
    EXPECT_EQ(complaint(keep, {"put", "x", "--far"}), "there is no option --far");
    EXPECT_EQ(complaint(keep, {"put", "x", "--far=1"}), "there is no option --far=1");
    EXPECT_EQ(complaint(keep, {"put", "x", "-f"}), "there is no option -f");
    EXPECT_EQ(complaint(keep, {"put", "x", "-5"}), "there is no option -5");
    EXPECT_EQ(complaint(keep, {"put", "x", "--place"}), "option --place needs an argument");
    EXPECT_EQ(complaint(keep, {"put", "x", "-p"}), "option -p needs an argument");
    EXPECT_EQ(complaint(keep, {"put", "x", "red", "now"}), "`put` does not take \"now\"");
    EXPECT_EQ(complaint(keep, {"put"}), "`put` needs THING");
    EXPECT_EQ(complaint(keep, {"list", "-p", "x"}), "`list` does not take --place");
}

TEST(Parser, TakesNoAbbreviations) {
    EXPECT_EQ(complaint(keep, {"put", "x", "--pla", "here"}), "there is no option --pla");
    EXPECT_EQ(complaint(keep, {"li"}), "there is no command \"li\"");
    EXPECT_EQ(complaint(keep, {"put", "x", "--Quiet"}), "there is no option --Quiet");
}

TEST(Parser, RejectsAnOptionGivenTwiceUnlessItIsRepeatable) {
    EXPECT_EQ(complaint(keep, {"put", "x", "-p", "a", "--place", "b"}),
              "option --place is given twice");
    EXPECT_EQ(complaint(keep, {"put", "x", "-p", "a", "-p", "a"}), "option --place is given twice");
    EXPECT_EQ(complaint(keep, {"list", "-qq"}), "option --quiet is given twice");
    EXPECT_EQ(keep({"put", "x", "--tag", "a", "--tag=b"}).options.at("tag"), (Texts{"a", "b"}));
}

TEST(Parser, RejectsWhatIsEmpty) {
    EXPECT_EQ(complaint(keep, {"put", "x", "--place", ""}), "the argument of --place is empty");
    EXPECT_EQ(complaint(keep, {"put", "x", "-p", ""}), "the argument of --place is empty");
    // The next word is not the argument.
    EXPECT_EQ(complaint(keep, {"put", "x", "--place=", "here"}),
              "the argument of --place is empty");
    EXPECT_EQ(complaint(keep, {"put", "x", "--tag", "a", "--tag="}),
              "the argument of --tag is empty");
    EXPECT_EQ(complaint(keep, {"put", ""}), "the argument THING is empty");
    EXPECT_EQ(complaint(keep, {""}), "there is no command \"\"");
}

TEST(Parser, RejectsAnArgumentOfAnOptionThatTakesNone) {
    EXPECT_EQ(complaint(keep, {"list", "--quiet=yes"}), "option --quiet=yes takes no argument");
    EXPECT_EQ(complaint(keep, {"list", "--quiet=true"}), "option --quiet=true takes no argument");
    EXPECT_EQ(complaint(keep, {"list", "--quiet="}), "option --quiet= takes no argument");
}

TEST(Parser, AnswersAnOptionThatStandsAloneWhateverIsMissing) {
    EXPECT_TRUE(keep({"--help"}).has("help"));
    EXPECT_EQ(keep({"--help"}).command, nullptr);
    EXPECT_EQ(keep({"put", "-h"}).command->name, "put");
    EXPECT_TRUE(keep({"list", "-p", "x", "many", "words", "-V"}).has("version"));
    EXPECT_EQ(wrap({"--completion", "zsh"}).argument("completion"), "zsh");
    EXPECT_EQ(complaint(keep, {"--help", "--far"}), "there is no option --far");
    EXPECT_EQ(complaint(keep, {"push", "--help"}), "there is no command \"push\"");
}

TEST(Parser, LeavesTheWordsOfAnotherProgramAlone) {
    EXPECT_EQ(wrap({"-l", "foil", "sh", "-c", "--loud", "--size=", "--", ""}).operands,
              (Texts{"foil", "sh", "-c", "--loud", "--size=", "--", ""}));
    EXPECT_EQ(wrap({"foil", "--", "sh", "--", "--help"}).operands,
              (Texts{"foil", "sh", "--", "--help"}));
    EXPECT_EQ(wrap({"foil", "--", "--odd", "--help"}).operands, (Texts{"foil", "--odd", "--help"}));
    EXPECT_EQ(wrap({"--", "--foil", "sh"}).operands, (Texts{"--foil", "sh"}));
    EXPECT_FALSE(wrap({"foil", "sh", "--help"}).has("help"));
    EXPECT_TRUE(wrap({"foil", "--loud", "sh"}).has("loud"));
}

TEST(Parser, NamesWhatAProgramThatRunsAnotherLacks) {
    EXPECT_EQ(complaint(wrap, {}), "`wrap-it` needs PAPER");
    EXPECT_EQ(complaint(wrap, {"foil"}), "`wrap-it` needs COMMAND");
    EXPECT_EQ(complaint(wrap, {"foil", "--"}), "`wrap-it` needs COMMAND");
    EXPECT_EQ(complaint(wrap, {"", "sh"}), "the argument PAPER is empty");
    EXPECT_EQ(complaint(wrap, {"--odd", "foil", "sh"}), "there is no option --odd");
    EXPECT_EQ(complaint(wrap, {"foil", "--odd", "sh"}), "there is no option --odd");
    EXPECT_EQ(complaint(wrap, {"--loud=1", "foil", "sh"}), "option --loud=1 takes no argument");
}

TEST(Parser, AnOptionThatTheProgramDoesNotHaveCannotBeAskedFor) {
    EXPECT_THROW(keep({"list"}).has("colour"), std::out_of_range);
    EXPECT_THROW(keep({"list"}).argument("colour"), std::out_of_range);
}

}  // namespace
}  // namespace options
