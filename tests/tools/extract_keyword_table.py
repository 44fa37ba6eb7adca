#!/usr/bin/env python3
"""Extracts the keyword rows from the markdown reference of the command
language into tests/data/keyword_table.txt.

Usage: extract_keyword_table.py REFERENCE.md > tests/data/keyword_table.txt

The rows are read from the markdown table whose header is
| name | token id | class | operands | same handler as |
and written in the order they appear (the stored order of the table), one row
a line: name, token id, class, operand count, and the names sharing the
handler separated by commas ("-" when none).
"""
import re
import sys

HEADER = ["name", "token id", "class", "operands", "same handler as"]


def cells(line):
    parts = line.strip().strip("|").split("|")
    return [p.strip() for p in parts]


def unquote(cell):
    return cell.replace("`", "").strip()


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    lines = open(sys.argv[1], encoding="utf-8").read().splitlines()
    start = None
    for i, line in enumerate(lines):
        if line.startswith("|") and cells(line) == HEADER:
            start = i + 2  # skip the |---| row
            break
    if start is None:
        sys.exit("keyword table header not found")
    rows = []
    for line in lines[start:]:
        if not line.startswith("|"):
            break
        name, token, cls, operands, aliases = cells(line)
        alias_names = [unquote(a) for a in aliases.split(",") if a.strip()]
        rows.append((unquote(name), int(token), int(cls), int(operands), alias_names))
    print("# Keyword rows in stored order, bucket by bucket.")
    print("# name  token-id  class  operands  same-handler-as (comma-separated, - for none)")
    for name, token, cls, operands, aliases in rows:
        if re.search(r"\s", name):
            sys.exit("unexpected blank in name " + name)
        print(f"{name} {token} {cls} {operands} {','.join(aliases) if aliases else '-'}")


if __name__ == "__main__":
    main()
