#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What ./test says at its end: nothing that was skipped goes unsaid."""
import os
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "summarize-tests")

GOOGLETEST = """[ RUN      ] Gate.letsRootIn
gate_test.cpp:7: Skipped
needs root
[  SKIPPED ] Gate.letsRootIn (0 ms)
"""
UNITTEST = """test_plain (__main__.Users.test_plain) ... skipped 'needs root'
test_told (__main__.Users.test_told)
What it is about. ... skipped "isn't there"
test_run (__main__.Users.test_run) ... ok
"""


def summary(tests):
    """Exit status and lines for tests: (name, status, output)."""
    cases = "".join('<testcase name="%s" status="%s"><system-out><![CDATA[%s]]></system-out></testcase>' % test
                    for test in tests)
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "release.xml")
        with open(file, "w", encoding="utf-8") as junit:
            junit.write("<testsuite>%s</testsuite>" % cases)
        done = subprocess.run([sys.executable, SCRIPT, file], stdout=subprocess.PIPE, text=True, check=False)
    return done.returncode, done.stdout.splitlines()


class SummarizeTests(unittest.TestCase):
    def test_cases_inside_tests_are_named(self):
        status, lines = summary([("gate_test", "run", GOOGLETEST), ("users_test", "run", UNITTEST)])
        self.assertEqual(lines, ["Skipped: gate_test (release), Gate.letsRootIn: needs root",
                                 "Skipped: users_test (release), test_plain: needs root",
                                 "Skipped: users_test (release), test_told: isn't there",
                                 "2 passed, 0 failed, 3 skipped"])
        self.assertEqual(status, 0)

    def test_whole_tests_give_their_reason(self):
        status, lines = summary([("a_test", "run", ""), ("vm_test", "notrun", "skipped: no kernel\n")])
        self.assertEqual(lines, ["Skipped: vm_test (release): no kernel", "1 passed, 0 failed, 1 skipped"])
        self.assertEqual(status, 0)

    def test_failures_and_no_test_at_all_are_failures(self):
        self.assertEqual(summary([("a_test", "run", ""), ("b_test", "fail", "")]),
                         (1, ["Failed: b_test (release)", "1 passed, 1 failed, 0 skipped"]))
        self.assertEqual(summary([]), (1, ["0 passed, 0 failed, 0 skipped"]))


if __name__ == "__main__":
    unittest.main(verbosity=2)
