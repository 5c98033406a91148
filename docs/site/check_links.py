#!/usr/bin/env python3
"""Tells which links of the built site lead nowhere. Usage: check_links.py SITE"""
import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """The anchors of a page and what it refers to."""

    def __init__(self, path):
        super().__init__()
        self.anchors, self.targets = set(), []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.anchors.add(attributes.get("id"))
        if tag == "a":
            self.anchors.add(attributes.get("name"))
        self.targets += filter(None, (attributes.get("href"), attributes.get("src")))


def offences(site):
    pages = {path.resolve(): Page(path) for path in sorted(site.rglob("*.html"))}
    for path, page in pages.items():
        for target in page.targets:
            address = urllib.parse.urlsplit(target)
            if address.scheme or address.netloc:
                continue
            name = urllib.parse.unquote(address.path)
            file = (path.parent / name).resolve() if name else path
            if not file.is_file():
                yield f"{path.relative_to(site)}: {target}: no such file"
            elif address.fragment and file in pages and address.fragment not in pages[file].anchors:
                yield f"{path.relative_to(site)}: {target}: no such place"


def main(site):
    found = list(offences(pathlib.Path(site).resolve()))
    print("\n".join(found) if found else "every link leads somewhere")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]) if len(sys.argv) == 2 else __doc__)
