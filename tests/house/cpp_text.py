"""C and C++ sources as the house rules look at them: without comments and literals, cut into functions."""
import re

# A comment, a literal or a preprocessor line; whatever is not asked for is blanked, line by line.
_TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<raw>R"(?P<delimiter>[^(\s]*)\(.*?\)(?P=delimiter)")
      | (?P<literal>"(?:\\.|[^"\\\n])*"|(?<![0-9a-zA-Z_])'(?:\\.|[^'\\\n])*')""",
    re.X | re.S,
)
_DIRECTIVE = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.M)


def _blank(text):
    return re.sub(r"[^\n]", " ", text)


def without_comments(text):
    return _TOKEN.sub(lambda m: _blank(m.group()) if m.group("comment") else m.group(), text)


def code_only(text):
    """Comments gone, literals emptied; every line keeps its number."""
    def clean(match):
        blank = _blank(match.group())
        return blank if match.group("comment") else '"' + blank[2:] + '"'

    return _TOKEN.sub(clean, text)


def _opens_function(head):
    """Whether a brace after `head`, outside any function, opens a function's body."""
    if head == "":
        return True  # behind a brace in a constructor's initialiser list
    if head.endswith(("=", ",", "(")) or head.startswith(("namespace", "extern")):
        return False
    if re.search(r"\b(?:class|struct|union|enum)\b[^()]*$", head):
        return False
    return "(" in head


def functions(text):
    """Yields (line, number of lines, head) of every function body, signature included."""
    text = _DIRECTIVE.sub(lambda m: _blank(m.group()), code_only(text))
    stack = []  # for each open brace: the line and head of the function it opens, or None
    inside = False
    start = 0  # where the text since the last brace or semicolon begins
    line = 1
    for position, char in enumerate(text):
        if char == "\n":
            line += 1
        elif char == "{":
            piece = text[start:position]
            head = " ".join(piece.split())
            opens = not inside and _opens_function(head)
            first = line - piece.lstrip().count("\n")
            stack.append((first, head) if opens else None)
            inside = inside or opens
            start = position + 1
        elif char == "}" and stack:
            opened = stack.pop()
            if opened is not None:
                inside = False
                yield opened[0], line - opened[0] + 1, opened[1]
            start = position + 1
        elif char == ";":
            start = position + 1
