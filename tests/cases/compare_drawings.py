#!/usr/bin/python3
"""Says in which records two DXF files differ, and in which of their groups.

    compare_drawings.py A.dxf B.dxf        text or binary; exit status 0 alike, 1 different

Records are paired by their place among those of the same type and handle. Values are compared as bytes,
group codes and values without the blanks around them, so only the layout of lines is forgiven.
As a module: read(path) gives the records, differences(a, b) the list of Difference.
"""

import collections
import difflib
import struct
import sys

BINARY = b"AutoCAD Binary DXF\r\n\x1a\x00"
Difference = collections.namedtuple("Difference", "record handle removed added")


def read(path):
    """A list of records, each a list of (code, value): the code a number, the value bytes."""
    with open(path, "rb") as file:
        data = file.read()
    groups = binary_groups(data) if data.startswith(BINARY) else text_groups(data)
    records = []
    for code, value in groups:
        if code == 0 or not records:
            records.append([])
        records[-1].append((code, value))
    return records


def text_groups(data):
    lines = data.replace(b"\r\n", b"\n").split(b"\n")
    for code, value in zip(lines[0::2], lines[1::2]):
        yield int(code), value.strip()


def binary_groups(data):
    at = len(BINARY)
    wide = data[at + 1] == 0  # two-byte codes since R13; the first group is 0 SECTION
    while at < len(data):
        code = data[at]
        at += 1
        if wide:
            code |= data[at] << 8
            at += 1
        elif code == 255:
            code = struct.unpack_from("<H", data, at)[0]
            at += 2
        value, at = binary_value(data, at, code)
        yield code, value


def binary_value(data, at, code):
    """The value as the bytes that a text file would hold, and the place behind it."""
    for first, last, form in (
        (10, 59, "<d"), (60, 79, "<h"), (90, 99, "<i"), (110, 149, "<d"), (160, 169, "<q"), (170, 179, "<h"),
        (210, 239, "<d"), (270, 289, "<h"), (290, 299, "<B"), (370, 389, "<h"), (400, 409, "<h"), (420, 429, "<i"),
        (440, 459, "<i"), (460, 469, "<d"), (1010, 1059, "<d"), (1060, 1070, "<h"), (1071, 1071, "<i"),
    ):
        if first <= code <= last:
            value = struct.unpack_from(form, data, at)[0]
            return repr(value).encode(), at + struct.calcsize(form)
    if 310 <= code <= 319 or code == 1004:
        return data[at + 1 : at + 1 + data[at]].hex().upper().encode(), at + 1 + data[at]
    end = data.index(b"\0", at)
    return data[at:end], end + 1


def handle_of(record):
    wanted = 105 if record[0] == (0, b"DIMSTYLE") else 5
    return next((value for code, value in record if code == wanted), b"") if record[0][0] == 0 else b""


def keyed(records):
    """The records by type, handle and place among those of the same type and handle, in file order."""
    seen, result = collections.Counter(), {}
    for record in records:
        key = (record[0][1], handle_of(record))
        result[key + (seen[key],)] = record
        seen[key] += 1
    return result


def group_differences(a, b):
    removed, added = [], []
    for what, a1, a2, b1, b2 in difflib.SequenceMatcher(None, a, b, autojunk=False).get_opcodes():
        if what != "equal":
            removed += a[a1:a2]
            added += b[b1:b2]
    return removed, added


def differences(a, b):
    """Where the records of `b` differ from those of `a`; a missing record counts as one without groups."""
    first, second = keyed(a), keyed(b)
    result = []
    for key in list(first) + [key for key in second if key not in first]:
        before, after = first.get(key, []), second.get(key, [])
        if before != after:
            result.append(Difference(key[0], key[1], *group_differences(before, after)))
    if [key for key in first if key in second] != [key for key in second if key in first]:
        result.append(Difference(b"the order of records", b"", [], []))
    return result


def shown(groups):
    return ", ".join(f"{code}={text(value)}" for code, value in groups) or "nothing"


def text(value):
    for encoding in ("utf-8", "cp932"):
        try:
            return value.decode(encoding)
        except UnicodeDecodeError:
            pass
    return repr(value)


def main(first, second):
    found = differences(read(first), read(second))
    for difference in found:
        print(f"{text(difference.record)} {text(difference.handle)}: "
              f"{shown(difference.removed)} became {shown(difference.added)}")
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
