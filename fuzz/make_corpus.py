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


def as_text(groups, end="\r\n", encoding="cp932"):
    return "".join(f"{code:3d}{end}{value}{end}" for code, value in groups).encode(encoding)


def as_binary(groups, wide):
    out = [b"AutoCAD Binary DXF\r\n\x1a\x00"]
    for code, value in groups:
        out.append(struct.pack("<H", code) if wide else bytes([code]) if code < 255 else struct.pack("<BH", 255, code))
        if isinstance(value, float):
            out.append(struct.pack("<d", value))
        elif isinstance(value, int):
            out.append(struct.pack("<h", value))
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
    for target in ("dxf", "dxf_edit"):
        for version in ("AC1009", "AC1015", "AC1032"):
            groups = drawing(version)
            encoding = "utf-8" if version == "AC1032" else "cp932"
            save(target, f"{version}.dxf", as_text(groups, encoding=encoding))
            save(target, f"{version}-binary.dxf", as_binary(groups, version != "AC1009"))
        save(target, "line-feeds.dxf", as_text(drawing("AC1018"), end="\n"))
        save(target, "truncated.dxf", as_text(drawing("AC1018"))[:-40])
    save("cvt", "whole.cvt", SPECIFICATION.replace("\n", "\r\n").encode("cp932"))
    save("cvt", "open-end.cvt", "[文字]\n[画層] = 0\n{\n[画層] = 1\n[寸法]\n[***]\n{\n".encode("cp932"))
    for number, pattern in enumerate(WILDCARDS):
        for case in b"01":
            save("wildcard", f"{number}-{case - 48}", bytes([case]) + pattern.encode("cp932"))


if __name__ == "__main__":
    main()
