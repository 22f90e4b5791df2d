# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What zsh completes for a program."""

from words import RECORDINGS


def quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def escaped(text):
    for sign in "\\[]:":
        text = text.replace(sign, f"\\{sign}")
    return text


def action(value):
    # _files would offer all files where none is right.
    return {"choice": f"({' '.join(value.choices)})", "files": "_files",
            "folders": "_path_files -/", "anything": " ",
            "recordings": f'_path_files -g "*.{RECORDINGS}(-.) *(-/)"'}[value.kind]


def option_specs(words):
    for option in words.options:
        for name in option.names:
            spec = name + ("=" if option.takes_value else "") + f"[{escaped(option.description)}]"
            if option.takes_value:
                spec += f":{escaped(option.value_name or 'value')}:{action(option.value)}"
            yield quoted(spec)


def place_specs(words):
    for place in words.places:
        number = "*" if place.many else ""
        # A message about what may be anything would keep options from being completed at once.
        offered = "()" if place.value.kind == "anything" else action(place.value)
        yield quoted(f"{number}:{escaped(place.place)}:{offered}")


def function_of(words):
    return "_" + "_".join(words.path).replace("-", "_")


def plain_function(words):
    specs = [*option_specs(words), *place_specs(words)]
    return f"{function_of(words)}() {{\n  _arguments " + " \\\n    ".join(specs) + "\n}\n"


def branching_function(words):
    """Options, then a command, then whatever that one takes."""
    specs = [*option_specs(words), "'1:command:->command'", "'*::argument:->arguments'"]
    told = [quoted(f"{escaped(one.name)}:{one.description}") for one in words.commands]
    calls = [f"      {one.name}) {function_of(one)} ;;" for one in words.commands]
    return "\n".join([f"{function_of(words)}() {{",
                      "  local context state line", "  typeset -A opt_args", "  local -a commands",
                      "  commands=(" + "\n    ".join(told) + ")",
                      "  _arguments -C " + " \\\n    ".join(specs), "  case $state in",
                      "    command) _describe command commands ;;",
                      "    arguments) case $line[1] in", *calls, "      esac ;;", "  esac", "}", ""])


def zsh_completion(program):
    parts = [branching_function(one) if one.commands else plain_function(one)
             for one in program.all()]
    # Sourced or loaded by its name, it is the function that is called.
    return (f"#compdef {program.name}\n# Made from the options of {program.name}.\n"
            + "\n".join(reversed(parts)) + f"\n{function_of(program)} \"$@\"\n")
