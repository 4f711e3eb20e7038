#!/usr/bin/python3
"""Makes the starting inputs of the fuzz targets, small files that reach every branch of the readers.

    python3 fuzz/make_corpus.py        writes fuzz/corpus/; what it writes is committed
"""

import pathlib
import struct

CORPUS = pathlib.Path(__file__).resolve().parent / "corpus"
ENTITIES = [
    [(0, "LINE"), (8, "壁"), (62, 1), (10, 0.0), (20, 1.5), (11, 2.0), (21, 3.0)],
    [(0, "TEXT"), (8, "0"), (10, 0.0), (20, 0.0), (40, 2.5), (1, "表ソ \\U+5BA4"), (50, 90.0), (7, "Standard")],
    [(0, "INSERT"), (8, "0"), (66, 1), (2, "B"), (10, 0.0), (20, 0.0)],
    [(0, "ATTRIB"), (8, "0"), (10, 0.0), (20, 0.0), (40, 2.5), (1, "v"), (2, "T"), (70, 0)],
    [(0, "SEQEND"), (8, "0")],
    [(0, "DIMENSION"), (8, "0"), (2, "*D1"), (10, 0.0), (20, 0.0), (70, 0), (3, "STANDARD"), (1001, "ACAD"),
     (1000, "DSTYLE"), (1002, "{"), (1070, 41), (1040, 3.0), (1002, "}")],
]

# What the host's classes read besides: each with its subclass markers.
SUBCLASSES = [
    [(0, "MTEXT"), (100, "AcDbEntity"), (8, "壁"), (420, 0x102030), (100, "AcDbMText"), (10, 0.0), (20, 0.0),
     (40, 2.5), (3, "{\\fArial;a"), (1, "b}\\Pc"), (7, "Standard"), (11, 0.0), (21, 1.0), (50, 1.5)],
    [(0, "HATCH"), (100, "AcDbEntity"), (8, "0"), (440, 0x0200007F), (100, "AcDbHatch"), (2, "SOLID"), (70, 1),
     (91, 1), (92, 7), (72, 0), (73, 1), (93, 2), (10, 0.0), (20, 0.0), (10, 1.0), (20, 1.0), (97, 0), (98, 0)],
    [(0, "LEADER"), (100, "AcDbEntity"), (8, "0"), (100, "AcDbLeader"), (3, "STANDARD"), (76, 1), (10, 0.0),
     (20, 0.0)],
    [(0, "ATTDEF"), (100, "AcDbEntity"), (8, "0"), (100, "AcDbText"), (40, 2.5), (1, "v"), (50, 90.0),
     (100, "AcDbAttributeDefinition"), (2, "T"), (70, 0), (280, 0), (101, "Embedded Object"), (40, 9.0)],
    # As some programs write it: common groups behind the second marker, or no marker of the common part.
    [(0, "LINE"), (100, "AcDbEntity"), (100, "AcDbLine"), (8, "壁"), (62, 1), (6, "CENTER"), (370, 25), (10, 0.0)],
    [(0, "LINE"), (10, 0.0), (20, 1.0), (8, "壁"), (62, 2)],
    [(0, "POLYLINE"), (8, "0"), (66, 1), (70, 0)], [(0, "VERTEX"), (8, "0"), (10, 0.0)], [(0, "SEQEND")],
]
TABLES = [
    ("LTYPE", [(2, "CENTER"), (70, 0), (3, "__ _"), (72, 65), (73, 2), (40, 2.0), (49, 1.0), (49, -1.0)]),
    ("STYLE", [(2, "Standard"), (70, 0), (40, 0.0), (41, 1.0), (50, 0.0), (3, "txt"), (4, ""), (1001, "ACAD"),
               (1000, "Arial"), (1071, 34)]),
    ("APPID", [(2, "ACAD"), (70, 0)]),
    ("DIMSTYLE", [(2, "STANDARD"), (70, 0), (41, 2.5), (140, 2.5), (371, 25), (342, "1")]),
]


