"""What the program kyodbc tells of itself with --help, taken apart."""
import dataclasses
import re
import subprocess

_SECTIONS = ("Positionals:", "Options:", "Subcommands:")


@dataclasses.dataclass
class Help:
    """The help of the program or of a subcommand. `sections` has entries (words, text) by title."""
    name: str
    summary: str = ""
    usage: str = ""
    sections: dict = dataclasses.field(default_factory=dict)
    footer: str = ""

    def entries(self, title):
        return self.sections.get(title, [])


def _begins_section(line):
    return line in _SECTIONS or re.fullmatch(r"\[Option Group: .*\]", line) is not None


def parse(name, text):
    """Summary and usage, sections of entries two blanks in with an empty line behind each, and whatever stands
    behind them. An entry's text stands behind its words, or on the next line when they are wide."""
    help_text, section, footer, before = Help(name), None, [], ""
    for line in text.rstrip().split("\n"):
        if _begins_section(line):
            section = help_text.sections.setdefault(line.strip("[]:"), [])
        elif section is None and line.startswith("Usage:"):
            help_text.usage = line.removeprefix("Usage:").strip()
        elif section is None:
            help_text.summary = f"{help_text.summary} {line.strip()}".strip()
        elif footer or (line and before == ""):
            footer.append(line)
        elif re.match(r"  \S", line):
            words, _, explained = line.strip().partition("  ")
            section.append((words.strip(), explained.strip()))
        elif line.strip():
            words, explained = section[-1]
            section[-1] = (words, f"{explained} {line.strip()}".strip())
        before = line
    help_text.footer = "\n".join(footer).strip("\n")
    return help_text


def ask(program, *words):
    output = subprocess.run([program, *words, "--help"], check=True, capture_output=True, encoding="utf-8").stdout
    return parse(" ".join(["kyodbc", *words]), output)


def ask_all(program):
    """The help of the program, and that of each of its subcommands in its order."""
    top = ask(program)
    subcommands = [ask(program, name) for name, _ in top.entries("Subcommands")]
    if not subcommands:
        raise SystemExit(f"{program}: --help names no subcommands")
    return top, subcommands


def flags(words):
    """The names of an option: of "-h,--help" both."""
    return re.findall(r"(?:^|,)(--?[\w-]+)", words.split()[0])


def takes_value(words):
    """Whether more than the option's names stands there, as "--sort TEXT"; "--yes Excludes: --no" has no value."""
    return len(re.split(r" (?:Excludes|Needs):", words)[0].split()) > 1
