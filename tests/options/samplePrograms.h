// SPDX-License-Identifier: MIT
// Two programs with every kind of option and operand.
#pragma once

#include "options/Program.h"

namespace options {

/// One with commands.
inline Program keeper() {
    return {
        "keeper",
        "Keeps what it's given.\n",
        "That is all.\n",
        {
            {"place", 'p', Argument{"FOLDER", true}, "where to keep it\n(here, or [there]: C:\\)"},
            {"tag", 0, Argument{"TAG"}, "a name; may be given more than once", true},
            {"quiet", 'q', {}, "say nothing"},
            helpOption("print help"),
            versionOption(),
        },
        {
            {"put",
             "keep: things",
             "Puts.\n",
             "  keeper put a\n",
             {"place", "tag", "quiet", "help"},
             {{"THING", true}, {"COLOUR", false, {"red", "blue"}, true}}},
            {"list", "show what's kept", "Lists.\n", "  keeper list\n", {"quiet", "help"}},
        },
    };
}

/// One that runs another program.
inline Program wrapper() {
    return {"wrap-it",
            "Wraps.\n",
            "That is all.\n",
            {{"size", 's', Argument{"SIZE", false, {"small", "large"}}, "how large"},
             {"loud", 'l', {}, "say more"},
             helpOption("print help"),
             completionOption()},
            {},
            {{"PAPER", true}},
            true};
}

}  // namespace options
