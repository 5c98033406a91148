#!/usr/bin/env python3
"""Builds the documentation as a folder of plain HTML. Usage: build.py OUTPUT KYODBC-PROGRAM

Pages are Markdown and are found by following the links from docs/index.md, whose lists are also the site's
contents. The reference is Doxygen's, from the public headers, in the same frame.
"""
import html
import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree

from markdown_it import MarkdownIt
from pygments import highlight
from pygments.formatters import HtmlFormatter
from pygments.lexers import get_lexer_by_name

SITE = pathlib.Path(__file__).resolve().parent
ROOT = SITE.parents[1]
FIRST = ROOT / "docs" / "index.md"
ELSEWHERE = re.compile(r"https?:|mailto:|#")
REFERENCE = (("KyODBC.h: the functions", "frame/KyODBC.h"),
             ("Field ids, operators, masks", "frame/field_words.h"), ("Records", "tables/records.h"),
             ("Result codes", "platform/result_codes.h"), ("KyODBCDiag.h: failures and losses", "frame/KyODBCDiag.h"))


def slug(text):
    return re.sub(r"[^\w\- ]", "", text.strip().lower()).replace(" ", "-")


def coloured(code, language, _attributes):
    name = {"": "text", "sh": "bash"}.get(language, language)
    return highlight(code, get_lexer_by_name(name), HtmlFormatter(nowrap=True))


def names_of_reference(output):
    """Where Doxygen describes a class, a record, or what a header declares outside of them."""
    places = {}
    for compound in xml.etree.ElementTree.parse(output / "kyodbc.tag").getroot():
        if compound.get("kind") != "file":
            places.setdefault(compound.findtext("name"), reference_page(compound.findtext("filename")))
            continue
        for member in compound.findall("member"):
            place = f"{reference_page(member.findtext('anchorfile'))}#{member.findtext('anchor')}"
            places.setdefault(member.findtext("name"), place)
    return places


def reference_page(page):
    return "reference/" + (page if page.endswith(".html") else page + ".html")


def header_page(header):
    """Where the reference describes a header: Doxygen's way to make a file's name from it."""
    return f"reference/{header.rpartition('/')[2].replace('_', '__').replace('.', '_8')}.html"


class Pages:
    """The pages that can be reached from the first one, and where they lie on the site."""

    def __init__(self, program):
        self.names, self.program = {}, program
        self.markdown = MarkdownIt("commonmark", {"highlight": coloured}).enable("table")
        self.places, self.files, self.waiting = {}, {}, []
        self.reach(FIRST)

    def reach(self, path):
        """The page's place on the site; it will be written."""
        if path not in self.places:
            name = path.relative_to(ROOT)
            inside = name.parts[0] == "docs"
            place = name.relative_to("docs").as_posix() if inside else "project/" + "-".join(name.parts)
            self.places[path] = place[:-len(".md")] + ".html"
            self.waiting.append(path)
        return self.places[path]

    def target(self, page, link):
        """Where a link of a page leads on the site, seen from that page."""
        if ELSEWHERE.match(link):
            return link
        link, _, anchor = link.partition("#")
        path = (page.parent / link).resolve()
        if path.is_dir():
            path = path / "README.md"
        if path.suffix == ".md" and path.exists():
            place = self.reach(path)
        elif path.relative_to(ROOT).as_posix() in dict(REFERENCE).values():
            place = header_page(path.name)
        elif path.exists() and path.is_file():
            place = self.files[path] = f"files/{path.relative_to(ROOT).as_posix()}"
        else:
            return None
        return up(self.places[page]) + place + (f"#{anchor}" if anchor else "")

    def render(self, page, text):
        tokens = self.markdown.parse(text)
        seen = {}
        for number, token in enumerate(tokens):
            if token.type == "heading_open":
                name = slug(re.sub(r"[`*]|\]\([^)]*\)|\[", "", tokens[number + 1].content))
                seen[name] = seen.get(name, -1) + 1
                token.attrSet("id", f"{name}-{seen[name]}" if seen[name] else name)
            if token.type == "table_open":
                table = re.match(r"<!-- table: (\S+)", tokens[number - 1].content)
                token.attrSet("class", table[1] if table else "plain")
            if token.type == "inline":
                self.link(page, token.children)
        body = self.markdown.renderer.render(tokens, self.markdown.options, {})
        body = body.replace("<table", '<div class="wide"><table').replace("</table>", "</table></div>")
        body = re.sub(r"<code>([\w:]+)</code>", lambda match: self.name(page, match), body)
        return re.sub(r"<!-- insert: kyodbc help -->", lambda _: self.help(), body)

    def link(self, page, tokens):
        for token in tokens:
            if token.type == "link_open":
                place = self.target(page, token.attrGet("href"))
                if place is None:
                    sys.exit(f"{page}: {token.attrGet('href')} leads nowhere")
                token.attrSet("href", place)
            if token.type == "image":
                token.attrSet("src", self.target(page, token.attrGet("src")))

    def name(self, page, match):
        """A name that the reference describes leads there."""
        place = self.names.get(match[1])
        return f'<a class="name" href="{up(self.places[page])}{place}">{match[0]}</a>' if place else match[0]

    def help(self):
        """What the program says of itself and of each of its commands."""
        said = self.said("--help")
        commands = re.findall(r"^  ([a-z][\w-]*)\s", said.partition("Subcommands:")[2], re.M)
        parts = [("kyodbc", said)]
        parts += [(f"kyodbc {command}", self.said(command, "--help")) for command in commands]
        return "\n".join(f'<h2 id="{slug(title)}">{title}</h2>\n<pre><code>{html.escape(text)}</code></pre>'
                         for title, text in parts)

    def said(self, *arguments):
        return subprocess.run([self.program, *arguments], check=True, stdout=subprocess.PIPE,
                              encoding="utf-8").stdout


