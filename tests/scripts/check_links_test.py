# SPDX-License-Identifier: MIT
"""Tests of scripts/check-links: check_links_test.py SCRIPT

Each document lies in a small tree of its own, beside a guide, a source file and a folder.
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = None


def faults_of(document):
    """What the script prints of a README of that text, without the line that counts; its exit status."""
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        (root / "wire/http").mkdir(parents=True)
        (root / "wire/http/HttpServer.cpp").touch()
        (root / "wire/http/HttpServer.h").touch()
        (root / "build/bin").mkdir(parents=True)
        (root / "build/made.md").write_text("[nowhere](nowhere.md)\n")
        (root / "docs").mkdir()
        (root / "docs/guide.md").write_text(
            "# The guide\n\n## What *is* it, then?\n\n## Twice\n\n## Twice\n\n```\n## Not a heading\n```\n"
            "[back](../README.md)\n")
        (root / "README.md").write_text(document)
        done = subprocess.run([sys.executable, SCRIPT, folder], stdout=subprocess.PIPE, check=False)
    *faults, _ = done.stdout.decode().splitlines()
    return faults, done.returncode


class CheckLinks(unittest.TestCase):
    def accepts(self, document):
        self.assertEqual(faults_of(document), ([], 0))

    def rejects(self, document, *faults):
        self.assertEqual(faults_of(document), (["README.md:" + fault for fault in faults], 1))

    def test_links_to_files_folders_and_the_network_are_accepted(self):
        self.accepts("[a](docs/guide.md), [b](wire/http), [c](https://example.org/x)\n"
                     "[d](mailto:a@b), [`e`](docs/guide.md \"title\")\n\n[f]: docs/guide.md\n")

    def test_a_link_that_leads_nowhere_is_rejected(self):
        self.rejects("x\n[a](docs/guides.md)\n", "2: the link leads nowhere: docs/guides.md")
        self.rejects("![a](picture.png)\n", "1: the link leads nowhere: picture.png")
        self.rejects("[a]: docs/guides.md\n", "1: the link leads nowhere: docs/guides.md")

    def test_every_link_of_a_line_is_looked_at(self):
        self.rejects("[a](x.md) [b](docs/guide.md) [c [d]](y.md)\n",
                     "1: the link leads nowhere: x.md", "1: the link leads nowhere: y.md")

    def test_a_link_out_of_the_project_is_rejected(self):
        self.rejects("[a](../elsewhere)\n", "1: the link leads out of the project: ../elsewhere")

    def test_headings_are_found_by_their_names_in_links(self):
        self.accepts("# Top\n[a](#top) [b](docs/guide.md#what-is-it-then) "
                     "[c](docs/guide.md#twice) [d](docs/guide.md#twice-1)\n")

    def test_a_heading_that_is_not_there_is_rejected(self):
        self.rejects("[a](#bottom)\n", "1: there is no such heading: #bottom")
        self.rejects("[a](docs/guide.md#not-a-heading)\n",
                     "1: there is no such heading: docs/guide.md#not-a-heading")

    def test_paths_that_exist_are_accepted(self):
        self.accepts("`wire/http/HttpServer.cpp`, `wire/http`, `wire/http/HttpServer.{h, cpp}`, `wire/*/*.h`\n")

    def test_a_path_below_a_room_that_does_not_exist_is_rejected(self):
        self.rejects("`wire/html` and `run wire/http/No.h.`\n",
                     "1: there is no such path: wire/html", "1: there is no such path: wire/http/No.h")
        self.rejects("`wire/http/HttpServer.{h,hpp}`\n",
                     "1: there is no such path: wire/http/HttpServer.hpp")

    def test_a_source_file_in_a_room_that_is_gone_is_rejected(self):
        self.rejects("`host/http/HttpServer.cpp`\n", "1: there is no such path: host/http/HttpServer.cpp")

    def test_words_with_a_slash_that_are_no_paths_are_ignored(self):
        self.accepts("`root/kavex`, `/proc/bus/usb/devices`, `build/bin/cimhost`, `wire/...`, "
                     "`<Pegasus/Common/String.h>`, `http://localhost/x.h`\n")

    def test_blocks_of_code_are_ignored(self):
        self.accepts("```\n[a](nowhere) `wire/html`\n```\n\n  ```sh\n  `wire/html`\n  ```\n")
        self.rejects("```\n```\n`wire/html`\n", "3: there is no such path: wire/html")

    def test_a_link_inside_code_is_no_link(self):
        self.accepts("`[a](nowhere)`\n")

    def test_long_lines_are_rejected_but_in_tables_and_code(self):
        self.accepts("x" * 125 + "\n|" + "x" * 200 + "|\n```\n" + "x" * 200 + "\n```\n")
        self.rejects("x" * 126 + "\n", "1: the line has 126 characters, more than 125")

    def test_no_document_at_all_is_a_fault(self):
        with tempfile.TemporaryDirectory() as folder:
            done = subprocess.run([sys.executable, SCRIPT, folder], stdout=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, 1)


if __name__ == "__main__":
    SCRIPT = sys.argv.pop(1)
    unittest.main()
