"""The documentation as the tests read it: pages, headings, links, code blocks."""
import pathlib
import re

FENCE = re.compile(r"^([ ]*)```(\w*)\n(.*?)^\1```[ ]*$", re.M | re.S)


def pages(root):
    """Every page that readers are sent to: the site's, and those beside the sources."""
    beside = [path for path in sorted(root.rglob("*.md")) if not path.relative_to(root).parts[0].startswith(
        ("build", ".", "docs"))]
    return [*sorted((root / "docs").rglob("*.md")), *beside]


class Block:
    """A fenced block of code, and the words that stand directly before it."""

    def __init__(self, text, match):
        indent = len(match[1])
        self.language = match[2]
        self.code = "".join(line[indent:] if line.strip() else "\n" for line in match[3].splitlines(True))
        self.line = text.count("\n", 0, match.start()) + 1
        before = text[:match.start()].rstrip("\n")
        self.words = "" if before.endswith("```") else before.split("\n\n")[-1]
        self.follows = before[:len(before) - len(self.words)].rstrip().endswith("```")

    @property
    def file(self):
        """The file that the words before the block say it is: "`first.c`:"."""
        found = re.search(r"`([\w.]+\.\w+)`:$", self.words)
        return found and found[1]

    @property
    def is_output(self):
        """A text behind a program, with one paragraph that announces it between the two: what is printed."""
        return self.language == "text" and self.follows and self.words.endswith(":")


def blocks(text):
    return [Block(text, match) for match in FENCE.finditer(text)]


def without_code(text):
    """The text with code blanked, so that lines keep their numbers."""
    text = FENCE.sub(lambda match: "\n" * match[0].count("\n"), text)
    text = re.sub(r"^(?: {4}|\t).*$", "", text, flags=re.M)
    return re.sub(r"`[^`\n]+`", "``", text)


def slug(heading):
    """The anchor of a heading, as repositories and the site make it."""
    words = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading)
    words = re.sub(r"[`*]", "", words).strip().lower()
    return re.sub(r"[^\w\- ]", "", words).replace(" ", "-")


def anchors(text):
    """The anchors of a page. A heading that stands there a second time gets a number."""
    seen, result = {}, set()
    for heading in re.findall(r"^#{1,6} +(.*?)\s*#*$", FENCE.sub("", text), re.M):
        name = slug(heading)
        result.add(f"{name}-{seen[name]}" if name in seen else name)
        seen[name] = seen.get(name, 0) + 1
    return result


def links(text):
    """Line and target of every link."""
    for match in re.finditer(r"\]\(([^)\s]+)\)", without_code(text)):
        yield without_code(text).count("\n", 0, match.start()) + 1, match[1]
