#!/usr/bin/python3
"""Reads every expected drawing of the cases beside this file with python3-ezdxf: sound, and in the version and
with the entities of its drawing; in the versions' own cases also what their rules say of texts and layers.
"""

import pathlib
import sys

import ezdxf.recover

CYCLES = {"block-scope-0", "block-scope-1", "block-scope-2"}  # a block in itself is what they are about
VERSIONS = {"format-r13": "AC1012", "format-r14": "AC1014", "format-2007": "AC1021", "format-2013": "AC1027"}


def read(path):
    """The reader that decodes escaped characters, too, knows no binary drawings."""
    return ezdxf.readfile(path) if path.read_bytes().startswith(b"AutoCAD") else ezdxf.recover.readfile(path)[0]


def faults(folder):
    before, after = read(folder / "drawing.dxf"), read(folder / "expected.dxf")
    errors = after.audit().errors
    if errors and folder.name not in CYCLES:
        yield f"{len(errors)} errors, the first: {errors[0].message}"
    kinds = [[entity.dxftype() for entity in document.modelspace()] for document in (before, after)]
    if not kinds[0] or kinds[0] != kinds[1]:
        yield f"entities {kinds[0]} became {kinds[1]}"
    if folder.name in VERSIONS:
        if VERSIONS[folder.name].encode() not in (folder / "expected.dxf").read_bytes()[:100]:
            yield "another version"
        yield from faults_of_rules(folder.name, before, after)


def faults_of_rules(name, before, after):
    weight = 25 if VERSIONS[name] > "AC1015" else -1
    for old, new in list(zip(before.modelspace(), after.modelspace()))[:2]:
        height = "height" if new.dxftype() == "TEXT" else "char_height"
        found = (new.dxf.layer, new.dxf.color, new.dxf.lineweight, new.dxf.get(height))
        if found != ("A-室名", 3, weight, 2 * old.dxf.get(height)):
            yield f"{new}: {found}"
    colors = {layer.dxf.name: layer.dxf.color for layer in after.layers}
    if colors.get("A-室名") != 6 or colors.get("外壁") != 4 or "壁" in colors:
        yield f"layers {colors}"


def main():
    folders = [path.parent for path in sorted(pathlib.Path(__file__).resolve().parent.glob("*/rules.cvt"))]
    found = [f"{folder.name}: {fault}" for folder in folders for fault in faults(folder)]
    print(*found, f"{len(folders)} cases, {len(found)} faults", sep="\n")
    return 1 if found or len(folders) < 20 or not VERSIONS.keys() <= {folder.name for folder in folders} else 0


sys.exit(main())
