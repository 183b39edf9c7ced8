# SPDX-License-Identifier: MIT
"""What the checks of the sources share: the files and their includes, how the build compiles a file, and a
memory of the files that passed a check."""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import threading

SOURCES = pathlib.Path(__file__).resolve().parent.parent


def source_files():
    """The C++ files of the tree by their paths from the top, sorted."""
    found = []
    for folder, folders, files in os.walk(SOURCES):
        folders[:] = [name for name in folders if not name.startswith((".", "build"))]
        found += [os.path.relpath(os.path.join(folder, name), SOURCES)
                  for name in files if name.endswith((".cpp", ".h"))]
    return sorted(found)


def includes(path, files):
    """The files of the tree that a file includes: (line, path); a name that is none of them comes as it stands,
    if it is in double quotes."""
    text = (SOURCES / path).read_text(encoding="utf-8")
    for number, line in enumerate(text.splitlines(), 1):
        found = re.match(r'\s*#\s*include\s*([<"])([^>"]+)', line)
        if not found:
            continue
        name = found.group(2)
        for candidate in (name, f"pegasus/interface/{name}", f"pegasus/model/{name}"):
            if candidate in files:
                yield number, candidate
                break
        else:
            if found.group(1) == '"':
                yield number, name


def compile_flags(build):
    """The compiler and its flags for each source of the build, by its path from the top."""
    database = build / "compile_commands.json"
    if not database.exists():
        sys.exit(f"There is no {database}: configure the build first.")
    flags = {}
    for entry in json.loads(database.read_text()):
        file = pathlib.Path(entry["file"])
        if SOURCES not in file.parents:
            continue
        words = shlex.split(entry["command"])
        del words[words.index("-o"):words.index("-o") + 2]
        words = [word for word in words if word not in ("-c", "-Winvalid-pch", entry["file"])]
        # Headers that are compiled ahead would hide that an include is missing.
        if "-include" in words:
            del words[words.index("-include"):words.index("-include") + 2]
        # A library room is compiled against an OpenPegasus SDK, too, after the build for the stand-in.
        flags.setdefault(str(file.relative_to(SOURCES)), words)
    return flags


def digest(*parts):
    whole = hashlib.sha256()
    for part in parts:
        whole.update(part if isinstance(part, bytes) else str(part).encode())
        whole.update(b"\0")
    return whole.hexdigest()


class Memory:
    """Remembers which files passed a check, with everything that the outcome depends on."""

    def __init__(self, file, *circumstances):
        self._file = file
        self._circumstances = digest(*circumstances)
        self._digests = {}
        self._lock = threading.Lock()
        try:
            self._passed = json.loads(file.read_text())
        except (OSError, ValueError):
            self._passed = {}

    def _digest_of(self, path):
        if path not in self._digests:
            try:
                self._digests[path] = digest((SOURCES / path).read_bytes())
            except OSError:
                self._digests[path] = None
        return self._digests[path]

    def _state(self, flags, files):
        return {"flags": digest(self._circumstances, *flags),
                "files": {file: self._digest_of(file) for file in files}}

    def knows(self, path, flags):
        """Whether the file passed as it is now, with all that it includes."""
        remembered = self._passed.get(path)
        return remembered is not None and remembered == self._state(flags, remembered["files"])

    def passed(self, path, flags, dependencies):
        state = self._state(flags, dependencies)
        with self._lock:
            self._passed[path] = state

    def save(self):
        with self._lock:
            self._write()

    def _write(self):
        self._file.parent.mkdir(parents=True, exist_ok=True)
        scratch = self._file.with_suffix(".new")
        scratch.write_text(json.dumps(self._passed, indent=0, sort_keys=True))
        scratch.replace(self._file)


def dependencies(rule):
    """The files that a rule for make names after its colon, as far as they lie in the source tree."""
    words = re.sub(r"\\\n", " ", rule.partition(": ")[2]).split()
    real = {os.path.realpath(word) for word in words}
    return sorted(os.path.relpath(word, SOURCES) for word in real if word.startswith(f"{SOURCES}{os.sep}"))


def run_in_parallel(function, items):
    """function(item) for each item, as many at a time as there are processors; the results in order."""
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        return list(pool.map(function, items))


def run(command, text=""):
    return subprocess.run(command, input=text, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, check=False)
