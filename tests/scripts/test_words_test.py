#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests of the words that ./test takes: test_words_test.py SOURCE_FOLDER. It is run with those alone that it rejects, as
it would build and test."""
import pathlib
import subprocess
import sys
import unittest

TEST = pathlib.Path(sys.argv[1]) / "test"


class Words(unittest.TestCase):
    def test_that_are_none(self):
        for words, reason in ((["frob"], 'there is no room "frob" below tests/'),
                              (["wire/htt"], 'there is no room "wire/htt" below tests/'),
                              (["../tests"], 'there is no room "../tests"'),
                              (["unit", "diag"], "one word at most"),
                              ([""], "an empty word")):
            with self.subTest(words):
                done = subprocess.run([TEST, *words], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                      stderr=subprocess.PIPE, text=True, check=False)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertTrue(done.stderr.startswith(f"test: {reason}\nusage: ./test "), done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
