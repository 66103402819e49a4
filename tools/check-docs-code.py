#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the code in the documents is that of the examples.

A code block after a comment that names a file, such as

    <!-- examples/network/main.cpp -->

must be contained in that file. It may be indented otherwise as a whole, and a line "..." stands for lines that are left
out. Blocks without such a comment are not checked.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MARK = re.compile(r"<!-- (\S+/\S+) -->")


def dedented(lines):
    depth = min((len(line) - len(line.lstrip()) for line in lines if line.strip()), default=0)
    return [line[depth:].rstrip() for line in lines]


def pieces(block):
    """The runs of lines between lines that stand for others."""
    found = [[]]
    for line in block:
        if line.strip() == "...":
            found.append([])
        else:
            found[-1].append(line)
    return [piece for piece in found if any(line.strip() for line in piece)]


def end_of(piece, source, start):
    """The line after the first place of the piece in the source from that line on; 0 if there is none."""
    wanted = dedented(piece)
    for begin in range(start, len(source) - len(piece) + 1):
        if source[begin].strip() == wanted[0].strip() and dedented(source[begin : begin + len(piece)]) == wanted:
            return begin + len(piece)
    return 0


def faults_of(document):
    lines = document.read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, 1):
        mark = MARK.fullmatch(line.strip())
        if not mark:
            continue
        where = f"{document.relative_to(ROOT)}:{number}"
        path = ROOT / mark[1]
        if not path.is_file():
            yield f"{where}: there is no {mark[1]}"
            continue
        if number == len(lines) or not lines[number].startswith("```"):
            yield f"{where}: no code block follows"
            continue
        end = next((i for i in range(number + 1, len(lines)) if lines[i].startswith("```")), len(lines))
        block = pieces(lines[number + 1 : end])
        if not block:
            yield f"{where}: the code block is empty"
        source = path.read_text(encoding="utf-8").splitlines()
        place = 0
        for piece in block:
            while not piece[0].strip():
                piece = piece[1:]
            while not piece[-1].strip():
                piece = piece[:-1]
            place = end_of(piece, source, place)
            if not place:
                yield f"{where}: {mark[1]} does not contain, or not in this order: {piece[0].strip()}"
                break


def main():
    documents = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
    faults = [fault for document in documents for fault in faults_of(document)]
    print("\n".join(faults) if faults else "the code in the documents is that of the examples")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
