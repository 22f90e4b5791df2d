# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What fish completes for a program."""

FOLDERS = "(__fish_complete_directories (commandline -ct))"
RECORDINGS = ("(__fish_complete_path (commandline -ct) | "
              "string match -ri -- '^[^\\t]*(?:\\.wav|/)(?:\\t.*)?$')")


def quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def condition(words):
    """Where the options and operands of these words count: after them, and before a word below."""
    parts = [f"__fish_seen_subcommand_from {name}" for name in words.path[1:]]
    if words.commands:
        names = " ".join(one.name for one in words.commands)
        parts.append(f"not __fish_seen_subcommand_from {names}")
    return f" -n {quoted('; and '.join(parts))}" if parts else ""


def value_words(value):
    return {"choice": f" -x -a {quoted(' '.join(value.choices))}", "files": " -r -F",
            "folders": f" -x -a {quoted(FOLDERS)}",
            "recordings": f" -x -a {quoted(RECORDINGS)}", "anything": " -x"}[value.kind]


def option_lines(words):
    for option in words.options:
        names = "".join([*(f" -s {name}" for name in option.short),
                         *(f" -l {name}" for name in option.long)])
        value = value_words(option.value) if option.takes_value else ""
        yield f"{condition(words)}{names}{value} -d {quoted(option.description)}"


def operand_lines(words):
    for command in words.commands:
        yield f"{condition(words)} -a {command.name} -d {quoted(command.description)}"
    for place in words.places:
        if place.value.kind == "choice":
            yield f"{condition(words)} -a {quoted(' '.join(place.value.choices))}"
        elif place.value.kind == "recordings":
            yield f"{condition(words)} -a {quoted(RECORDINGS)}"
        elif place.value.kind == "folders":
            yield f"{condition(words)} -a {quoted(FOLDERS)}"
        elif place.value.kind == "files":
            yield f"{condition(words)} -F"


def fish_completion(program):
    lines = [f"# Made from the options of {program.name}.", f"complete -c {program.name} -f"]
    for words in program.all():
        told = [*option_lines(words), *operand_lines(words)]
        lines += [f"complete -c {program.name}{line}" for line in told]
    return "\n".join(lines) + "\n"
