#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests of scripts/check-layout: check_layout_test.py SOURCE_FOLDER."""
import small_tree


class Layout(small_tree.SmallTree):
    def check(self):
        return self.run_script("check-layout")

    def complains(self, *texts):
        status, said = self.check()
        self.assertEqual(status, 1, said)
        for text in texts:
            self.assertIn(text + "\n", said)
        self.assertEqual(said.count("\n"), len(texts), said)

    def test_order_that_is_kept(self):
        self.assertEqual(self.check(), (0, "6 files in 3 rooms include what they may\n"))

    def test_an_include_upwards(self):
        self.append("ground/Stone.cpp", '#include "roof/Tile.h"\n')
        self.write("roof/Tile.h", "")
        self.complains("ground/Stone.cpp:3: ground may not include roof/Tile.h (see scripts/rooms.txt)")

    def test_an_include_of_a_room_below_that_the_table_does_not_allow(self):
        self.append("roof/main.cpp", '#  include <vector>\n#  include "ground/Stone.h"\n')
        self.complains("roof/main.cpp:5: roof may not include ground/Stone.h (see scripts/rooms.txt)")

    def test_a_circle_of_files(self):
        self.append("middle/Wall.h", '#include "middle/inner/Door.h"\n')
        self.complains("middle/Wall.h:4: a circle of includes: middle/Wall.h -> middle/inner/Door.h -> middle/Wall.h")

    def test_a_circle_of_rooms(self):
        self.write("scripts/rooms.txt", "ground: middle\nmiddle middle/inner: ground\nroof: middle\n")
        self.complains("scripts/rooms.txt:1: ground may not include middle, which is no room of a line above")

    def test_a_folder_that_is_missing_in_the_table(self):
        self.write("middle/outer/Hedge.cpp", "")
        self.complains("scripts/rooms.txt: middle/outer has sources and is no room of the table")

    def test_a_room_without_folder(self):
        self.append("scripts/rooms.txt", "cellar: ground\n")
        self.complains("scripts/rooms.txt:4: cellar has no sources")

    def test_a_room_that_is_in_the_table_twice(self):
        self.append("scripts/rooms.txt", "middle/inner: ground\n")
        self.complains("scripts/rooms.txt:4: middle/inner is in the table twice")

    def test_an_include_of_nothing(self):
        self.append("roof/main.cpp", '#include "Wall.h"\n')
        self.complains("roof/main.cpp:4: there is no Wall.h; an include names the path from the top")

    def test_a_file_that_is_a_room_by_itself(self):
        self.write("ground/program.cpp", '#include "roof/Tile.h"\n')
        self.write("roof/Tile.h", "")
        self.write("roof/Slate.h", "")
        self.append("scripts/rooms.txt", "ground/program.cpp: ground roof/Tile.h  # and no other\n")
        self.assertEqual(self.check()[0], 0)
        self.append("ground/program.cpp", '#include "roof/Slate.h"\n')
        self.complains("ground/program.cpp:2: ground/program.cpp may not include roof/Slate.h (see scripts/rooms.txt)")

    def test_the_tests_of_a_room(self):
        self.append("tests/middle/Wall_test.cpp", '#include "tests/support/Help.h"\n')
        self.write("tests/support/Help.h", "")
        self.append("scripts/rooms.txt", "tests/support:\n")
        self.assertEqual(self.check()[0], 0)
        self.append("tests/middle/Wall_test.cpp", '#include "roof/Tile.h"\n')
        self.write("roof/Tile.h", "")
        self.complains("tests/middle/Wall_test.cpp:4: tests/middle may not include roof/Tile.h (see scripts/rooms.txt)")
        self.append("scripts/rooms.txt", "tests/middle:\n    roof\n")
        self.assertEqual(self.check()[0], 0)

    def test_the_document_names_the_same_rooms(self):
        table = "| floor | room | why |\n|---|---|---|\n| 1 | `roof`, `middle/` | |\n"
        self.write("ARCHITECTURE.md", table + "| 0 | `ground` | |\n\nSee `cellar`.\n")
        self.assertEqual(self.check()[0], 0)
        self.write("ARCHITECTURE.md", table + "| 0 | `cellar` | `ground` |\n| 2 | `roof` | |\n")
        self.complains("ARCHITECTURE.md: the table of rooms does not name ground",
                       "ARCHITECTURE.md:4: there is no folder cellar",
                       "ARCHITECTURE.md:5: roof is in the table twice")


if __name__ == "__main__":
    small_tree.main()
