#!/usr/bin/python3
"""check_office.py KIVCVT EXAMPLES: what examples/office.cvt makes, seen by a reader that is not the product's.

The specification is the one that a session builds through every dialog (tests/cadhost/office_session). In each
example converted by it stand its layers, linetypes, text styles, dimension variables and arrow blocks.
"""

import pathlib
import subprocess
import sys
import tempfile

import ezdxf

LAYERS = {"A-室名": 6, "A-寸法": 2, "M-注記": 3, "A-ﾊｯﾁﾝｸﾞ": 8}
LINETYPES = {"CENTER2", "DASHED"}
STYLES = {"社内標準": ("romans.shx", "extfont2.shx"), "見出し": ("romand.shx", ""), "注釈": ("msgothic.ttc", "")}
VARIABLES = {"$DIMTXT": 2.5, "$DIMASZ": 2.5, "$DIMBLK": "_DOT"}
BLOCKS = {"_DOT", "_OBLIQUE"}


def faults(path):
    drawing = ezdxf.readfile(path)
    for name, color in LAYERS.items():
        layer = drawing.layers.get(name) if name in drawing.layers else None
        if layer is None or layer.dxf.color != color or layer.dxf.linetype.upper() != "CONTINUOUS":
            yield f"layer {name}"
    names = {linetype.dxf.name.upper() for linetype in drawing.linetypes}
    yield from (f"linetype {name}" for name in LINETYPES - names)
    for name, fonts in STYLES.items():
        style = drawing.styles.get(name) if name in drawing.styles else None
        found = style and (style.dxf.font.lower(), style.dxf.get("bigfont", "").lower())
        if found != fonts:
            yield f"text style {name}: {found}"
    for name, value in VARIABLES.items():
        found = drawing.header.get(name)
        if (found.upper() if isinstance(found, str) else found) != value:
            yield f"{name} is {found}"
    yield from (f"block {name}" for name in BLOCKS - {block.name.upper() for block in drawing.blocks})


program, examples = sys.argv[1], pathlib.Path(sys.argv[2])
with tempfile.TemporaryDirectory() as folder:
    subprocess.run([program, "convert", "--spec", examples / "office.cvt", "--out", folder, *examples.glob("*.dxf")],
                   check=True)
    results = sorted(pathlib.Path(folder).glob("*.DXF"))
    failed = not results
    for result in results:
        for fault in faults(result):
            print(f"{result.name}: {fault}")
            failed = True
sys.exit(failed)
