#!/usr/bin/env python3
"""Extracts the keypad rows from the markdown reference of the desktop window
into tests/data/button_table.txt.

Usage: extract_button_table.py REFERENCE.md > tests/data/button_table.txt

The rows are read from the markdown table whose header is
| row.col | label | command | description | colour (R,G,B) | flags |
and written in table order, one row a line, fields separated by one tab:
row.col, label, command, description, red, green, blue, flags (hex).
A missing label, command or description is written as (none); an empty
keypad position as the single field row.col followed by (empty).
Quoted cells may hold "|" (the label "|x|"), so cells are split outside
quotes only.
"""
import sys

HEADER = ["row.col", "label", "command", "description", "colour (R,G,B)", "flags"]


def cells(line):
    body = line.strip()
    if body.startswith("|"):
        body = body[1:]
    if body.endswith("|"):
        body = body[:-1]
    out, current, quoted = [], "", False
    for ch in body:
        if ch == '"':
            quoted = not quoted
            current += ch
        elif ch == "|" and not quoted:
            out.append(current.strip())
            current = ""
        else:
            current += ch
    out.append(current.strip())
    return out


def text(cell):
    if cell.startswith('"') and cell.endswith('"') and len(cell) >= 2:
        return cell[1:-1]
    return "(none)"


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
        sys.exit("keypad table header not found")
    print("# Keypad rows in table order (row-major, 12 a row).")
    print("# row.col<TAB>label<TAB>command<TAB>description<TAB>red<TAB>green<TAB>blue<TAB>flags")
    count = 0
    for line in lines[start:]:
        if not line.startswith("|"):
            break
        c = cells(line)
        if c[1] == "(empty)":
            print(f"{c[0]}\t(empty)")
        else:
            red, green, blue = (v.strip() for v in c[4].split(","))
            print("\t".join([c[0], text(c[1]), text(c[2]), text(c[3]), red, green, blue, c[5]]))
        count += 1
    if count != 120:
        sys.exit(f"expected 120 keypad rows, found {count}")


if __name__ == "__main__":
    main()
