# SPDX-License-Identifier: MIT
"""A small source tree in a temporary folder, with the project's scripts in it."""
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(sys.argv[1])

TREE = {
    "scripts/rooms.txt": "ground:\nmiddle middle/inner: ground\nroof: middle\n",
    "ground/Stone.h": "#pragma once\n#include <string>\nstd::string stone();\n",
    "ground/Stone.cpp": '#include "ground/Stone.h"\nstd::string stone() { return {}; }\n',
    "middle/Wall.h": '#pragma once\n#include "ground/Stone.h"\ninline auto wall() { return stone(); }\n',
    "middle/inner/Door.h": '#pragma once\n#include "middle/Wall.h"\ninline auto door() { return wall(); }\n',
    "roof/main.cpp": '#include "middle/Wall.h"\n#include "middle/inner/Door.h"\nint main() {}\n',
    "tests/middle/Wall_test.cpp": '#include "middle/Wall.h"\n#include "ground/Stone.h"\n',
}


class SmallTree(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.top = pathlib.Path(folder.name)
        for name, text in TREE.items():
            self.write(name, text)
        for script in ("check-layout", "check-headers", "check-tidy", "sources.py"):
            shutil.copy(PROJECT / "scripts" / script, self.top / "scripts")

    def write(self, name, text):
        (self.top / name).parent.mkdir(parents=True, exist_ok=True)
        (self.top / name).write_text(text)

    def append(self, name, text):
        self.write(name, (self.top / name).read_text() + text)

    def write_compile_commands(self, sources):
        """As if a build in the folder "build" compiled these with the compiler of the command line."""
        self.write("build/compile_commands.json", json.dumps([
            {"directory": str(self.top / "build"), "file": str(self.top / source),
             "command": f"{sys.argv[2]} -I{self.top} -Wall -Werror -o {source}.o -c {self.top / source}"}
            for source in sorted(sources)]))

    def run_script(self, name, *arguments):
        """The exit status and what the script said."""
        done = subprocess.run([sys.executable, self.top / "scripts" / name, *arguments], check=False, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return done.returncode, done.stdout


def main():
    unittest.main(argv=sys.argv[:1], verbosity=2)
