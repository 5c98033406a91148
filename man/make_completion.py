#!/usr/bin/env python3
"""Writes the completion of kyodbc for bash from what the program tells of itself.

usage: make_completion.py PROGRAM OUTPUT
"""
import pathlib
import re
import sys

from help_text import ask_all, flags, takes_value

HEAD = """# Completion of kyodbc for bash, written from the program's own help.
_kyodbc() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]-}
  COMPREPLY=()
  if [[ $COMP_CWORD -eq 1 ]]; then
    COMPREPLY=($(compgen -W '@FIRST@' -- "$current"))
    return
  fi
  case "$command $previous" in
"""
BETWEEN = """  esac
  if [[ $current == -* ]]; then
    case $command in
"""
FOOT = """    esac
    return
  fi
  case $command in
"""
END = """    *) COMPREPLY=($(compgen -f -- "$current")) ;;
  esac
}
complete -o filenames -F _kyodbc kyodbc
"""


def choices(words, text):
    """The words that an argument can be: those in braces, or those that its explanation lists."""
    found = re.search(r"\{([\w,-]+)\}", words)
    if found:
        return found[1].split(",")
    found = re.fullmatch(r"What to \w+: ((?:[\w-]+, )+[\w-]+)", text)
    return found[1].split(", ") if found else []


def reply(words):
    return f"COMPREPLY=($(compgen -W '{' '.join(words)}' -- \"$current\"))"


def value_reply(words, text):
    if choices(words, text):
        return reply(choices(words, text))
    names_file = re.search(r"\bfile\b", f"{words} {text}", re.I)
    return 'COMPREPLY=($(compgen -f -- "$current"))' if names_file else "COMPREPLY=()"


def of_values(command):
    """What stands behind an option that takes a value."""
    name = command.name.split()[-1]
    for words, text in command.entries("Options"):
        if takes_value(words):
            patterns = "|".join(f"'{name} {flag}'" for flag in flags(words))
            yield f"    {patterns}) {value_reply(words, text)}; return ;;"


def options(command):
    return [flag for title, entries in command.sections.items() if title not in ("Positionals", "Subcommands")
            for words, _ in entries for flag in flags(words) if flag.startswith("--")]


def of_options(command):
    return f"      {command.name.split()[-1]}) {reply(options(command))} ;;"


def of_arguments(command):
    """Files and folders, and the words that any argument can be."""
    words = [word for entry in command.entries("Positionals") for word in choices(*entry)]
    name = command.name.split()[-1]
    return (f"    {name}) COMPREPLY=($(compgen -W '{' '.join(words)}' -- \"$current\") "
            "$(compgen -f -- \"$current\")) ;;")


def main(program, output):
    top, subcommands = ask_all(program)
    names = [name for name, _ in top.entries("Subcommands")]
    text = HEAD.replace("@FIRST@", " ".join(names + options(top)))
    text += "\n".join(line for command in subcommands for line in of_values(command)) + "\n" + BETWEEN
    text += "\n".join(map(of_options, subcommands)) + "\n" + FOOT
    text += "\n".join(map(of_arguments, subcommands)) + "\n" + END
    pathlib.Path(output).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
