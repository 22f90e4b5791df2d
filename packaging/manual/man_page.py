# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The manual page of a program, for man(7)."""

import re

SECTION = re.compile(r"([A-Z][a-z]+(?: [a-z]+)?):(?:\s+|$)")
PROGRAMS = ("mixdeck", "mixdeck-cli", "mixdeck-recorder-sim")


def plain(text):
    """Text of which nothing is an instruction."""
    text = text.replace("\\", "\\(rs").replace("-", "\\-").replace("'", "\\(aq")
    return re.sub(r"^(\s*)\.", r"\1\\&.", text, flags=re.MULTILINE)


def bold(text):
    return f"\\fB{plain(text)}\\fR"


def italic(text):
    return f"\\fI{plain(text)}\\fR"


def head_of(option):
    head = ", ".join(map(bold, option.names)) if option.names else italic(option.place)
    if option.names and option.takes_value:
        head += f" {italic(option.value_name)}"
    return head + (" ..." if option.many else "")


def facts_of(option):
    """What goes with an option, beside its description."""
    is_told = all(word in option.description for word in option.rule.strip("{}").split(","))
    if option.rule and not is_told:
        yield f"one of {option.rule[1:-1]}" if option.rule[0] == "{" else option.rule.lower()
    if option.default:
        yield f"default {option.default}"
    if option.required:
        yield "required"
    if option.needs:
        yield f"needs {', '.join(option.needs)}"
    if option.excludes:
        yield f"not with {', '.join(option.excludes)}"


def described(option):
    facts = "; ".join(facts_of(option))
    parts = [option.description, facts[:1].upper() + facts[1:]]
    text = ". ".join(part.rstrip(".") for part in parts if part)
    return f".TP\n{head_of(option)}\n{plain(text)}.\n"


def synopsis(words):
    parts = [bold(" ".join(words.path))]
    for option in words.options:
        head = f"{bold(option.names[-1])}" + (f" {italic(option.value_name)}" if option.takes_value else "")
        parts.append(head if option.required else f"[{head}]")
    parts += ["[" + italic(one.place) + "]" + (" ..." if one.many else "") for one in words.places]
    if words.commands:
        parts.append(italic("COMMAND") + " ...")
    return " ".join(parts) + "\n"


def paragraphs(text):
    """What is indented keeps its lines; the rest is filled."""
    for block in filter(None, text.split("\n\n")):
        lines = block.split("\n")
        for index, line in enumerate(lines):
            opens = line.startswith(" ") and (index == 0 or not lines[index - 1].startswith(" "))
            closes = not line.startswith(" ") and index > 0 and lines[index - 1].startswith(" ")
            yield ".PP\n" if index == 0 else ""
            yield (".nf\n" if opens else "") + (".fi\n" if closes else "") + plain(line) + "\n"
        yield ".fi\n" if lines[-1].startswith(" ") else ""


def footer_sections(footer):
    """The paragraphs that begin with a word and a colon are sections; the rest comes first."""
    rest, sections = [], []
    for block in filter(None, footer.split("\n\n")):
        name = SECTION.match(block)
        if name:
            sections.append((name[1].upper(), block[name.end():]))
        else:
            rest.append(block)
    return "\n\n".join(rest), sections


def command_part(words):
    rest = "".join(map(described, [*words.options, *words.places]))
    part = f".SS {' '.join(words.path[1:])}\n{synopsis(words)}.PP\n{plain(words.description)}.\n{rest}"
    return part + "".join(paragraphs(words.footer))


def man_page(words):
    rest, sections = footer_sections(words.footer)
    title = words.name.upper().replace("-", "\\-")
    page = [f'.TH "{title}" 1 "" "Mixdeck {words.version}" "User commands"\n', ".ad l\n.nh\n",
            f".SH NAME\n{plain(words.name)} \\- {plain(words.description.rstrip('.'))}\n",
            f".SH SYNOPSIS\n{synopsis(words)}",
            f".SH DESCRIPTION\n{plain(words.description)}\n", *paragraphs(rest), ".SH OPTIONS\n",
            *map(described, [*words.options, *words.places])]
    if words.commands:
        page += [".SH COMMANDS\n", *(command_part(one) for one in list(words.all())[1:])]
    for name, text in sections:
        page += [f".SH {name}\n", *paragraphs(text)]
    others = [f".BR {plain(one)} (1)" for one in PROGRAMS if one != words.name]
    return "".join([*page, ".SH SEE ALSO\n", ",\n".join(others), "\n"])
