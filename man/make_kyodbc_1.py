#!/usr/bin/env python3
"""Writes kyodbc(1) from what the program tells of itself. Usage: make_kyodbc_1.py PROGRAM VERSION OUTPUT"""
import sys

from help_text import ask_all
from roff import Page

ENVIRONMENT = (
    ("KYODBC_PASSWORD", "The password for a data source, where neither a file nor the terminal gives it."),
    ("KYODBC_LOG", "What is logged: `off`, `error` (every database error with the code it became), `debug` "
                   "(every SQL statement and its time) or `trace` (every ODBC call)."),
    ("KYODBC_LOG_FILE", "Where the log goes; else to the error output."),
    ("KYODBC_LOG_VALUES", "With `1` the log shows patients' values, which it masks otherwise."),
    ("ODBCINI, ODBCSYSINI", "Where the driver manager finds data sources and drivers."),
)
LEFT_OUT = ("-h,--help",)


def common_options(subcommands):
    """The options that most subcommands have, word for word."""
    every = [entry for command in subcommands for entry in command.entries("Options")]
    return [entry for entry in dict.fromkeys(every)
            if entry[0] not in LEFT_OUT and every.count(entry) * 2 > len(subcommands)]


def describe(page, command, common, top_footer):
    page.subheading(command.usage)
    page.paragraph(command.summary + ".")
    for title, entries in command.sections.items():
        for words, text in entries:
            if words not in LEFT_OUT and not (title == "Options" and (words, text) in common):
                page.term(words, text)
    if command.footer and command.footer != top_footer:
        page.verbatim(command.footer)


def main(program, version, output):
    top, subcommands = ask_all(program)
    common = common_options(subcommands)
    page = Page("kyodbc", 1, version, "make, fill, look at and examine practice databases")
    page.heading("SYNOPSIS")
    page.paragraph(f"`{top.usage}`")
    page.heading("DESCRIPTION")
    page.paragraph(top.summary)
    page.paragraph("The subcommands, in short:")
    for name, text in top.entries("Subcommands"):
        page.term(name, text)
    page.heading("COMMON OPTIONS")
    page.paragraph("Of most subcommands:")
    for words, text in common:
        page.term(words, text)
    own = [entry for entry in top.entries("Options") if entry[0] not in LEFT_OUT]
    if own:
        page.paragraph("Before the subcommand:")
    for words, text in own:
        page.term(words, text)
    page.heading("SUBCOMMANDS")
    for command in subcommands:
        describe(page, command, common, top.footer)
    page.heading("EXIT STATUS")
    page.verbatim(top.footer)
    page.heading("ENVIRONMENT")
    for name, text in ENVIRONMENT:
        page.term(name, text)
    page.heading("SEE ALSO")
    page.paragraph("kyodbc(3), libkyfault(7), odbcinst(1), isql(1)")
    page.write(output)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
