#!/usr/bin/env python3
"""Every text that is translated has a note, and every language has every text.

check_translations.py          names what is missing
check_translations.py --update adds new texts to the files, unfinished, and drops those that are gone
"""

import ast
import pathlib
import re
import sys
import xml.etree.ElementTree as ET

ROOT = pathlib.Path(__file__).resolve().parents[2]
STRING = r'"(?:[^"\\]|\\.)*"'
TEXT = rf'({STRING}(?:\s*{STRING})*)'
NOTE = rf'(\w+|{TEXT[1:-1]})'
# What looks a text up: where, how, in which context (none: the file's own), with which note unless
# it names one.
CALLS = (("ui/**/*.qml", rf'qsTr\(\s*{TEXT}(?:,\s*{NOTE})?', None, ""),
         ("ui/**/*.cpp", rf'QCoreApplication::translate\(\s*"Views",\s*{TEXT},\s*{NOTE}', "Views", ""),
         ("ui/dialogs/update_texts.cpp", rf'\btext\(\s*{TEXT},\s*{NOTE}', "Views", ""),
         ("platform/linux/updates/*.cpp", rf'updateError\(\s*{TEXT}(?:,\s*{NOTE})?', "Updates",
          "of an update check"),
         ("core/*.cpp", rf'translate\(\s*{NOTE},\s*{NOTE}', "Program", ""),
         ("app/app_delegate.cpp", rf'\b(?:action|toggle)\(\s*{TEXT}()', "Program",
          "entry of the status item's menu"),
         ("app/*.cpp", rf'translated\(\s*{TEXT},\s*{NOTE}', "Program", ""))


def literal(text, constants):
    """The value of string literals, or of the constant that names one."""
    if not text.startswith('"'):
        text = constants[text]
    return "".join(ast.literal_eval(part) for part in re.findall(STRING, text))


def constants():
    """Constants of C++ files that hold one text."""
    found = {}
    for file in [*ROOT.glob("core/*.h"), *ROOT.glob("core/*.cpp"), *ROOT.glob("app/*.cpp")]:
        found |= dict(re.findall(rf'(\w+) =\s*({STRING});', file.read_text()))
    return found


def texts():
    """{(context, text, note)} of the sources; a missing note is empty."""
    found, known = set(), constants()
    for pattern, call, context, default in CALLS:
        for file in ROOT.glob(pattern):
            for text, note in re.findall(call, file.read_text()):
                found.add((context or file.stem, literal(text, known),
                           literal(note, known) if note else default))
    return found


def key(context, message):
    return context, message.findtext("source"), message.findtext("comment", "")


def check(file, wanted, update):
    tree = ET.parse(file)
    root = tree.getroot()
    had = {key(context.findtext("name"), message): message.find("translation")
           for context in root.iter("context") for message in context.iter("message")}
    faults = [f"{file.name}: no text {wanted_key}" for wanted_key in sorted(wanted - had.keys())]
    faults += [f"{file.name}: gone is {gone}" for gone in sorted(had.keys() - wanted)]
    faults += [f"{file.name}: unfinished {found}" for found, translation in had.items()
               if found in wanted and (not translation.text or translation.get("type"))]
    faults += [f"{file.name}: other places in {found}" for found, translation in had.items()
               if translation.text
               and set(re.findall("%[0-9]", found[1])) != set(re.findall("%[0-9]", translation.text))]
    if update:
        write(file, root.get("language"), wanted, had)
    return faults


def write(file, language, wanted, had):
    root = ET.Element("TS", version="2.1", language=language)
    contexts = {}
    for context, text, note in sorted(wanted):
        if context not in contexts:
            contexts[context] = ET.SubElement(root, "context")
            ET.SubElement(contexts[context], "name").text = context
        message = ET.SubElement(contexts[context], "message")
        ET.SubElement(message, "source").text = text
        ET.SubElement(message, "comment").text = note
        old = had.get((context, text, note))
        translation = ET.SubElement(message, "translation")
        translation.text = old.text if old is not None else None
        if not translation.text:
            translation.set("type", "unfinished")
    ET.indent(root, "    ")
    file.write_text('<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n'
                    + ET.tostring(root, encoding="unicode") + "\n")


def main(arguments):
    wanted = texts()
    faults = [f"no note for {text!r} in {context}" for context, text, note in sorted(wanted) if not note]
    for file in sorted(ROOT.glob("translations/*.ts")):
        faults += check(file, wanted, "--update" in arguments)
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