def rich_drawing():
    groups = [(0, "SECTION"), (2, "HEADER"), (999, "by hand"), (9, "$ACADVER"), (1, "AC1024"), (9, "$CLAYER"),
              (999, "comment"), (8, "壁"), (9, "$HANDSEED"), (5, "FF"), (0, "ENDSEC"), (0, "SECTION"), (2, "TABLES")]
    for name, record in TABLES:
        groups += [(0, "TABLE"), (2, name), (70, 1), (0, name), (100, "AcDbSymbolTableRecord"), *record, (0, "ENDTAB")]
    groups += [(0, "TABLE"), (2, "LAYER"), (70, 1), (0, "LAYER"), (2, "壁"), (70, 0), (62, -3), (420, 255),
               (6, "CENTER"), (290, 1), (370, 25), (1001, "AcCmTransparency"), (1071, 0x0200007F), (0, "ENDTAB")]
    groups += [(0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES")]
    for number, entity in enumerate(SUBCLASSES):
        groups += [entity[0], (5, f"{0x40 + number:X}"), *entity[1:]]
    return groups + [(0, "ENDSEC"), (0, "EOF")]


def drawing(version):
    modern = version != "AC1009"
    groups = [(0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, version), (9, "$DWGCODEPAGE"), (3, "ANSI_932"),
              (9, "$HANDSEED"), (5, "FF"), (9, "$DIMASZ"), (40, 2.5), (0, "ENDSEC"), (0, "SECTION"), (2, "TABLES"),
              (0, "TABLE"), (2, "LAYER"), (70, 2)]
    for handle, name in ((0x10, "0"), (0x11, "壁")):
        groups += [(0, "LAYER")] + ([(5, f"{handle:X}"), (100, "AcDbSymbolTableRecord")] if modern else [])
        groups += [(2, name), (70, 4 if name == "壁" else 0), (62, 7), (6, "CONTINUOUS")]
    groups += [(0, "ENDTAB"), (0, "ENDSEC"), (0, "SECTION"), (2, "BLOCKS"), (0, "BLOCK"), (8, "0"), (2, "B"),
               (70, 0), (10, 0.0), (20, 0.0), (3, "B"), (0, "INSERT"), (8, "0"), (2, "B"), (10, 0.0), (20, 0.0),
               (0, "ENDBLK"), (8, "0"), (0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES")]
    for number, entity in enumerate(ENTITIES):
        head = [entity[0]]
        if modern:
            head += [(5, f"{0x20 + number:X}"), (102, "{X"), (330, "1"), (102, "}"), (100, "AcDbEntity")]
        groups += head + entity[1:]
    return groups + [(0, "ENDSEC"), (0, "EOF")]


def foreign():
    """As other programs write: comments everywhere, common groups behind the class's own marker, no AcDbEntity."""
    groups = drawing("AC1024")
    start = groups.index((2, "ENTITIES")) + 1
    groups[start:-2] = [
        (0, "LINE"), (100, "AcDbEntity"), (100, "AcDbLine"), (8, "0"), (62, 3), (370, 25), (440, 33554559), (10, 0.0),
        (0, "CIRCLE"), (100, "AcDbCircle"), (10, 0.0), (40, 1.0),
        (0, "THING"), (100, "AcDbThing"), (8, "no"), (62, 9), (100, "AcDbEntity"), (8, "0"),
        (0, "MTEXT"), (8, "0"), (100, "AcDbMText"), (1, "x"), (75, 1), (48, 9.0), (420, 255)]
    return [each for group in groups for each in ((999, "comment"), group)]


def as_text(groups, end="\r\n", encoding="cp932"):
    return "".join(f"{code:3d}{end}{value}{end}" for code, value in groups).encode(encoding)


def in_another_manner(groups, end="\n"):
    """Odd blanks before codes, lower case, comments everywhere."""
    lines = [f"{' ' * (code % 7)}{code}{end}{value.lower() if isinstance(value, str) else value}{end}"
             for code, value in groups]
    return f"999{end} comment{end}".join(["", *lines]).encode("utf-8")


def integer_format(code):
    if 290 <= code < 300:
        return "<b"
    return "<i" if 90 <= code < 100 or 420 <= code < 430 or 440 <= code < 460 or code == 1071 else "<h"


def as_binary(groups, wide):
    out = [b"AutoCAD Binary DXF\r\n\x1a\x00"]
    for code, value in groups:
        out.append(struct.pack("<H", code) if wide else bytes([code]) if code < 255 else struct.pack("<BH", 255, code))
        if isinstance(value, float):
            out.append(struct.pack("<d", value))
        elif isinstance(value, int):
            out.append(struct.pack(integer_format(code), value))
        else:
            out.append(value.encode("cp932") + b"\0")
    return b"".join(out)


SPECIFICATION = """[備考]
見本

[文字]
[画層] = A-*
[色] <> 7
                {
                        [画層] = B-*
                        [文字高さ] = 2x
                        [dimasz] = 3
                }
[***]
                {
                        [色] = BYLAYER
                }
---End---

[寸法設定]
DIMBLK, 黒丸 (_DOT)
DIMASZ=3
---End---

[画層の色･線種]
[画層] = *
[ロック] = ON
                {
                        [ロック] = OFF
                }
---End---

[画層の作成]
新規, 3, CONTINUOUS
属性, BYLAYER, CENTER,OFF,ON,ON,OFF,0.25 mm,0
---End---

[線種のﾛｰﾄﾞ]
ACADISO.LIN, CENTER
---End---

[字体のﾛｰﾄﾞ]
社名, romans.shx, ----------
---End---

[矢印のﾛｰﾄﾞ]
_DOT
---End---

[EOF]
"""

WILDCARDS = ["A-*\nA-壁", "?#@.\na1b-", "[A-C]*,~X\nB2", "`*[~x`]-z]\n*y", "**a*b\nxaab"]


def save(target, name, data):
    folder = CORPUS / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data)


def main():
    for version in ("AC1009", "AC1015", "AC1032"):
        groups = drawing(version)
        encoding = "utf-8" if version == "AC1032" else "cp932"
        save("dxf", f"{version}.dxf", as_text(groups, encoding=encoding))
        save("dxf", f"{version}-binary.dxf", as_binary(groups, version != "AC1009"))
    save("dxf", "line-feeds.dxf", as_text(drawing("AC1018"), end="\n"))
    save("dxf", "truncated.dxf", as_text(drawing("AC1018"))[:-40])
    save("dxf", "rich.dxf", as_text(rich_drawing(), encoding="utf-8"))
    save("dxf", "rich-binary.dxf", as_binary(rich_drawing(), True))
    save("dxf", "another-manner.dxf", in_another_manner(rich_drawing()))
    save("dxf", "carriage-returns.dxf", as_text(drawing("AC1018"), end="\r"))
    save("dxf", "no-end.dxf", as_text(rich_drawing()[:-1], encoding="utf-8"))
    save("dxf", "no-end-binary.dxf", as_binary(drawing("AC1018")[:-1], True))
    save("dxf", "utf-16.dxf", as_text(drawing("AC1009"), encoding="utf-16-le"))
    save("dxf", "gzip.dxf", b"\x1f\x8b\x08" + bytes(40))
    entities = [(0, "SECTION"), (2, "ENTITIES"), *sum(ENTITIES, []), (0, "ENDSEC"), (0, "EOF")]
    save("dxf", "entities-only.dxf", as_text(entities))
    save("dxf", "foreign.dxf", as_text(foreign()))
    save("cvt", "whole.cvt", SPECIFICATION.replace("\n", "\r\n").encode("cp932"))
    save("cvt", "open-end.cvt", "[文字]\n[画層] = 0\n{\n[画層] = 1\n[寸法]\n[***]\n{\n".encode("cp932"))
    # Of the containers: a version, and bytes of a piece that are others (fuzz/dwg_container.h).
    for version in range(3):
        save("dwg", f"untouched-{version}", bytes([version]))
        save("dwg", f"one-byte-{version}", bytes([version, 2 + version, 9, 0, 0xFF]))
    save("dwg", "several-bytes", bytes([1, *(byte for at in range(8) for byte in (at, 4 * at, 0, 255 - at))]))
    for number, pattern in enumerate(WILDCARDS):
        for case in b"01":
            save("wildcard", f"{number}-{case - 48}", bytes([case]) + pattern.encode("cp932"))


if __name__ == "__main__":
    main()
