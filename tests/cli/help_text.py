# SPDX-License-Identifier: MIT
"""What the help of a program names, for the tests of what must agree with it."""
import re
import subprocess


def help_of(*command):
    return subprocess.run([*command, "--help"], check=True, stdout=subprocess.PIPE,
                          stdin=subprocess.DEVNULL, text=True, timeout=60).stdout


def commands_in(text):
    entries = re.search(r"^Commands .*:\n((?:  .*\n)+)", text, re.MULTILINE).group(1)
    return set(re.findall(r"^  (\w+)", entries, re.MULTILINE))


def options_in(text):
    """Letter (or ""), name and argument (or "") of each entry of a list of options."""
    # "-s, --server URL" in a help, "-s URL, --server URL" in a manual page.
    return set(re.findall(r"^ +(?:(-\w)(?: [A-Z]+)?, )?(--[\w-]+)(?: ([A-Z]+))?(?:  .*)?$", text,
                          re.MULTILINE))
