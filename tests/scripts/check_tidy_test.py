#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests of scripts/check-tidy: check_tidy_test.py SOURCE_FOLDER COMPILER. In place of clang-tidy stands a program that
finds fault with one word, and notes which sources it was asked about."""
import os
import unittest.mock

import small_tree

CLANG_TIDY = """#!/bin/sh
here=$(dirname "$0")
[ "$1" != --version ] || exec cat "$here/version"
echo "${2#$(dirname "$here")/}" >>"$here/asked"
if grep -q goto "$2"; then
    echo "$2:1:1: error: avoid goto"
    exit 1
fi
"""


class Tidy(small_tree.SmallTree):
    def setUp(self):
        super().setUp()
        self.write("tools/clang-tidy", CLANG_TIDY)
        self.write("tools/version", "14\n")
        (self.top / "tools/clang-tidy").chmod(0o755)
        environment = unittest.mock.patch.dict(
            os.environ, {"PATH": f"{self.top}/tools{os.pathsep}{os.environ['PATH']}"})
        environment.start()
        self.addCleanup(environment.stop)
        self.write(".clang-tidy", "Checks: '*'\n")
        self.write_compile_commands({"ground/Stone.cpp", "roof/main.cpp"})

    def check(self, *paths):
        """Exit status, output, and the sources that were looked at."""
        self.write("tools/asked", "")
        outcome = self.run_script("check-tidy", self.top / "build", *paths)
        return *outcome, sorted((self.top / "tools/asked").read_text().split())

    def looked_at(self, *sources):
        status, said, asked = self.check()
        self.assertEqual((status, asked), (0, list(sources)), said)
        self.assertEqual(said, "2 of 2 sources have no findings\n")

    def test_what_passed_is_looked_at_once(self):
        self.looked_at("ground/Stone.cpp", "roof/main.cpp")
        self.looked_at()

    def test_a_source_that_changed(self):
        self.looked_at("ground/Stone.cpp", "roof/main.cpp")
        self.append("ground/Stone.cpp", "// more\n")
        self.looked_at("ground/Stone.cpp")

    def test_a_header_that_changed(self):
        self.looked_at("ground/Stone.cpp", "roof/main.cpp")
        self.append("middle/Wall.h", "// more\n")
        self.looked_at("roof/main.cpp")

    def test_another_configuration_or_tool(self):
        for file in (".clang-tidy", "tools/version"):
            self.looked_at("ground/Stone.cpp", "roof/main.cpp")
            self.append(file, "# more\n")
        self.looked_at("ground/Stone.cpp", "roof/main.cpp")

    def test_a_finding_fails_until_it_is_gone(self):
        self.append("roof/main.cpp", "void f() { again: goto again; }\n")
        for expected in (["ground/Stone.cpp", "roof/main.cpp"], ["roof/main.cpp"]):
            status, said, asked = self.check()
            self.assertEqual((status, asked), (1, expected))
            self.assertIn("roof/main.cpp:1:1: error: avoid goto\n", said)
            self.assertIn("1 of 2 sources have no findings\n", said)
        self.write("roof/main.cpp", "int main() {}\n")
        self.looked_at("roof/main.cpp")

    def test_some_rooms_alone(self):
        self.assertEqual(self.check("ground", "middle/"),
                         (0, "1 of 1 sources have no findings\n", ["ground/Stone.cpp"]))


if __name__ == "__main__":
    small_tree.main()
