#!/usr/bin/python3
"""Drawings in the manner of other programs: the cases' own, the same objects written otherwise. Conditions see
of them what an independent reader sees, before and after changes that it finds too.

    manners.py KIVCVT CASES        exit status: 0 all is well, 1 not
"""

import pathlib
import sys
import tempfile

import check_drawings

COMMON_CODES = {b"8", b"6", b"62", b"370", b"48", b"440"}


def read(path):
    lines = path.read_bytes().replace(b"\r\n", b"\n").removesuffix(b"\n").split(b"\n")
    return [(code.strip(), value) for code, value in zip(lines[::2], lines[1::2])]


def write(path, groups, code_format=b"%3s"):
    path.write_bytes(b"".join(code_format % code + b"\r\n" + value + b"\r\n" for code, value in groups))


def section(groups, name):
    """Where it stands: its first group and the one behind its last."""
    begin = groups.index((b"2", name)) - 1
    return begin, groups.index((b"0", b"ENDSEC"), begin) + 1


def without_section(groups, name):
    begin, end = section(groups, name)
    return groups[:begin] + groups[end:]


def without_handles(groups):
    begin = section(groups, b"TABLES")[0]
    return groups[:begin] + [group for group in groups[begin:] if group[0] not in (b"5", b"105")]


def commented(groups):
    return [part for group in groups for part in ((b"999", b"0"), group)]


def second_marker(groups):
    """Layer, colour and the like behind the marker of the object's own class, but for what this class has itself."""
    result, held, own = [], None, ()
    for code, value in groups:
        if code == b"0":
            own = (b"48",) if value == b"MTEXT" else ()
        if held is not None and code in (b"0", b"100"):
            result += [(code, value), *held] if code == b"100" else [*held, (code, value)]
            held = None
        elif held is not None and code in COMMON_CODES and code not in own:
            held.append((code, value))
        else:
            result.append((code, value))
        if (code, value) == (b"100", b"AcDbEntity"):
            held = []
    return result


def other_case(groups):
    """References are in another case than what they name, and so are the markers of classes."""
    return [(code, value.swapcase() if code in (b"5", b"6", b"7", b"100") else value) for code, value in groups]


# By name: how it is made of the groups, and whether only a drawing of R12 can be written so.
MANNERS = {
    "comments": (commented, False),
    "second-marker": (second_marker, False),
    "other-case": (other_case, False),
    "no-handles": (without_handles, True),
    "no-tables": (lambda groups: without_section(groups, b"TABLES"), True),
    "no-header": (lambda groups: without_section(groups, b"HEADER"), True),
}


def make(drawing, folder):
    """The paths of the drawing in each manner that its version allows."""
    groups = read(drawing)
    old = (b"1", b"AC1009") in groups
    for name, (manner, only_old) in MANNERS.items():
        if old or not only_old:
            path = folder / f"{drawing.parent.name}-{name}.dxf"
            write(path, manner(groups), b"%9s" if name == "comments" else b"%s")
            yield path


def main(program, cases):
    with tempfile.TemporaryDirectory() as work, tempfile.TemporaryDirectory() as drawings:
        check = check_drawings.Check(program, pathlib.Path(work))
        for case in ("conditions-on-texts", "conditions-on-others", "format-r12", "format-r14", "format-2007"):
            for path in make(pathlib.Path(cases) / case / "drawing.dxf", pathlib.Path(drawings)):
                for look in (check.changed, check.marked, check.marked_when_changed):
                    before = check.records_changed + check.objects_marked
                    look(path)
                    if check.records_changed + check.objects_marked == before:
                        check.fail(path, f"{look.__name__}: no object is met")
    return check.report(f"{check.records_changed} records changed, {check.objects_marked} objects marked")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
