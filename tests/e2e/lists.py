# SPDX-License-Identifier: MIT
"""Device lists for the end-to-end tests, and what regular expressions find in them."""
import re

from programs import SOURCES

SAMPLES = SOURCES / "samples"
CAPTURES = SOURCES.parent / "shared" / "captures"  # more of them, if there are any
LISTS = sorted(SAMPLES.glob("*.txt")) + sorted(CAPTURES.glob("*.txt"))


def field(pattern, text):
    """The group of the first match, None if there is none."""
    found = re.search(pattern, text, re.MULTILINE)
    return found.group(1) if found else None


def devices_of(text):
    """Of each device of a list: its lines, bus, level, number, and port path, which is None if its hub is missing."""
    paths = {}
    for block in re.split(r"^(?=T:)", text, flags=re.MULTILINE)[1:]:
        bus, level, parent, port, number = (int(field(name + r"= *(\d+)", block))
                                            for name in ("Bus", "Lev", "Prnt", "Port", "Dev#"))
        hub = paths.get((bus, parent))
        if level == 0:
            path = "usb%d" % bus
        elif level == 1:
            path = "%d-%d" % (bus, port + 1)
        else:
            path = "%s.%d" % (hub, port + 1) if hub else None
        paths[bus, number] = path
        yield block, bus, level, number, path
