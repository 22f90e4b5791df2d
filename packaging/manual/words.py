# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The words of a program, as it tells them itself (--help-json), and what their values may be."""

import json
import re
import subprocess
from dataclasses import dataclass

# Values that are worth offering; others are as good.
TYPICAL = {"DEGREES": ["0", "60", "90", "120", "150"], "DB": ["-6", "0", "6", "12"],
           "LUFS": ["-23", "-18", "-16", "-14"], "DBTP": ["-2", "-1", "0"]}
RECORDINGS = "[wW][aA][vV]"  # the end of their names


@dataclass(frozen=True)
class Value:
    """What may stand in a place: kind is files, recordings, folders, choice or anything."""
    kind: str
    choices: tuple = ()


class Option:
    def __init__(self, told):
        self.long, self.short = told["long"], told["short"]
        self.place, self.description = told["place"], told["description"]
        self.takes_value, self.many = bool(told["value"]), told["many"]
        self.required, self.default = told["required"], told["default"]
        self.needs, self.excludes = told["needs"], told["excludes"]
        self.value_name, _, self.rule = told["value"].partition(":")

    @property
    def names(self):
        return [f"-{name}" for name in self.short] + [f"--{name}" for name in self.long]

    @property
    def value(self):
        choices = re.fullmatch(r"\{(.*)\}", self.rule)
        if choices:
            return Value("choice", tuple(choices[1].split(",")))
        if self.value_name in TYPICAL:
            return Value("choice", tuple(TYPICAL[self.value_name]))
        if self.rule.startswith("all or"):
            return Value("choice", ("all",))
        name = self.place or self.value_name
        if "FILE" in name or "LIST" in name:
            is_recording = self.place and "ecording" in self.description
            return Value("recordings" if is_recording else "files")
        return Value("folders" if name in ("FOLDER", "CARD", "DEST") else "anything")


class Words:
    """A program, or one of its commands."""

    def __init__(self, told, path=()):
        self.name, self.description, self.footer = told["name"], told["description"], told["footer"]
        self.path = (*path, self.name)
        self.version = told.get("version", "")
        options = [Option(one) for one in told["options"]]
        self.options = [one for one in options if not one.place]
        self.places = [one for one in options if one.place]
        self.commands = [Words(one, self.path) for one in told["commands"]]

    def all(self):
        """This one and everything below it."""
        yield self
        for command in self.commands:
            yield from command.all()


def words_of(program):
    done = subprocess.run([program, "--help-json"], capture_output=True, check=True, text=True)
    return Words(json.loads(done.stdout))
