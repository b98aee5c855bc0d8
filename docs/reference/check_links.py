#!/usr/bin/python3
"""check_links.py PAGES: follows every link of the built pages below PAGES and of the project's Markdown files.

What a link names must be there, its anchor included; nothing is fetched. From the project's root. Exit status 1 when
a link leads nowhere.
"""
import html
import pathlib
import re
import sys
import urllib.parse

import markdown

ANCHOR = re.compile(r'\b(?:id|name)="([^"]*)"')
LINK = re.compile(r'<(?:a|img|link|script|area|iframe)\b[^>]*?\b(?:href|src)="([^"]*)"')


class Page:
    """A file's anchors, and the places that it leads to."""

    def __init__(self, text):
        self.anchors = {html.unescape(name) for name in ANCHOR.findall(text)}
        self.links = {html.unescape(link) for link in LINK.findall(text)}


def markdown_page(path):
    return Page(markdown.markdown(path.read_text(), extensions=["tables", "fenced_code", "toc"]))


def built_page(path):
    return Page(path.read_text())


def project_pages():
    folders = (path for path in pathlib.Path(".").iterdir() if path.name not in ("build", ".git"))
    for path in folders:
        for file in path.rglob("*.md") if path.is_dir() else [path]:
            if file.suffix == ".md":
                yield file.resolve()


def fault(path, link, pages):
    """Why the link leads nowhere; None when it does not."""
    target = urllib.parse.urlsplit(link)
    if target.scheme or target.netloc:
        return None
    file = (path.parent / urllib.parse.unquote(target.path)).resolve() if target.path else path
    if not file.exists():
        return "no such file"
    anchor = urllib.parse.unquote(target.fragment)
    if anchor and file in pages and anchor not in pages[file].anchors:
        return "no such anchor"
    return None


def main(folder):
    pages = {path: markdown_page(path) for path in project_pages()}
    pages.update((path.resolve(), built_page(path)) for path in pathlib.Path(folder).glob("*.html"))
    faults = [f"{path}: {link}: {reason}"
              for path, page in sorted(pages.items())
              for link in sorted(page.links)
              if (reason := fault(path, link, pages))]
    for line in faults:
        print(line, file=sys.stderr)
    count = sum(len(page.links) for page in pages.values())
    print(f"{count} links of {len(pages)} pages, {len(faults)} of them broken")
    return 1 if faults else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("check_links.py: expected the folder of the built pages. Type: check_links.py build/docs/html")
    sys.exit(main(sys.argv[1]))
