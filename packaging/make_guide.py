#!/usr/bin/python3
"""make_guide.py DOCS TARGET: the users' pages in Japanese as HTML, with their pictures, for those who read them
where no viewer of Markdown is; and those that there are in English only. A link to another file of the sources
becomes text that says so; one that leads nowhere is a failure."""

import pathlib
import re
import shutil
import sys

import markdown
from markdown.extensions.toc import slugify_unicode

PAGES = ["install", "screens", "cadhost", "cvt-file", "settings", "kivcvt", "reports", "dimensions", "pictures",
         "many-machines", "host-differences", "real-host"]
HEADING = re.compile(r'<h[1-6] id="([^"]*)"')
LINK = re.compile(r'<a href="([^"]*)">(.*?)</a>', re.DOTALL)
PICTURE = re.compile(r'<img [^>]*?src="([^"]*)"')
STYLE = """body { font: 15px/1.8 "Yu Gothic UI", Meiryo, "Noto Sans CJK JP", sans-serif; color: #222; margin: 0 }
nav { background: #f2f4f7; padding: 8px 24px }
nav a { margin-right: 16px; white-space: nowrap }
main { max-width: 900px; margin: 0 auto; padding: 0 24px 48px }
h1, h2 { border-bottom: 1px solid #ccd }
a { color: #1558b0 }
code { background: #f2f4f7; padding: 0 3px }
pre { background: #f2f4f7; padding: 8px 12px; overflow: auto; line-height: 1.5 }
table { border-collapse: collapse }
th, td { border: 1px solid #ccd; padding: 2px 8px; vertical-align: top; text-align: left }
img { max-width: 100%; border: 1px solid #ccd }
"""


def title(text):
    return re.search(r"^# (.*)$", text, re.MULTILINE)[1]


def source(docs, name):
    japanese = docs / f"{name}.ja.md"
    return japanese if japanese.exists() else docs / f"{name}.md"


def body(text):
    return markdown.markdown(text, extensions=["tables", "fenced_code", "sane_lists", "toc"],
                             extension_configs={"toc": {"slugify": slugify_unicode}})


def place_here(docs, name, place):
    """Where a page in English leads to in the guide: both languages have the same headings in the same order."""
    english, here = (HEADING.findall(body(file.read_text(encoding="utf-8")))
                     for file in (docs / f"{name}.md", source(docs, name)))
    return here[english.index(place)] if place in english and len(english) == len(here) else place


def linked(docs, page):
    """The function that makes of a link of `page`, in Markdown's HTML, what it is in the guide."""
    def link(match):
        address, words = match.groups()
        path, _, place = address.partition("#")
        name = path.removesuffix(".md").removesuffix(".ja")
        if address.startswith("https:") or not path:
            return match[0]
        if path.endswith(".md") and name in PAGES:
            if place and not path.endswith(".ja.md"):
                place = place_here(docs, name, place)
            return f'<a href="{name}.html{"#" if place else ""}{place}">{words}</a>'
        if not (docs / path).exists():
            sys.exit(f"{page}: {address} is not there")
        in_japanese = page.name.endswith(".ja.md")
        return f"{words}（ソースの docs/{path}）" if in_japanese else f"{words} (docs/{path} of the sources)"
    return link


def html(docs, page, text, navigation):
    # The link to the same page in the other language leads nowhere here.
    text = re.sub(r"^\[(English|日本語)\]\([^)]*\)\n", "", text, flags=re.MULTILINE)
    return ("<!DOCTYPE html>\n"
            f'<html lang="ja"><head><meta charset="utf-8"><title>{title(text)}</title>'
            f'<link rel="stylesheet" href="guide.css"></head>\n'
            f"<body><nav>{navigation}</nav>\n<main>\n"
            f"{LINK.sub(linked(docs, page), body(text))}\n</main></body></html>\n")


def check(guide):
    """Every link of every page leads to a file, and a place in it, of the guide itself."""
    pages = {page.name: page.read_text(encoding="utf-8") for page in guide.glob("*.html")}
    for name, text in pages.items():
        for address in re.findall(r'(?:href|src)="([^"]*)"', text):
            if address.startswith("https:"):
                continue
            path, _, place = address.partition("#")
            path = path or name
            if not (guide / path).is_file() or place and f'id="{place}"' not in pages.get(path, ""):
                sys.exit(f"guide: {name} leads to {address}, which is not there")


docs, guide = map(pathlib.Path, sys.argv[1:])
texts = {name: source(docs, name).read_text(encoding="utf-8") for name in PAGES}
links = " ".join(f'<a href="{name}.html">{title(text)}</a>' for name, text in texts.items())
guide.mkdir(parents=True)
(guide / "guide.css").write_text(STYLE, encoding="utf-8")
for name, text in texts.items():
    page = html(docs, source(docs, name), text, links)
    (guide / f"{name}.html").write_text(page, encoding="utf-8")
    for picture in PICTURE.findall(page):
        (guide / picture).parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(docs / picture, guide / picture)
check(guide)
