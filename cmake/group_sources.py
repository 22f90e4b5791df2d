# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: group_sources.py SOURCE...

Tells which sources can be compiled in one piece: a number a source, in their order. Those with one
number use no name twice. Two sources may call their helpers alike, each in its unnamed namespace;
compiled in one piece they would be two definitions of one name.

It goes by the style of the sources, not by their grammar: what is declared at the beginning of a
line has a name outside of every class and function. A name that it misses is an error of the
compiler, never a wrong program.
"""

import re
import sys
from pathlib import Path

# The same alias may be declared again.
ALIASES = [r"(?:using|namespace) (\w+) *=", r"using [\w:]*::(\w+);"]
OTHERS = [
    r"(?:struct|class|union|enum(?: class| struct)?) (\w+)",
    r"#define (\w+)",
    r"TEST(?:_F|_P)?\((\w+, \w+)\)",
    r"(?:TYPED_TEST_SUITE|MATCHER)\w*\((\w+)",
    # What comes before the first of the signs that follow the name of a function or a variable.
    r"(?!template|namespace|using|TEST|struct|class|union|enum)[^({=;]*?[ *&](\w+)(?:\[\w*\])? *[({=;]",
]
PATTERNS = [(re.compile(pattern), pattern in ALIASES) for pattern in ALIASES + OTHERS]


def names(text):
    """What a text declares outside of every class and function: a name, and of an alias its line."""
    found = {}
    for line in re.findall(r"^[\w#].*", text, re.MULTILINE):
        for pattern, is_alias in PATTERNS:
            if match := pattern.match(line):
                found[match[1]] = line if is_alias else None
        if re.match(r"enum (?!class|struct)", line):
            found.update(dict.fromkeys(re.findall(r"([A-Za-z_]\w*)(?= *=| *,| *\})", line)))
    return found


def agree(some, others):
    return all(some[name] is not None and some[name] == others[name]
               for name in some.keys() & others.keys())


def group(texts, most=None):
    """The number of each text's group, of which none has more than `most`."""
    groups, numbers = [], []
    for own in map(names, texts):
        number = next((i for i, taken in enumerate(groups)
                       if numbers.count(i) != most and agree(own, taken)), len(groups))
        if number == len(groups):
            groups.append({})
        groups[number].update(own)
        numbers.append(number)
    return numbers


def main():
    print(";".join(map(str, group([Path(name).read_text("utf-8") for name in sys.argv[1:]]))))


if __name__ == "__main__":
    main()
