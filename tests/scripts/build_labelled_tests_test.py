#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests of scripts/build-labelled-tests on a small project that compiles nothing:
build_labelled_tests_test.py SOURCE_FOLDER CMAKE"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(sys.argv[1]) / "scripts" / "build-labelled-tests"
CMAKE = sys.argv[2]

PROJECT = """
cmake_minimum_required(VERSION 3.20)
project(small NONE)
enable_testing()
foreach(name one two)
    add_custom_command(OUTPUT bin/${name} COMMAND ${CMAKE_COMMAND} -E touch bin/${name})
    list(APPEND programs ${CMAKE_BINARY_DIR}/bin/${name})
endforeach()
add_custom_target(programs ALL DEPENDS ${programs})
# Like CPack's "package": no file, and not what the test below means.
add_custom_target(work COMMAND ${CMAKE_COMMAND} -E false)
add_test(NAME program COMMAND ${CMAKE_BINARY_DIR}/bin/one)
add_test(NAME folder COMMAND sh ${CMAKE_BINARY_DIR}/bin)
add_test(NAME folder_named_as_a_target COMMAND sh ${CMAKE_BINARY_DIR}/work)
add_test(NAME nothing COMMAND sh -c true)
foreach(name program folder folder_named_as_a_target nothing)
    set_tests_properties(${name} PROPERTIES LABELS ${name})
endforeach()
"""


class Small(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = pathlib.Path(folder.name).resolve() / "build"
        (self.build.parent / "CMakeLists.txt").write_text(PROJECT)
        subprocess.run([CMAKE, "-G", "Ninja", "-S", self.build.parent, "-B", self.build], check=True,
                       stdout=subprocess.DEVNULL)

    def built_for(self, label, status=0):
        """The programs that are there when those of the tests with the label were built."""
        done = subprocess.run([sys.executable, SCRIPT, self.build, f"^{label}$"], check=False, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(done.returncode, status, done.stdout)
        return sorted(path.name for path in self.build.glob("bin/*"))

    def test_the_program_of_a_test_alone(self):
        self.assertEqual(self.built_for("program"), ["one"])

    def test_everything_for_a_folder(self):
        self.assertEqual(self.built_for("folder"), ["one", "two"])

    def test_everything_for_a_folder_that_has_the_name_of_a_target(self):
        self.assertEqual(self.built_for("folder_named_as_a_target"), ["one", "two"])

    def test_nothing_where_nothing_is_named(self):
        self.assertEqual(self.built_for("nothing"), [])

    def test_no_test_is_an_error(self):
        self.assertEqual(self.built_for("unknown", status=1), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
