#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the sessions that a document shows and compares what they print: readme_test.py BUILD SOURCES DOCUMENT

A session is a block of code marked "console": lines that begin with "$ " are commands of one shell, the others
what they print. "build/" stands for the build folder, port 5988 for a free one, "myhost" for this machine's
name, and a date for any date. With --print, prints the sessions as they come out here.
Exit status 77 where a program that a session uses is missing.
"""
import re
import shutil
import socket
import subprocess
import sys
from pathlib import Path

DATE = re.compile(r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d [+-]\d\d:\d\d")
END = "--- end of the output ---"


def sessions(document):
    return re.findall(r"^```console\n(.*?)^```$", document, re.M | re.S)


def steps(session):
    """The commands of a session, each with what it is to print."""
    found = []
    for line in session.splitlines():
        if line.startswith("$ "):
            found.append((line[2:], []))
        else:
            found[-1][1].append(line)
    return found


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as server:
        return str(server.getsockname()[1])


def run(commands, build, folder):
    """What each command prints, as the document would write it."""
    port, host = free_port(), socket.gethostname().split(".")[0]
    script = "exec 2>&1\nready=$(mktemp -u)\nmkfifo $ready\n"
    for command in commands:
        # A server in the background says in one line that it is ready.
        if command.endswith(" &"):
            command = f"{command[:-2]} >$ready 2>/dev/null &\nhead -n 1 $ready"
        script += f"{command}\necho '{END}'\n"
    script = script.replace("5988", port).replace("build/bin/", f"{build}/bin/")
    shell = subprocess.run(["bash", "-c", script + "rm -f $ready\n"], stdout=subprocess.PIPE, cwd=folder,
                           timeout=60, check=False)
    text = re.sub(rf"\b{re.escape(host)}\b", "myhost", shell.stdout.decode().replace(port, "5988"))
    return [part.splitlines() for part in text.split(END + "\n")[:len(commands)]]


def without_dates(lines):
    return [DATE.sub("DATE", line) for line in lines]


def main(build, folder, document):
    text = (Path(folder) / document).read_text(encoding="utf-8")
    if "wbemcli" in text and not shutil.which("wbemcli"):
        print("skipped: there is no wbemcli (Debian package sblim-wbemcli)")
        return 77
    failures = 0
    for session in sessions(text):
        expected = steps(session)
        if any(command.startswith("./") for command, _ in expected):
            continue  # builds the project, which is what happened before this test
        for (command, lines), output in zip(expected, run([command for command, _ in expected], build, folder)):
            if "--print" in sys.argv:
                print("$ " + command, *output, sep="\n")
            elif without_dates(output) != without_dates(lines):
                failures += 1
                print(f"$ {command}\nprints", *output, "and not", *lines, "", sep="\n")
    print(f"{failures} differences")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:4]))
