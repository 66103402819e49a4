#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Brings translations/ up to date with the texts of the library.

    tools/library-texts.py            # writes zel.ts, the template, and adds what is new to the languages
    tools/library-texts.py --check    # changes nothing, and fails if a text is missing, gone or not translated

The texts are those in the code within ZelLocalizedString(...) and QT_TRANSLATE_NOOP("Application", ...), which stands in
tables.
"""
import argparse
import pathlib
import re
import sys
from xml.sax.saxutils import escape, unescape

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = ROOT / "translations"
LITERAL = r'"(?:[^"\\]|\\.)*"'
CALL = re.compile(r"(?:\bZelLocalizedString\(|\bQT_TRANSLATE_NOOP\(\"Application\",)")
MESSAGE = re.compile(r"<source>(.*?)</source>\s*<translation[^>/]*(?:/>|>(.*?)</translation>)", re.S)
HEAD = '<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n<!-- The texts of the library: tools/library-texts.py. -->\n'


def argument(code, start):
    """What stands from there to the bracket that ends the call."""
    depth, position = 1, start
    while depth and position < len(code):
        literal = re.compile(LITERAL).match(code, position)
        depth += {"(": 1, ")": -1}.get(code[position], 0)
        position = literal.end() if literal else position + 1
    return code[start:position - 1]


def texts_of_code():
    texts = set()
    for source in sorted((ROOT / "src").rglob("*")):
        code = source.read_text(encoding="utf-8") if source.suffix in (".cpp", ".h") else ""
        for call in CALL.finditer(code):
            for literals in re.findall(rf"(?:{LITERAL}\s*)+", argument(code, call.end())):
                text = "".join(part[1:-1] for part in re.findall(LITERAL, literals))
                texts.add(text.replace('\\"', '"').replace("\\n", "\n"))
    return texts


def translations_in(file):
    return {unescape(source, {"&quot;": '"', "&apos;": "'"}): translation
            for source, translation in MESSAGE.findall(file.read_text(encoding="utf-8"))}


def write(file, texts, known):
    language = file.stem.partition("_")[2]
    lines = [HEAD + f'<TS version="2.1"{f" language=" + chr(34) + language + chr(34) if language else ""}>']
    lines += ["<context>", "    <name>Application</name>"]
    for text in sorted(texts):
        translation = known.get(text)
        lines += ["    <message>", f"        <source>{escape(text)}</source>",
                  f"        <translation>{translation}</translation>" if translation
                  else '        <translation type="unfinished"></translation>', "    </message>"]
    file.write_text("\n".join([*lines, "</context>", "</TS>", ""]), encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    texts = texts_of_code()
    wrong = []
    for file in [FOLDER / "zel.ts", *sorted(FOLDER.glob("zel_*.ts"))]:
        known = translations_in(file) if file.exists() else {}
        if not arguments.check:
            write(file, texts, known)
            known = translations_in(file)
        wrong += [f"{file.name}: missing: {text}" for text in sorted(texts - set(known))]
        wrong += [f"{file.name}: gone: {text}" for text in sorted(set(known) - texts)]
        wrong += [f"{file.name}: not translated: {text}" for text, translation in sorted(known.items())
                  if "_" in file.name and text in texts and not translation]
    print("\n".join(wrong) or f"{len(texts)} texts")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
