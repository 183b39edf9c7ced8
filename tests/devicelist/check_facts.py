#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the facts of the complete reader with those that regular expressions find, for every list
of a folder.

usage: check_facts.py LIST_FACTS FOLDER

Ends with 77 (ctest: skipped) if the folder has no lists.
"""
import pathlib
import re
import subprocess
import sys

SKIPPED = 77


def number(label, line):
    return re.search(label + r"= *(\w+)", line).group(1)


def decimal(label, line):
    return str(int(number(label, line)))


def hexadecimal(text):
    return "=" + text.encode("latin-1").hex()


def interval(line):
    count, unit = re.search(r"Ivl= *(\d+)(ms|us)", line).groups()
    return str(int(count) * (1000 if unit == "ms" else 1))


def block_facts(block, paths):
    """The facts of one device; `paths` are those of the devices listed before, by bus and number."""
    topology = block.split("\n", 1)[0]
    bus, device, parent = (int(number(label, topology)) for label in ("Bus", "Dev#", "Prnt"))
    level, port = int(number("Lev", topology)), int(number("Port", topology)) + 1
    if level == 0:
        path = "usb%d" % bus
    elif level == 1:
        path = "%d-%d" % (bus, port)
    elif (bus, parent) in paths:
        path = "%s.%d" % (paths[bus, parent], port)
    else:
        path = "-"  # a list that was cut out of a longer one
    paths[bus, device] = path
    speed = re.search(r"Spd=(\S+)", topology).group(1)
    ids = re.search(r"^P:  Vendor=(\w+) ProdID=(\w+)", block, re.M).groups()
    strings = []
    for label in ("Manufacturer", "Product", "SerialNumber"):
        found = re.search(r"^S:  %s=(.*)$" % label, block, re.M)
        strings.append(hexadecimal(found.group(1)) if found else "-")
    yield " ".join(["device", str(bus), str(device), path, speed, ":".join(ids)] + strings)
    for line in block.split("\n"):
        active = "1" if line[2:3] == "*" else "0"
        if line.startswith("C:"):
            yield " ".join(["configuration", decimal("Cfg#", line), active, decimal("MxPwr", line[:-2])])
        elif line.startswith("I:"):
            driver = re.search(r" Driver=(.*)$", line)
            yield " ".join(["interface", decimal("If#", line), decimal("Alt", line), active,
                            number("Cls", line), hexadecimal(driver.group(1)) if driver else "-"])
        elif line.startswith("E:"):
            yield " ".join(["endpoint", number("Ad", line), number("Atr", line), decimal("MxPS", line),
                            interval(line)])


def facts(list_bytes):
    paths = {}
    for block in re.split(r"^(?=T:)", list_bytes.decode("latin-1"), flags=re.M):
        if block.startswith("T:"):
            yield from block_facts(block, paths)


def main(arguments):
    list_facts, folder = arguments
    lists = sorted(pathlib.Path(folder).glob("*.txt"))
    if not lists:
        print("skipped: no device lists in", folder)
        return SKIPPED
    wrong = 0
    compared = 0
    for path in lists:
        content = path.read_bytes()
        run = subprocess.run([list_facts], input=content, capture_output=True, check=True)
        found = run.stdout.decode("ascii").split("\n")[:-1]
        expected = list(facts(content))
        compared += len(expected)
        if found != expected:
            wrong += 1
            print("%s:" % path.name)
            print("\n".join("  %s instead of %s" % pair for pair in zip(found, expected) if pair[0] != pair[1]))
            print("  %d facts instead of %d" % (len(found), len(expected)))
    print("%d lists, %d facts, %d lists wrong" % (len(lists), compared, wrong))
    return 1 if wrong or not compared else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
