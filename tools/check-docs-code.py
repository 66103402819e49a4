#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the code in the documents is that of programs that are built, and that their XML is right.

A code block after a comment that names a file, such as

    <!-- examples/network/main.cpp -->

must be contained in that file. It may be indented otherwise as a whole, and a line "..." stands for lines that are left
out. Code in C++ and of CMake has such a comment. XML without one must be well-formed, with "…" for what is left out, and
JSON be valid. With --schema zel.rng, each element of the XML must match that schema, be it within what may contain it.
"""
import argparse
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
MARK = re.compile(r"<!-- (\S+/\S+) -->")
TAKEN = ("cpp", "cmake")  # languages of which a block is taken from a file
TYPES = 'xmlns:types="urn:zel:types"'
AROUND = {  # what an element stands in that is no root of a file
    "section": ("slice",),
    "sliver": ("slice", "section"),
    "chooser": ("slice", "section"),
    "choice": ("slice", "section", "chooser"),
    "property": ("slice", "section", "sliver"),
}


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


def blocks_of(lines):
    """The language of each code block, the line of its beginning, and its lines."""
    number = 0
    while number < len(lines):
        if lines[number].startswith("```"):
            end = next((i for i in range(number + 1, len(lines)) if lines[i].startswith("```")), len(lines))
            yield lines[number][3:].strip(), number + 1, lines[number + 1 : end]
            number = end
        number += 1


def faults_of_taken(where, file, block):
    path = ROOT / file
    if not path.is_file():
        yield f"{where}: there is no {file}"
        return
    parts = pieces(block)
    if not parts:
        yield f"{where}: the code block is empty"
    source = path.read_text(encoding="utf-8").splitlines()
    place = 0
    for piece in parts:
        while not piece[0].strip():
            piece = piece[1:]
        while not piece[-1].strip():
            piece = piece[:-1]
        place = end_of(piece, source, place)
        if not place:
            yield f"{where}: {file} does not contain, or not in this order: {piece[0].strip()}"
            break


def whole(element):
    """The element within what it may stand in."""
    text = ElementTree.tostring(element, encoding="unicode")
    for tag in reversed(AROUND.get(element.tag, ())):
        text = f"<{tag}>{text}</{tag}>"
    return text


def faults_of_text(where, language, block, fragments):
    text = "\n".join(block)
    try:
        if language == "json":
            json.loads(text)
        elif language == "xml":
            root = ElementTree.fromstring(f"<root {TYPES}>{text.replace('…', '')}</root>")
            fragments.extend((where, whole(element)) for element in root)
    except (ElementTree.ParseError, json.JSONDecodeError) as error:
        yield f"{where}: {error}"


def faults_of(document, fragments):
    lines = document.read_text(encoding="utf-8").splitlines()
    name = document.relative_to(ROOT)
    for number, line in enumerate(lines, 1):
        if MARK.fullmatch(line.strip()) and (number == len(lines) or not lines[number].startswith("```")):
            yield f"{name}:{number}: no code block follows"
    for language, number, block in blocks_of(lines):
        where = f"{name}:{number}"
        mark = MARK.fullmatch(lines[number - 2].strip()) if number > 1 else None
        if mark:
            yield from faults_of_taken(where, mark[1], block)
        elif language in TAKEN:
            yield f"{where}: the code is taken from no file"
        else:
            yield from faults_of_text(where, language, block, fragments)


def faults_by_schema(schema, fragments):
    """What xmllint says of the elements."""
    with tempfile.TemporaryDirectory() as folder:
        files = {}
        for index, (where, text) in enumerate(fragments):
            path = pathlib.Path(folder) / f"{index}.xml"
            path.write_text(text, encoding="utf-8")
            files[str(path)] = where
        command = ["xmllint", "--noout", "--relaxng", schema, *files]
        said = subprocess.run(command, capture_output=True, text=True, check=False).stderr
        for line in said.splitlines():
            path, _, rest = line.partition(":")
            if path in files:
                yield f"{files[path]}: {rest.partition(': ')[2]}"


def main():
    parser = argparse.ArgumentParser(description="Checks the code in the documents.")
    parser.add_argument("--schema", help="the schema of descriptions (zel schema --rng), used if xmllint is installed")
    schema = parser.parse_args().schema
    documents = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
    fragments = []
    faults = [fault for document in documents for fault in faults_of(document, fragments)]
    if schema and shutil.which("xmllint"):
        faults += faults_by_schema(schema, fragments)
        print(f"{len(fragments)} elements were compared with the schema")
    print("\n".join(faults) if faults else "the code in the documents is that of programs that are built")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
