#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that every folder of src/ includes only folders that it may use.

src/CMakeLists.txt names them: zel_folder(name path folders... [SHELVES folders...] [LIBRARIES ...]), lower ones first. A folder may
include itself and what its folders reach; its private/ and its shelves belong to it. A header that is installed includes none that
lies in a private/. The layers below keep that list itself from being turned upside down.
"""
import re
import sys
from pathlib import Path

LAYERS = [
    {"Core"},
    {"Layout", "Resources", "Text", "Geometry", "Observation", "Blocks", "Extensions"},
    {"ViewController", "Controls", "Views", "SplitView"},
    {"ColorPopUpButton", "TabBar", "ActionBar", "ExpandableViews"},
    {"Inspector"},
]
SHARED = "Core/ZelExport.h"

FOLDER = re.compile(r"^\s*zel_folder\(\s*(\w+)\s+([\w/]+)([^)]*)\)")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')


def layer_of(path):
    top = path.split("/")[0]
    return next((i for i, names in enumerate(LAYERS) if top in names), None)


def read_folders(cmake_file, breaches):
    """Path of each folder, shelf and private/ -> set of the paths that it may include."""
    paths, allowed = {}, {}
    lines = cmake_file.read_text().splitlines()
    for number, line in enumerate(lines, 1):
        for further in lines[number:]:
            if ")" in line or not line.startswith("zel_folder("):
                break
            line += " " + further.strip()
        match = FOLDER.match(line)
        if not match:
            continue
        uses, _, shelves = match[3].partition(" LIBRARIES ")[0].partition(" SHELVES ")
        name, path, uses = "zel_" + match[1], match[2], uses.split()
        place = f"{cmake_file}:{number}"
        if layer_of(path) is None:
            breaches.append(f"{place}: {path} belongs to no layer")
            continue
        paths[name] = path
        allowed[path] = {path, path + "/private"} | {f"{path}/{shelf}" for shelf in shelves.split()}
        for use in uses:
            if use not in paths or use == name:
                breaches.append(f"{place}: {path} uses {use}, which is not above it in the list")
            elif layer_of(paths[use]) > layer_of(path):
                breaches.append(f"{place}: {path} uses {paths[use]} of a higher layer")
            else:
                allowed[path] |= allowed[paths[use]]
        for part in [part for part in allowed[path] if part.startswith(path + "/") and part not in paths.values()]:
            allowed[part] = allowed[path]
    return allowed


def check_file(source, file, folder, allowed, breaches):
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        kind, target = match.groups()
        place = f"{file}:{number}"
        if kind == "<":
            if (source / target).exists():
                breaches.append(f"{place}: {target} is our own and is included with quotes")
            continue
        if target.endswith(".moc") or target.startswith("moc_") or target == SHARED:
            continue
        if not (source / target).is_file():
            breaches.append(f"{place}: {target} is not a path below {source.name}/")
        elif (other := str(Path(target).parent)) not in allowed[folder]:
            breaches.append(f"{place}: {folder} may not include {other} ({Path(target).name})")
        elif file.suffix == ".h" and file.parent.name != "private" and other.endswith("/private"):
            breaches.append(f"{place}: it is installed, {Path(target).name} is not")


def main():
    source = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "src")
    breaches = []
    allowed = read_folders(source / "CMakeLists.txt", breaches)
    files = sorted(f for f in source.rglob("*") if f.suffix in {".h", ".cpp"})
    for file in files:
        folder = str(file.parent.relative_to(source))
        if folder in allowed:
            check_file(source, file, folder, allowed, breaches)
        elif str(file.relative_to(source)) != SHARED:
            breaches.append(f"{file}:1: its folder is not in {source / 'CMakeLists.txt'}")
    print("\n".join(breaches) if breaches else f"{len(files)} files in {len(allowed)} folders include only what they may")
    return 1 if breaches or not files else 0


if __name__ == "__main__":
    sys.exit(main())
