#!/usr/bin/env python3
"""Writes the table of upper-case letters:

    src/data/make_upper_case_table.py >src/data/upper_case_table.h

With the table as its argument it compares instead, and ends with 1 when they differ. A Python that
knows another version of Unicode compares nothing and ends with 77.
"""
import sys
import unicodedata

UNICODE = "14.0.0"
HEAD = """\
// Made by make_upper_case_table.py; not to be edited.
#pragma once

namespace quillet {

// Every `step`-th character from first to last has its upper-case form `offset` further on.
struct CaseRange {
  char32_t first;
  char32_t last;
  int step;
  int offset;
};

// The simple upper-case mappings of Unicode 14 beyond ASCII.
// clang-format off
inline constexpr CaseRange upperCaseRanges[] = {
"""
TAIL = """\
};
// clang-format on

}  // namespace quillet
"""


def simple_upper(character):
    """Python knows full mappings only; where one takes several characters, the simple mapping is the
    form for titles, if there is one."""
    for mapped in (character.upper(), character.title()):
        if len(mapped) == 1:
            return mapped
    return character


def ranges():
    """[first, last, step, offset] in ascending order."""
    found = []
    for code in range(0x80, sys.maxunicode + 1):
        offset = ord(simple_upper(chr(code))) - code
        if offset == 0:
            continue
        last = found[-1] if found else [0, 0, 0, 0]
        step = code - last[1]
        if offset == last[3] and (step == last[2] or (step <= 2 and last[0] == last[1])):
            last[1:3] = code, step
        else:
            found.append([code, code, 1, offset])
    return found


def table():
    entries = ["{0x%04X, 0x%04X, %d, %d}," % tuple(each) for each in ranges()]
    lines = ["    " + " ".join(entries[i:i + 3]) + "\n" for i in range(0, len(entries), 3)]
    return HEAD + "".join(lines) + TAIL


def main():
    if len(sys.argv) == 1:
        sys.stdout.write(table())
        return 0
    if unicodedata.unidata_version != UNICODE:
        return 77
    with open(sys.argv[1], encoding="ascii") as stored:
        return 0 if stored.read() == table() else 1


if __name__ == "__main__":
    sys.exit(main())
