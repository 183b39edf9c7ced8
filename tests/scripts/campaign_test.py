#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What fuzz/campaign makes of what a target says: campaign_test.py SOURCE_FOLDER. The targets here are shell scripts."""
import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
LOADER = importlib.machinery.SourceFileLoader("campaign", str(pathlib.Path(sys.argv[1]) / "fuzz" / "campaign"))
campaign = importlib.util.module_from_spec(importlib.util.spec_from_loader("campaign", LOADER))
LOADER.exec_module(campaign)

# Says what libFuzzer says at the end, and what it took for short inputs and for long ones.
TARGET = """#!/bin/sh
case " $* " in
    *" -max_len=%d "*) slowest=%s ;;
    *) slowest=%s ;;
esac
printf 'slow' >"$ZORVA_SLOWEST_INPUT"
echo "#1000	DONE   cov: 42 ft: 9 corp: 3/5b"
echo "stat::number_of_executed_units: 1000"
echo "slowest input: $slowest ms, 4 bytes"
%s
"""


class Hunt(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = campaign.BUILD = pathlib.Path(folder.name)
        (self.build / "bin").mkdir()

    def hunt(self, short, long, end=""):
        """Whether something was found, and the lines that say what."""
        program = self.build / "bin" / "fuzz-it"
        program.write_text(TARGET % (campaign.SHORT_INPUT, short, long, end))
        program.chmod(0o755)
        with contextlib.redirect_stdout(io.StringIO()) as output:
            found = campaign.hunt("fuzz-it", [], [], 0.1)
        return found, output.getvalue().splitlines()

    def test_counts_the_inputs_of_all_legs_and_tells_the_slowest_in_milliseconds(self):
        for short, long in (("0.4", "100.0"), ("100.0", "0.4")):
            found, lines = self.hunt(short, long)
            self.assertFalse(found)
            self.assertEqual(len(lines), 1)
            self.assertRegex(lines[0], r"^fuzz-it +2000 inputs +\d+/s  coverage +42  slowest +100\.0 ms  clean$")
            self.assertEqual(list((self.build / "findings").iterdir()), [])

    def test_time_that_the_machine_gives_to_others_does_not_count(self):
        self.assertIn(" 2000 inputs    2000/s ", self.hunt("0.4", "0.4", "sleep 1")[1][0])

    def test_an_input_that_takes_too_long_is_a_finding(self):
        for short, long in (("0.4", "100.1"), ("100.1", "0.4")):
            found, lines = self.hunt(short, long)
            kept = self.build / "findings" / "fuzz-it-slow"
            self.assertTrue(found)
            self.assertTrue(lines[0].endswith("slowest  100.1 ms  FOUND"), lines)
            self.assertEqual(lines[1:], [f"    100.1 ms: {kept}"])
            self.assertEqual(kept.read_text(), "slow")
            kept.unlink()

    def test_a_crash_is_a_finding_and_ends_the_hunt(self):
        found, lines = self.hunt("0.4", "0.4", "echo '==1==ERROR: AddressSanitizer: x'; exit 1")
        self.assertTrue(found)
        self.assertRegex(lines[0], r" 1000 inputs .* FOUND$")
        self.assertEqual(lines[1:], ["    ==1==ERROR: AddressSanitizer: x", "    exit status 1"])

    def test_what_a_machine_cannot_run_is_skipped(self):
        self.assertEqual(self.hunt("0.4", "0.4", "echo 'no namespaces here'; exit 77"),
                         (False, ["fuzz-it              skipped: no namespaces here"]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
