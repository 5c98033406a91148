#!/usr/bin/env python3
"""Makes the comments of a public header readable to Doxygen. Usage: reference_filter.py HEADER

The headers are written for people who read them as they are: plain comments, one contract for a family of
functions, below it what is special about a single one. Doxygen wants marks, and a contract for each.
"""
import re
import sys

TITLE = re.compile(r"/\* ---- (.*?) ---- \*/")


def escaped(line):
    """Signs that Doxygen would take for commands. Code, which is indented or quoted, is left as it is."""
    if line.startswith("    "):
        return line
    parts = line.split("`")
    parts[::2] = [re.sub(r"([\\@<>&#%])", r"\\\1", part) for part in parts[::2]]
    return linked("`".join(parts))


def linked(line):
    """Names of functions lead to them, but for families, which end in dots. "e.g." ends no sentence."""
    line = re.sub(r"(?<!\w)(DB_\w+)(?!\w|\.\.)", r"#\1", line)
    return line.replace("e.g. ", "e.g.&nbsp;")


def as_code(paragraph):
    """Tables and examples are indented by hand; numbered lists are, too, but are none."""
    lines = paragraph.split("\n")
    if re.match(r" *\d+\. ", lines[0]):
        return re.sub(r"^ +(?=\d+\. )", "", "\n".join(escaped(line) for line in lines), flags=re.M)
    if not all(line.startswith("  ") for line in lines):
        return re.sub(r"^(\d+)\.", r"\1\\.", "\n".join(escaped(line) for line in lines), flags=re.M)
    return "\n".join(f"    {line.strip() if len(lines) == 1 else line[2:]}" for line in lines)


def words(comment):
    """The text of a block comment or of a run of line comments."""
    if comment.lstrip().startswith("//"):
        lines = [re.sub(r"^\s*// ?", "", line) for line in comment.split("\n")]
    else:
        inside = comment.strip()[2:-2]
        lines = [re.sub(r"^\s*\*? ?", "", line, count=1) if number else line.strip()
                 for number, line in enumerate(inside.split("\n"))]
        lines = [re.sub(r"^ \* ?|^\s*\*$", "", line) for line in lines]
    text = "\n".join(line.rstrip() for line in lines).strip("\n")
    return "\n\n".join(as_code(paragraph) for paragraph in text.split("\n\n"))


def documentation(*texts, before=""):
    """A comment for Doxygen."""
    text = "\n\n".join(texts)
    return "/** " + before + re.sub(r"\n", "\n * ", text).replace(" * \n", " *\n") + " */"


def is_comment(line):
    return line.lstrip().startswith(("/*", "//"))


def take_comment(lines):
    """Takes the comment that the lines begin with."""
    if lines[0].lstrip().startswith("//"):
        taken = [lines.pop(0)]
        while lines and lines[0].lstrip().startswith("//"):
            taken.append(lines.pop(0))
        return "\n".join(taken)
    taken = [lines.pop(0)]
    while "*/" not in taken[-1]:
        taken.append(lines.pop(0))
    return "\n".join(taken)


def take_declaration(lines):
    taken = [lines.pop(0)]
    while ";" not in taken[-1]:
        taken.append(lines.pop(0))
    return taken


def family(lines):
    """A contract and the functions below it, up to the next empty line."""
    common, own, result = [words(take_comment(lines))], [], []
    while lines and lines[0].strip():
        if is_comment(lines[0]):
            own = [words(take_comment(lines))]
            continue
        result += [documentation(*common, *own), *take_declaration(lines)]
        own = []
    return result


def behind_code(line):
    """A member with a comment behind it. Of a class that is only announced nothing is described here."""
    if re.match(r"(?:class|struct) \w+;", line):
        return line.split("//")[0].rstrip()
    line = re.sub(r"^(\s*[^\s/].*?\S\s+)//(?!/) ?", r"\1///< ", line)
    line = re.sub(r"^(\s*[^\s/].*?\S\s*)/\*(?!\*)", r"\1/**<", line)
    return re.sub(r"(/\*\*< )(t[A-Z]\w+) +(?=\S)", r"\1column \2: ", line)


def heading(lines, title):
    """A section, with the comment that stands alone below its title."""
    rest = lines
    while rest and not rest[0].strip():
        rest.pop(0)
    parts = [f"@name {title}"]
    if rest and is_comment(rest[0]) and not TITLE.match(rest[0]):
        ahead = list(rest)
        text = words(take_comment(ahead))
        if not ahead or not ahead[0].strip():
            parts.append(text)
            del rest[:len(rest) - len(ahead)]
    return [documentation(*parts), "/** @{ */", ""]


def marked(comment):
    """A comment in its own form, with Doxygen's mark."""
    indent = re.match(r"\s*", comment)[0]
    if not comment.lstrip().startswith("//"):
        return indent + documentation(words(comment))
    return "\n".join(f"{indent}/// {line}".rstrip() for line in words(comment).split("\n"))


def is_family(lines):
    """A comment with exported functions below it."""
    ahead = list(lines)
    while ahead and is_comment(ahead[0]):
        take_comment(ahead)
    return bool(ahead) and ahead[0].startswith("KYODBC_API") and "(" in "".join(ahead[:2])


def is_named_after(line, name):
    """The class that a header is named after: what the header says of itself is said of the class."""
    found = re.match(r"class KYODBC_API (\w+)", line)
    stem = re.sub(r".*/|\.h$", "", name)
    return bool(found) and found[1].lower() in (stem, f"c{stem}")


def filtered(text, name=""):
    lines, result, in_section, about = text.split("\n"), [], False, ""
    if name and is_comment(lines[0]):
        about = words(take_comment(lines))
        result.append(documentation(about, before="@file\n * "))
    while lines:
        if is_named_after(lines[0], name) and not result[-1]:
            result.append(documentation(about))
        title = TITLE.match(lines[0])
        if in_section and (title or lines[0].startswith("#if")):
            result.append("/** @} */")
            in_section = False
        if title:
            lines.pop(0)
            result += heading(lines, title[1])
            in_section = True
        elif is_comment(lines[0]) and is_family(lines):
            result += family(lines)
        elif is_comment(lines[0]):
            comment = take_comment(lines)
            result.append(marked(comment))
        else:
            result.append(behind_code(lines.pop(0)))
    return "\n".join(result)


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as header:
        sys.stdout.write(filtered(header.read(), sys.argv[1]))
