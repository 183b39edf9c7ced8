#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What cmake/Hardening.cmake asks for, read from the files that were built: hardening_test.py BUILD SOURCES
Exit status 77 where there is no readelf."""
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

BUILD = Path(sys.argv.pop(1)).resolve()
SOURCES = Path(sys.argv.pop(1)).resolve()
PROGRAMS = [BUILD / "bin" / name for name in ("cimhost", "usbhcdiag", "usbdevices", "with-device-list")]
LIBRARIES = [path for path in (BUILD / "lib/libZORVA_UsbHc_DiagProvider.so",
                               BUILD / "lib/openpegasus/libZORVA_UsbHc_DiagProvider.so") if path.exists()]


def readelf(path, *options):
    return subprocess.run(["readelf", "--wide", *options, path], stdout=subprocess.PIPE, text=True,
                          errors="replace", check=True).stdout


def undefined_symbols(path):
    return re.findall(r" UND ([^\s@]+)", readelf(path, "--dyn-syms"))


def compilations(path):
    """How each of the project's sources in a file was compiled, as g++ leaves it there."""
    found = []
    for unit in readelf(path, "--debug-dump=info", "--dwarf-depth=1").split("DW_TAG_compile_unit")[1:]:
        name = re.search(r"DW_AT_name .*: (\S+\.cpp)$", unit, re.MULTILINE)
        producer = re.search(r"DW_AT_producer .*: (GNU C\+\+.*)$", unit, re.MULTILINE)
        # Other libraries may bring theirs.
        if name and producer and (BUILD / name.group(1)).resolve().is_relative_to(SOURCES):
            found.append((name.group(1), producer.group(1)))
    return found


class Hardening(unittest.TestCase):
    def test_there_are_a_library_and_programs(self):
        for path in PROGRAMS:
            with self.subTest(file=path.name):
                self.assertTrue(path.exists())
        self.assertTrue(LIBRARIES)

    def test_programs_lie_anywhere_in_memory(self):
        for path in PROGRAMS:
            with self.subTest(file=path.name):
                self.assertRegex(readelf(path, "--file-header"), r"Type:\s+DYN")
                self.assertRegex(readelf(path, "--dynamic"), r"FLAGS_1\).*\bPIE\b")

    def test_relocations_are_done_at_the_start_and_then_read_only(self):
        for path in PROGRAMS + LIBRARIES:
            with self.subTest(file=path.name):
                self.assertIn("GNU_RELRO", readelf(path, "--program-headers"))
                self.assertRegex(readelf(path, "--dynamic"), r"FLAGS_1\).*\bNOW\b")

    def test_no_stack_holds_code(self):
        for path in PROGRAMS + LIBRARIES:
            with self.subTest(file=path.name):
                self.assertRegex(readelf(path, "--program-headers"), r"GNU_STACK.* RW ")

    def test_stacks_are_guarded(self):
        for path in PROGRAMS + LIBRARIES:
            with self.subTest(file=path.name):
                self.assertIn("__stack_chk_fail", undefined_symbols(path))

    def test_the_c_library_counts_along(self):
        # Seen where a program calls something whose count the compiler does not know; these two do.
        for path in PROGRAMS[:2]:
            with self.subTest(file=path.name):
                symbols = undefined_symbols(path)
                self.assertTrue([name for name in symbols if re.fullmatch(r"__\w+_chk", name)], symbols)

    def test_the_standard_library_asserts(self):
        for path in PROGRAMS[:2]:
            with self.subTest(file=path.name):
                self.assertTrue([name for name in undefined_symbols(path) if "glibcxx_assert" in name])

    def test_every_source_was_compiled_that_way(self):
        for path in PROGRAMS + LIBRARIES:
            with self.subTest(file=path.name):
                sources = compilations(path)
                if not sources:
                    self.skipTest("skipped: only g++ leaves its flags in the files, with debugging information")
                for name, producer in sources:
                    for flag in ("-fstack-protector-strong", "-fstack-clash-protection", "-fcf-protection"):
                        if flag != "-fcf-protection" or "-march=x86-64" in producer:
                            self.assertIn(flag, producer, name)

    def test_packages_are_such_builds(self):
        recipe = (SOURCES / "packaging/rpm/zorva-usb-diagnostics.spec.in").read_text()
        self.assertIn("-DCMAKE_BUILD_TYPE=RelWithDebInfo ", recipe)
        presets = (SOURCES / "CMakePresets.json").read_text()
        self.assertIn('"inherits": "optimised"', presets.split('"name": "package"')[1])


if __name__ == "__main__":
    if shutil.which("readelf") is None:
        print("skipped: there is no readelf (Debian package binutils)")
        sys.exit(77)
    unittest.main(verbosity=2)
