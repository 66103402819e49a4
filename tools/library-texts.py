#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Brings translations/ up to date with the texts of the library.

    tools/library-texts.py            # writes zel.ts, the template, and adds what is new to the languages
    tools/library-texts.py --check    # changes nothing, and fails if a text is missing, gone or not translated

The texts are those in the code within ZelLocalizedString(...) and QT_TRANSLATE_NOOP("Application", ...), which stands in
tables. Whatever else reads like a text in code that people see something of has to be for developers: in a call such as
ZelFail(...), or among the names below.
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
# A word with a capital, or several words.
TEXT = re.compile(r"[A-Z][a-z]+(?:\W|$)|.*[A-Za-z]{2,}.* |.* .*[A-Za-z]{2,}")
# Calls whose texts people do not see: messages for developers, names in code, and Qt's own translations.
OTHER_CALL = re.compile(r"\b(?:Zel(?:Fail|Check|Require|ReportFailure|Log\w+|EditorAttributes::fail)|throw \w+|asprintf|tr|"
                        r"encodingOf|Q_\w+|(?:starts|ends)With|"
                        r"colorListNamed|ZelColor::named|ZelColorListPtr::create|ZelBundle bundle)\(")
NO_TEXTS = ("Core", "Geometry", "Inspector/Checking", "Inspector/Description", "Layout")
NAMES = {
    # of lists, attributes, fonts and properties, and what stands in logs
    "Application", "Crayons", "Font", "Link", "Normal", "Overline", "Regular", "System", "sans serif",
    "selectedPaneName searchText", 'T@"', "TIMING: ", " ms",
    "{name=%1, object=%2}", "{object=%1, binding=%2 target=%3 keyPath=%4}", "{object=%1, keyPath=%2}",
    "{object=%1, keyPath=%2, observer=%3, observer=%4}",
    # what is said of descriptions, and of mistakes in code
    "Expected inspector element: ", "Expected slice element: ", "Unsupported format style: ",
    "Unsupported number of components: ", "Unsupported value: ", "Wrong value", "ZelIsOneOf(1, 2)",
    "Missing minimum value for number property with slider", 'The value "%1" of an option is no integer',
    '"%1" is no name of a class', '"%1" is no number', "0 has no bits", "the argument is missing",
    "No URL for image resource %1 found in bundle %2",
    "View controller %1(%2) will unload view but the view is still used",
}
HEAD = '<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n<!-- The texts of the library: tools/library-texts.py. -->\n'


def argument(code, start):
    """What stands from there to the bracket that ends the call."""
    depth, position = 1, start
    while depth and position < len(code):
        literal = re.compile(LITERAL).match(code, position)
        depth += {"(": 1, ")": -1}.get(code[position], 0)
        position = literal.end() if literal else position + 1
    return code[start:position - 1]


def sources():
    """The path of each source below src, and its code with blanks in place of comments and signs."""
    other = re.compile(rf"//[^\n]*|/\*.*?\*/|#include[^\n]*|'(?:[^'\\]|\\.)'|({LITERAL})", re.S)
    for source in sorted((ROOT / "src").rglob("*")):
        if source.suffix in (".cpp", ".h"):
            code = source.read_text(encoding="utf-8")
            yield source.relative_to(ROOT / "src"), other.sub(
                lambda found: found.group(1) or re.sub(r"[^\n]", " ", found.group()), code)


def text_of(literals):
    text = "".join(part[1:-1] for part in re.findall(LITERAL, literals))
    return text.replace('\\"', '"').replace("\\n", "\n")


def texts_of_code():
    return {text_of(literals) for _, code in sources() for call in CALL.finditer(code)
            for literals in re.findall(rf"(?:{LITERAL}\s*)+", argument(code, call.end()))}


def unmarked_texts():
    for path, code in sources():
        if path.as_posix().startswith(NO_TEXTS):
            continue
        done = [(call.start(), call.end() + len(argument(code, call.end())))
                for kind in (CALL, OTHER_CALL) for call in kind.finditer(code)]
        for literals in re.finditer(rf"(?:{LITERAL}\s*)+", code):
            text = text_of(literals.group())
            if TEXT.match(text) and text not in NAMES and not any(
                    start <= literals.start() < end for start, end in done):
                line = code[:literals.start()].count("\n") + 1
                yield f"src/{path}:{line}: people may see this, but it is in no ZelLocalizedString: {text}"


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
    wrong = list(unmarked_texts())
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
