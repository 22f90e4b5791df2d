#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Whether the window speaks each of its languages wholly.

usage: check_translations.py ROOT LUPDATE
Copies the texts of translations/, brings the copies up to the sources, and complains of texts that
are new there, gone, or without translation; of placeholders that differ from the English ones; of a
key of a menu that a translation lacks; of texts for menus and shops of programs that one of the
languages lacks; and of reasons that are told in English below the window
which `Reason` does not know. Prints what is wrong; status 1 if anything is.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

PLACEHOLDER = re.compile(r"%L?(?:\d+|n)")
KEY = re.compile(r"&[^&\s]")
XML_LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"
REASONED = ("wav", "analysis", "export", "transfer", "queue", "playback", "folders", "midi")
# What a reason is told by, or returned as, where these libraries are written.
TELLS = re.compile(r"\b(?:return|fail|lose|because|failToOpen|errorText|whyNot|refuse|setReason|_failure|Failed"
                   r"|note|tell|told|whyHopeless)\b")
SENTENCE = re.compile(r'"((?:[^"\\]|\\.)*[a-z] [a-z](?:[^"\\]|\\.)*)"')


class Message:
    def __init__(self, context, node):
        self.context = context
        self.source = node.findtext("source")
        self.comment = node.findtext("comment") or ""
        said = node.find("translation")
        forms = said.findall("numerusform")
        self.forms = [form.text or "" for form in forms] if forms else [said.text or ""]
        self.is_finished = said.get("type") is None and all(self.forms)

    @property
    def key(self):
        return self.context, self.source, self.comment

    def faults(self):
        if not self.is_finished:
            return ["has no translation"]
        wanted = sorted(PLACEHOLDER.findall(self.source))
        found = [f"has other placeholders: “{form}”" for form in self.forms
                 if sorted(PLACEHOLDER.findall(form)) != wanted]
        found += [f"has another number of keys: “{form}”" for form in self.forms
                  if len(KEY.findall(form)) != len(KEY.findall(self.source))]
        return found


def messages(path):
    root = ElementTree.parse(path).getroot()
    return {message.key: message
            for context in root.iter("context") for node in context.iter("message")
            for message in [Message(context.findtext("name"), node)]}


def updated(root, folder, lupdate):
    """Copies of the texts, as the sources want them now."""
    for path in (root / "translations").glob("*.ts"):
        shutil.copy(path, folder)
    subprocess.run([root / "translations/update", folder], check=True,
                   env=dict(os.environ, LUPDATE=lupdate), stdout=subprocess.DEVNULL)
    return sorted(folder.glob("*.ts"))


def faults_of(committed, wanted):
    now, then = messages(wanted), messages(committed)
    told = lambda key: f"{committed.name}: {key[0]}: “{key[1]}”"
    found = [f"{told(key)} is new: run translations/update" for key in now.keys() - then.keys()]
    found += [f"{told(key)} is gone: run translations/update" for key in then.keys() - now.keys()]
    for key in now.keys() & then.keys():
        found += [f"{told(key)} {fault}" for fault in then[key].faults()]
    return sorted(found)


def reasons(root):
    """What is told in English below the window, as `Reason` has it."""
    for place in REASONED:
        for path in sorted((root / "src" / place).rglob("*.cpp")):
            if path.parent.name == "memory":  # for tests
                continue
            for line in whole_lines(path):
                if not TELLS.search(line) or "Log::" in line:
                    continue
                for found in SENTENCE.finditer(line):
                    numbers = iter(("%1", "%2", "%3"))
                    said = re.sub(r"\{[^}]*\}", lambda _: next(numbers), found[1]).replace('\\"', '"')
                    said += "%1" if re.match(r"\s*\+", line[found.end():]) else ""
                    yield path, f"{said} (%1)." if "because(" in line else said


def whole_lines(path):
    """A text that is written in pieces is one, in the line of the call that it is for."""
    text = re.sub(r'"\s*\n\s*"', "", path.read_text("utf-8"))
    text = re.sub(r"\(\s*\n\s*", "(", text)
    return re.sub(r",\s*\n\s*", ", ", text).splitlines()


def unknown_reasons(root):
    source = (root / "src/controls/Reason.cpp").read_text("utf-8")
    source = re.sub(r'"\s*\n\s*"', "", source).replace('\\"', '"')
    found = [(path, said) for path, said in reasons(root) if f'"{said}"' not in source]
    return [f"{path}: “{said}” is not among the reasons of Reason.cpp" for path, said in found]


def of_the_desktop(root):
    """The texts that menus and shops of programs show, each with its languages: the first of them in
    English, which has no mark."""
    entry, = (root / "resources").glob("*.desktop")
    for name in ("GenericName", "Comment", "Keywords"):
        found = re.findall(rf"^{name}(?:\[(\w+)\])?=.+", entry.read_text("utf-8"), re.MULTILINE)
        yield f"{entry.name}: {name}", found
    page, = (root / "resources").glob("*.metainfo.xml")
    for parent in ElementTree.parse(page).getroot().iter():
        texts = [each for each in parent if each.tag in ("summary", "caption", "p", "li")]
        begins = [i for i, each in enumerate(texts) if XML_LANGUAGE not in each.attrib]
        for first, next_one in zip(begins, [*begins[1:], None]):
            yield (f"{page.name}: “{texts[first].text.strip()}”",
                   [each.get(XML_LANGUAGE, "") for each in texts[first:next_one]])


def unspoken(root, languages):
    wanted = sorted(["", *languages])
    return [f"{text} is not told once in each language" for text, found in of_the_desktop(root)
            if sorted(found) != wanted]


def main():
    root, lupdate = Path(sys.argv[1]), sys.argv[2]
    with tempfile.TemporaryDirectory() as folder:
        texts = updated(root, Path(folder), lupdate)
        found = [fault for path in texts
                 for fault in faults_of(root / "translations" / path.name, path)]
    known = list(reasons(root))
    found += unknown_reasons(root)
    found += unspoken(root, {path.stem.removeprefix("mixdeck_") for path in texts} - {"en"})
    if len(texts) < 6 or len(known) < 20:
        found.append(f"only {len(texts)} languages and {len(known)} reasons were found")
    print("\n".join(found) if found else f"{len(texts)} languages and {len(known)} reasons are whole")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
