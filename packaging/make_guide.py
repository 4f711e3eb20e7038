#!/usr/bin/python3
"""make_guide.py DOCS TARGET: the users' pages in Japanese as HTML, with their pictures, for those who read them
where no viewer of Markdown is; and the one in English for those who build the module. A link that leads to no page
here becomes plain text."""

import pathlib
import re
import shutil
import sys

import markdown
from markdown.extensions.toc import slugify_unicode

PAGES = ["install", "screens", "cadhost", "cvt-file", "settings", "kivcvt", "reports", "dimensions", "pictures",
         "many-machines", "real-host"]
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


def target(address):
    """Where a link of a page leads to in the guide; None when it leads out of it."""
    if address.startswith(("#", "https:")):
        return address
    path, mark, place = address.partition("#")
    name = path.removesuffix(".md").removesuffix(".ja")
    return f"{name}.html{mark}{place}" if path.endswith(".md") and name in PAGES else None


def source(docs, name):
    japanese = docs / f"{name}.ja.md"
    return japanese if japanese.exists() else docs / f"{name}.md"


def link(match):
    address = target(match[1])
    return match[2] if address is None else f'<a href="{address}">{match[2]}</a>'


def html(text, navigation):
    # The link to the same page in English leads nowhere here.
    text = re.sub(r"^\[English\]\([^)]*\)\n", "", text, flags=re.MULTILINE)
    body = markdown.markdown(text, extensions=["tables", "fenced_code", "sane_lists", "toc"],
                             extension_configs={"toc": {"slugify": slugify_unicode}})
    return ("<!DOCTYPE html>\n"
            f'<html lang="ja"><head><meta charset="utf-8"><title>{title(text)}</title>'
            f'<link rel="stylesheet" href="guide.css"></head>\n'
            f"<body><nav>{navigation}</nav>\n<main>\n{LINK.sub(link, body)}\n</main></body></html>\n")


docs, guide = map(pathlib.Path, sys.argv[1:])
texts = {name: source(docs, name).read_text(encoding="utf-8") for name in PAGES}
links = " ".join(f'<a href="{name}.html">{title(text)}</a>' for name, text in texts.items())
guide.mkdir(parents=True)
(guide / "guide.css").write_text(STYLE, encoding="utf-8")
for name, text in texts.items():
    page = html(text, links)
    (guide / f"{name}.html").write_text(page, encoding="utf-8")
    for picture in PICTURE.findall(page):
        (guide / picture).parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(docs / picture, guide / picture)