def up(place):
    return "../" * place.count("/")


def contents(pages, place):
    """The lists of the first page, as seen from `place`, and the reference."""
    parts = [f'<p><a href="{up(place)}index.html">KyODBC</a></p>']
    first = FIRST.read_text(encoding="utf-8")
    for title, body in re.findall(r"^## (.*?)\n(.*?)(?=^## |\Z)", first, re.M | re.S):
        links = [(name, pages.target(FIRST, link)) for name, link in re.findall(r"\[(.*?)\]\((.*?)\)", body)]
        guides = [(name, link) for name, link in links if not link.startswith("reference/")]
        parts.append(chapter(title, guides, place))
    parts.append(chapter("Reference", [
        *((name, header_page(header)) for name, header in REFERENCE),
        ("Classes", "reference/annotated.html"), ("All names", "reference/globals.html")], place))
    return "\n".join(parts)


def chapter(title, links, place):
    items = "".join(
        f'<li><a href="{up(place)}{link}"{here(link, place)}>{name[:1].upper()}{name[1:]}</a></li>'
        for name, link in links)
    return f"<h2>{title}</h2>\n<ul>{items}</ul>"


def here(link, place):
    return ' aria-current="page"' if link == place else ""


def framed(title, navigation, body, root):
    frame = (SITE / "page.html").read_text(encoding="utf-8")
    values = {"TITLE": title, "CONTENTS": navigation, "BODY": body, "ROOT": root}
    return re.sub(r"@([A-Z]+)@", lambda match: values[match[1]], frame)


def on_this_page(body):
    """The page's chapters, when there are several. A page with very many has a table of its own."""
    found = re.findall(r'<h2 id="([^"]+)">(.*?)</h2>', body)
    if not 3 <= len(found) <= 16:
        return ""
    items = "".join(f'<li><a href="#{name}">{re.sub("<[^>]+>", "", title)}</a></li>' for name, title in found)
    return f'<nav class="chapters" aria-label="On this page"><ul>{items}</ul></nav>'


def run_doxygen(output, header, footer):
    settings = (SITE / "Doxyfile").read_text(encoding="utf-8")
    settings += f"OUTPUT_DIRECTORY={output}\nGENERATE_TAGFILE={output}/kyodbc.tag\n"
    settings += f"HTML_HEADER={header}\nHTML_FOOTER={footer}\n"
    subprocess.run(["doxygen", "-"], input=settings, encoding="utf-8", check=True, cwd=ROOT)


def write_reference(output, navigation):
    """Doxygen's pages in the frame of the site. Doxygen ends the element "top" by itself."""
    start, end = framed("$title", navigation, '<div class="reference"><div id="top">@@', "../").split("@@")
    frame = output / "frame"
    frame.mkdir()
    (frame / "header.html").write_text(start)
    (frame / "footer.html").write_text("</div>" + end)
    run_doxygen(output, frame / "header.html", frame / "footer.html")
    shutil.rmtree(frame)


def write_pages(output, pages):
    while pages.waiting:
        page = pages.waiting.pop()
        text = page.read_text(encoding="utf-8")
        place = pages.places[page]
        body = pages.render(page, text)
        title = re.sub("<[^>]+>", "", re.search(r"<h1[^>]*>(.*?)</h1>", body, re.S)[1])
        body = body.replace("</h1>", "</h1>" + on_this_page(body), 1)
        target = output / place
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(framed(title, contents(pages, place), body, up(place)), encoding="utf-8")


def main(output, program):
    output = pathlib.Path(output).resolve()
    shutil.rmtree(output, ignore_errors=True)
    output.mkdir(parents=True)
    pages = Pages(program)
    write_reference(output, contents(pages, "reference/index.html"))
    pages.names = names_of_reference(output)
    write_pages(output, pages)
    for source, place in pages.files.items():
        (output / place).parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, output / place)
    for name in ("style.css", "tables.js"):
        shutil.copyfile(SITE / name, output / name)
    (output / "kyodbc.tag").unlink()
    print(f"{len(pages.places)} pages and the reference: {output}/index.html")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
