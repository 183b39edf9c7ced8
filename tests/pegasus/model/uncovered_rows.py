#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that every recorded behaviour of OpenPegasus's object model is tested here.

usage: uncovered_rows.py RECORDED.tsv

The first column of the table numbers what was recorded, for example "string-047". Each number must
be in quotes in a test in the folder of this script, or in left_out.txt with a reason, but not in
both. A number that is not in the table is an error. Exits with 77 (skipped) if there is no table.
"""

import pathlib
import re
import sys

NUMBER = re.compile(r'"([a-z]+-\d{3})"')


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    table = pathlib.Path(sys.argv[1])
    if not table.exists():
        print(f"SKIPPED: no recorded behaviours at {table}")
        sys.exit(77)
    folder = pathlib.Path(__file__).parent

    rows = table.read_text(encoding="utf-8").splitlines()[1:]
    recorded = {row.split("\t")[0]: row.replace("\t", " | ") for row in rows if row}
    tested = set()
    for test in folder.glob("*_test.cpp"):
        tested.update(NUMBER.findall(test.read_text(encoding="utf-8")))
    left_out = {}
    for line in (folder / "left_out.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            number, _, reason = line.partition(" ")
            left_out[number] = reason.strip()

    faults = [f"neither tested nor left out: {recorded[number]}"
              for number in recorded if number not in tested and number not in left_out]
    faults += [f"tested and left out: {number}" for number in sorted(tested & left_out.keys())]
    faults += [f"not in the table: {number}"
               for number in sorted((tested | left_out.keys()) - recorded.keys())]
    faults += [f"left out without a reason: {number}"
               for number, reason in left_out.items() if not reason]
    for fault in faults:
        print(fault)
    print(f"{len(recorded)} recorded, {len(tested & recorded.keys())} tested, "
          f"{len(left_out)} left out, {len(faults)} faults")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
