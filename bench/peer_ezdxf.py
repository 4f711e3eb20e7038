#!/usr/bin/python3
"""The work of office-plan.cvt as a python3-ezdxf script: peer_ezdxf.py IN.dxf OUT.dxf"""

import sys

import ezdxf

TEXTS = ("TEXT", "MTEXT", "ATTDEF")


def convert(entity):
    dxf, kind = entity.dxf, entity.dxftype()
    if kind in TEXTS:
        if dxf.layer.startswith("文字"):
            name = "char_height" if kind == "MTEXT" else "height"
            dxf.set(name, dxf.get(name) * 2)
            dxf.color = 3
    elif kind == "DIMENSION":
        dxf.layer = "寸法線"
        dxf.color = 256
    elif kind == "HATCH":
        dxf.color = 252
    elif dxf.layer.startswith("A-壁"):
        dxf.layer = "W-壁" + dxf.layer[3:]
        dxf.color = 7
    elif dxf.layer.startswith("S-設備"):
        dxf.color = 5


def main(source, target):
    doc = ezdxf.readfile(source)
    for number in range(1, 11):
        doc.layers.add(f"W-壁{number:02}", color=7)
    doc.layers.add("寸法線", color=2)
    for entity in doc.modelspace():
        convert(entity)
    doc.saveas(target)


main(*sys.argv[1:])
