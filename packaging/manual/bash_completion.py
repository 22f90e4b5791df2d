# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What bash completes for a program. It needs none of the functions of other packages."""

from words import RECORDINGS

# Bash takes "--name=value" for three words.
FRAME = """\
# Made from the options of {program}.
_{function}() {{
  local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD - 1]}} place= i
  if [[ $current == = ]]; then
    current=
  elif [[ $previous == = ]]; then
    previous=${{COMP_WORDS[COMP_CWORD - 2]}}
  fi
  for ((i = 1; i < COMP_CWORD; i++)); do
    case "$place ${{COMP_WORDS[i]}}" in
{places}
    esac
  done
  COMPREPLY=()
  case "$place $previous" in
{values}
  esac
  if [[ $current == -* ]]; then
    case "$place" in
{options}
    esac
    return
  fi
  case "$place" in
{operands}
  esac
}}
complete -F _{function} {program}
"""


def place_of(words):
    return " ".join(words.path[1:])


def reply(value):
    """The lines that fill COMPREPLY with what may stand there."""
    if value.kind == "choice":
        return f"mapfile -t COMPREPLY < <(compgen -W '{' '.join(value.choices)}' -- \"$current\")"
    if value.kind == "anything":
        return ":"
    made = {"files": "compgen -f -- \"$current\"", "folders": "compgen -d -- \"$current\"",
            "recordings": f"compgen -f -X '!*.{RECORDINGS}' -- \"$current\"; "
                          "compgen -d -- \"$current\""}[value.kind]
    return f"compopt -o filenames; mapfile -t COMPREPLY < <({made})"


def place_cases(program):
    for words in program.all():
        for command in words.commands:
            yield f"      '{place_of(words)} {command.name}') place='{place_of(command)}' ;;"


def value_cases(program):
    for words in program.all():
        for option in words.options:
            if option.takes_value:
                names = "|".join(f"'{place_of(words)} {name}'" for name in option.names)
                yield f"    {names}) {reply(option.value)}; return ;;"


def option_cases(program):
    for words in program.all():
        names = " ".join(name for option in words.options for name in option.names)
        yield (f"      '{place_of(words)}') "
               f"mapfile -t COMPREPLY < <(compgen -W '{names}' -- \"$current\") ;;")


def operand_cases(program):
    for words in program.all():
        if words.commands:
            names = " ".join(command.name for command in words.commands)
            yield (f"    '{place_of(words)}') "
                   f"mapfile -t COMPREPLY < <(compgen -W '{names}' -- \"$current\") ;;")
        elif words.places:
            yield f"    '{place_of(words)}') {reply(words.places[0].value)} ;;"


def bash_completion(program):
    # A case without a branch would be wrong.
    def lines(cases):
        return "\n".join(cases) or "      '') ;;"
    return FRAME.format(program=program.name, function=program.name.replace("-", "_"),
                        places=lines(place_cases(program)), values=lines(value_cases(program)),
                        options=lines(option_cases(program)),
                        operands=lines(operand_cases(program)))
