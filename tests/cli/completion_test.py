#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The completions, as a shell uses them: completion_test.py SHELL PROGRAM...

What bash, zsh or fish offers is compared with what the help of the programs names. Exit status 77
where the machine has no such shell.
"""
import os
import pty
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

from help_text import commands_in, help_of, options_in

SHELL = sys.argv[1]
PROGRAMS = {os.path.basename(path): path for path in sys.argv[2:]}
SEARCH_PATH = ":".join([*map(os.path.dirname, PROGRAMS.values()), os.environ["PATH"]])
PATIENCE = 60


def output_of(*command, **more):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stdin=subprocess.DEVNULL,
                          text=True, timeout=PATIENCE, **more).stdout


def commands_of(program):
    return commands_in(help_of(PROGRAMS[program]))


def long_options_of(program, *command):
    return {name for _, name, _ in options_in(help_of(PROGRAMS[program], *command))}


class Bash:
    """The completing function is called as readline calls it."""

    script_name = "%s"
    check_syntax = ["bash", "-n"]

    def __init__(self, folder):
        self.folder = folder

    def offered(self, line):
        # Blanks are in no word of the tests; "=" and ":" are words of their own.
        words = re.findall(r"[=:]|[^=:\s]+", line) + ([""] if line[-1] in " :" else [])
        return output_of(
            "bash", "--norc", "-c",
            'source "$1"; shift; function=$(complete -p "$1"); function=${function#*-F };'
            'COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); ${function% *};'
            '[ ${#COMPREPLY[@]} = 0 ] || printf "%s\\n" "${COMPREPLY[@]}"',
            "bash", self.script_name % words[0], *words, cwd=self.folder).splitlines()

    def end(self):
        pass


class Zsh:
    """An interactive zsh loads the scripts itself; what it is told to offer is recorded."""

    SETUP = r"""
PROMPT= RPROMPT=
fpath=($PWD $fpath)
autoload -Uz compinit && compinit -u -D
compadd() {
    # With -O, -A or -D nothing is offered, matches are only looked for.
    if [[ ${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]]; then
        builtin compadd "$@"
        return
    fi
    local -a matches
    builtin compadd -A matches "$@"
    (( $#matches )) && print -rl -- $matches >>offered
    builtin compadd "$@"
}
tell() { print told >told; zle send-break }
zle -N tell
bindkey '^T' tell
bindkey '^I' complete-word
"""
    script_name = "_%s"
    check_syntax = ["zsh", "-n"]

    def __init__(self, folder):
        self.offers, self.told = (os.path.join(folder, name) for name in ("offered", "told"))
        with open(os.path.join(folder, ".zshrc"), "w") as setup:
            setup.write(self.SETUP)
        os.mkfifo(self.told)
        environment = dict(os.environ, ZDOTDIR=folder, TERM="dumb",
                           PATH=SEARCH_PATH)
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execvpe("zsh", ["zsh", "-d", "-i"], environment)

    def offered(self, line):
        open(self.offers, "w").close()
        os.write(self.terminal, (line + "\t\x14").encode())
        with open(self.told) as told:
            told.read()
        with open(self.offers) as words:
            return [word.rstrip("=") for word in words.read().splitlines()]

    def end(self):
        os.close(self.terminal)
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)


class Fish:
    script_name = "%s.fish"
    check_syntax = ["fish", "--no-execute"]

    def __init__(self, folder):
        self.folder = folder

    def offered(self, line):
        environment = dict(os.environ, HOME=self.folder, PATH=SEARCH_PATH)
        text = output_of("fish", "--no-config", "-c",
                         'for script in *.fish; source $script; end; complete -C "$argv[1]"', line,
                         env=environment, cwd=self.folder)
        return [entry.split("\t")[0] for entry in text.splitlines()]

    def end(self):
        pass


class CompletionTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="completion-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        kind = {"bash": Bash, "zsh": Zsh, "fish": Fish}[SHELL]
        for program, path in PROGRAMS.items():
            asking = "completion" if program == "usbhcdiag" else "--completion"
            with open(os.path.join(cls.folder, kind.script_name % program), "w") as script:
                script.write(output_of(path, asking, SHELL))
        cls.shell = kind(cls.folder)
        cls.addClassCleanup(cls.shell.end)

    def offered(self, line):
        return set(self.shell.offered(line))

    def options_offered(self, line):
        return {word for word in self.offered(line) if word.startswith("--")}

    def test_the_shell_reads_the_script(self):
        for program in PROGRAMS:
            subprocess.run([*self.shell.check_syntax, self.shell.script_name % program],
                           cwd=self.folder, check=True, timeout=PATIENCE)

    def test_commands_and_their_beginnings(self):
        commands = commands_of("usbhcdiag")
        self.assertIn("run", commands)
        self.assertEqual(self.offered("usbhcdiag "), commands)
        self.assertEqual(self.offered("usbhcdiag re"), {"record", "results"})
        self.assertEqual(self.offered("usbhcdiag --server http m"), {"mof"})
        self.assertEqual(self.offered("usbhcdiag help r"), {"record", "results", "run"})

    def test_the_options_of_each_command(self):
        for command in commands_of("usbhcdiag"):
            self.assertEqual(self.options_offered("usbhcdiag %s --" % command),
                             long_options_of("usbhcdiag", command), command)
        self.assertEqual(self.options_offered("usbhcdiag run --e"), {"--element"})
        self.assertEqual(self.options_offered("usbhcdiag --js"), {"--json"})

    def test_the_options_of_the_other_programs(self):
        for program in ("cimhost", "with-device-list"):
            self.assertEqual(self.options_offered(program + " --"), long_options_of(program))

    def test_files_after_what_takes_one(self):
        folder = tempfile.mkdtemp(dir=self.folder) + "/"
        for name in ("list.txt", "list of names"):
            open(folder + name, "w").close()
        for start in ("usbhcdiag run --devices ", "usbhcdiag run -d ", "usbhcdiag mof --devices=",
                      "usbhcdiag record -o ",
                      "usbhcdiag --credentials ", "cimhost --mof a --mof ", "cimhost --provider ",
                      "with-device-list "):
            # Fish and bash name the whole word, fish as it would be typed.
            words = {os.path.basename(word) for word in self.offered(start + folder + "list")}
            self.assertEqual({word.replace("\\", "") for word in words}, {"list.txt", "list of names"},
                             start)

    def test_nothing_for_an_argument_that_only_the_user_knows(self):
        for line in ("usbhcdiag run --element ", "usbhcdiag run -e ", "cimhost --port ",
                     "usbhcdiag run --server "):
            self.assertEqual(self.offered(line), set(), line)

    def test_the_shells(self):
        for line in ("usbhcdiag completion ", "cimhost --completion ",
                     "with-device-list --completion "):
            self.assertEqual(self.offered(line), {"bash", "zsh", "fish"}, line)

    def test_the_program_that_is_shown_a_list(self):
        for line in ("with-device-list list.txt ", "with-device-list list.txt -- "):
            self.assertIn("sleep", self.offered(line + "slee"), line)
        if SHELL != "bash":  # which needs the package bash-completion for that
            self.assertEqual(self.offered("with-device-list list.txt usbhcdiag re"),
                             {"record", "results"})


if __name__ == "__main__":
    if shutil.which(SHELL) is None:
        print("skipped: there is no %s (Debian package %s)" % (SHELL, SHELL))
        sys.exit(77)
    unittest.main(argv=sys.argv[:1], verbosity=2)
