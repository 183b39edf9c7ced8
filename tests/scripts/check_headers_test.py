#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests of scripts/check-headers: check_headers_test.py SOURCE_FOLDER COMPILER."""
import small_tree


class Headers(small_tree.SmallTree):
    def setUp(self):
        super().setUp()
        self.write_compile_commands({"ground/Stone.cpp", "roof/main.cpp"})

    def check(self):
        return self.run_script("check-headers", self.top / "build")

    def complains(self, text):
        status, said = self.check()
        self.assertEqual(status, 1, said)
        self.assertIn(text, said)

    def test_headers_that_compile(self):
        self.assertEqual(self.check(), (0, "3 of 3 headers compile by themselves\n"))
        self.assertEqual(self.check(), (0, "3 of 3 headers compile by themselves\n"))

    def test_a_header_that_lacks_an_include(self):
        self.append("middle/inner/Door.h", "std::vector<int> hinges();\n")
        for _ in range(2):
            self.complains("middle/inner/Door.h does not compile by itself (as roof/main.cpp does):\n")
            self.complains("middle/inner/Door.h:4:")

    def test_a_header_that_lost_what_it_took_from_another(self):
        self.append("middle/Wall.h", "inline std::string text;\n")
        self.assertEqual(self.check()[0], 0)
        self.write("ground/Stone.h", "#pragma once\nint stone();\n")
        self.complains("middle/Wall.h:4:")

    def test_a_header_that_compiles_with_other_flags_only(self):
        self.append("middle/Wall.h", "#ifdef NO_WALL\n#error no wall\n#endif\n")
        self.assertEqual(self.check()[0], 0)
        text = (self.top / "build/compile_commands.json").read_text()
        self.write("build/compile_commands.json", text.replace("-Wall ", "-Wall -DNO_WALL "))
        self.complains("no wall")

    def test_a_header_that_nobody_includes(self):
        self.write("roof/Tile.h", "")
        self.assertEqual(self.check()[0], 0)
        self.write("attic/Chest.h", "")
        self.complains("attic/Chest.h:1: no source includes it\n")

    def test_a_header_of_what_the_build_leaves_out(self):
        self.write("attic/Chest.h", "lacks everything")
        self.write("attic/main.cpp", '#include "attic/Chest.h"\n')
        self.assertEqual(self.check(), (0, "Not compiled, as this build has no source that includes them: "
                                           "attic/Chest.h\n3 of 4 headers compile by themselves\n"))


if __name__ == "__main__":
    small_tree.main()
