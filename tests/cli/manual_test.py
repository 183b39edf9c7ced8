#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The manual pages: manual_test.py FOLDER PROGRAM...

Each page formats without a warning; those of the programs name the options and commands
that their help names, and no others. Exit status 77 where the machine has no man.
"""
import glob
import os
import re
import subprocess
import sys
import unittest

from help_text import commands_in, help_of, options_in

PAGES = sys.argv[1]
PROGRAMS = {os.path.basename(path): path for path in sys.argv[2:]}


def output_of(*command, **environment):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stdin=subprocess.DEVNULL, text=True,
                          env=dict(os.environ, LC_ALL="C.UTF-8", **environment)).stdout


def page_of(program):
    """The sections of a manual page, by name."""
    text = output_of("man", "-E", "ascii", "-l", os.path.join(PAGES, program + ".1"), MANWIDTH="200")
    text = re.sub(".\b", "", text)  # bold and underlined
    parts = re.split(r"^([A-Z][A-Z ]+)\n", text, flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


class ManualTest(unittest.TestCase):
    def test_pages_format_without_warnings(self):
        pages = glob.glob(os.path.join(PAGES, "..", "man?", "*.[158]"))
        self.assertGreaterEqual(len(pages), 6)
        for page in pages:
            done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", page], check=True,
                                  env=dict(os.environ, LC_ALL="C.UTF-8", MANWIDTH="80"),
                                  stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.PIPE, text=True)
            self.assertEqual(done.stderr, "", page)

    def test_pages_explain_the_options_of_the_help(self):
        for program, path in PROGRAMS.items():
            options = options_in(help_of(path))
            self.assertIn(("-h", "--help", ""), options)
            self.assertEqual(options_in(page_of(program)["OPTIONS"]), options, program)

    def test_the_page_explains_the_commands_of_the_help(self):
        commands = commands_in(help_of(PROGRAMS["usbhcdiag"]))
        page = page_of("usbhcdiag")
        self.assertEqual(set(re.findall(r"^ +usbhcdiag ([a-z]+)", page["SYNOPSIS"], re.MULTILINE)),
                         commands)
        self.assertEqual(set(re.findall(r"^     ([a-z]+)(?:  .*)?$", page["DESCRIPTION"], re.MULTILINE)),
                         commands)


if __name__ == "__main__":
    # Systems without documentation have a stand-in that only says so.
    if subprocess.run(["sh", "-c", "man --version"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                      check=False).returncode != 0:
        print("skipped: there is no man (Debian package man-db)")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1], verbosity=2)
