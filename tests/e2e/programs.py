# SPDX-License-Identifier: MIT
"""The programs that the end-to-end tests drive: TEST.py PROGRAMS SOURCES [unittest options]"""
import subprocess
import sys
from pathlib import Path

from namespaces import PATIENCE

PROGRAMS = Path(sys.argv.pop(1)).resolve()
SOURCES = Path(sys.argv.pop(1)).resolve()
USBHCDIAG = str(PROGRAMS / "usbhcdiag")


def usbhcdiag(*words, **options):
    """Runs usbhcdiag until it ends; its standard input is empty unless the options say otherwise."""
    if "input" not in options:
        options.setdefault("stdin", subprocess.DEVNULL)
    return subprocess.run([USBHCDIAG, *words], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          timeout=PATIENCE, check=False, **options)
