#!/usr/bin/python3
"""Converts real drawings and looks at the results with two readers that are not the product's.

    check_drawings.py KIVCVT FOLDER        all in it and below; exit status: 0 all is well, 1 not

The comparison of records finds only the groups that the rules name, and python3-ezdxf finds exactly the new
colours and heights, on exactly the entities that the rules select. Before and after, conditions see of every
object the layer, linetype, colour, lineweight, text style, height and angle that python3-ezdxf reads.
"""

import pathlib
import subprocess
import sys
import tempfile

import ezdxf.audit
import ezdxf.recover

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "cases"))
import compare_drawings  # noqa: E402
import conditions  # noqa: E402

RULES = """[文字]
[***]
{
[色] = 3
[文字高さ] = 2x
}
---End---
[寸法]
[***]
{
[色] = 4
}
---End---
[ﾊｯﾁﾝｸﾞ]
[***]
{
[色] = 5
}
---End---
[その他の図形]
[画層] = 0
{
[色] = 6
}
---End---
[EOF]
"""
RESOURCES = """[線種のﾛｰﾄﾞ]
ACADISO.LIN, HOT_WATER_SUPPLY
ACADISO.LIN, FENCELINE2
---End---
[字体のﾛｰﾄﾞ]
KIV_TEST, ＭＳ ゴシック
---End---
[EOF]
"""
COLOR_GROUPS = {62, 420, 430}
TEXTS = {"TEXT": "height", "MTEXT": "char_height", "ATTDEF": "height"}


class Check:
    def __init__(self, program, folder):
        self.program, self.work, self.failures = program, folder, []
        self.records_changed = self.objects_marked = 0

    def fail(self, drawing, text):
        self.failures.append(f"{drawing}: {text}")

    def report(self, done):
        """Prints the failures and what was done; the exit status."""
        for failure in self.failures[:40]:
            print(failure)
        print(f"{done}, {len(self.failures)} faults")
        return 1 if self.failures else 0

    def convert(self, rules, drawing):
        """The converted file, or None with what the program said when the drawing is refused."""
        specification, out = self.work / "rules.cvt", self.work / "out"
        specification.write_bytes(rules.replace("\n", "\r\n").encode("cp932"))
        command = [self.program, "convert", "--spec", specification, "--out", out, "--ignore-locks", drawing]
        run = subprocess.run(command, capture_output=True, text=True)
        target = out / (drawing.stem + ".DXF")
        if not target.exists():
            if run.returncode != 1 or drawing.name not in run.stderr:
                self.fail(drawing, f"status {run.returncode}, refused without a reason: {run.stderr}")
            return None, run.stderr.strip()
        return target, run.stderr.strip()

    def changed(self, drawing):
        """False when the drawing is refused."""
        target, said = self.convert(RULES, drawing)
        if target is None:
            print(f"refused: {said}")
            return False
        found = compare_drawings.differences(compare_drawings.read(drawing), compare_drawings.read(target))
        self.records_changed += len(found)
        for difference in found:
            self.check_groups(drawing, difference)
        self.check_properties(drawing, target)
        print(f"{drawing}: {len(found)} records changed")
        return True

    def loaded(self, drawing):
        """Linetypes with texts and shapes and a TrueType style, as the independent library reads them."""
        target, said = self.convert(RESOURCES, drawing)
        before, after = read_document(drawing), read_document(target)
        if len(after.audit().errors) > len(before.audit().errors):
            self.fail(drawing, f"new faults: {after.audit().errors}")
        style = after.styles.get("KIV_TEST")
        if style.dxf.font != "msgothic.ttc" or style.dxf.bigfont:
            self.fail(drawing, f"the style has the fonts {style.dxf.font}, {style.dxf.bigfont}")
        for name in ("HOT_WATER_SUPPLY", "FENCELINE2"):
            if (name in after.linetypes) != (before.dxfversion > "AC1009" or name in before.linetypes):
                self.fail(drawing, f"{name}: {said}")

    def check_groups(self, drawing, difference):
        allowed = set(COLOR_GROUPS)
        if difference.record.decode("ascii", "replace") in TEXTS:
            allowed.add(40)
        other = {code for code, _ in difference.removed + difference.added} - allowed
        if other or not difference.removed + difference.added:
            self.fail(drawing, f"record {difference.record} {difference.handle}: groups {sorted(other)} differ")

    # --- The independent library -------------------------------------------------------------------

    def pairs(self, drawing, before, after):
        """Each entity of a layout with its twin, and whether they stand in the current space."""
        in_model = before.header.get("$TILEMODE", 1) == 1
        for layout in before.layouts:
            twin = after.layouts.get(layout.name)
            if len(layout) != len(twin):
                self.fail(drawing, f"{layout.name} has {len(twin)} instead of {len(layout)} entities")
            current = (layout.name == "Model") == in_model
            yield from ((entity, converted, current) for entity, converted in zip(layout, twin))

    def check_properties(self, drawing, target):
        for entity, converted, current in self.pairs(drawing, read_document(drawing), read_document(target)):
            self.check_entity(drawing, entity, converted, current)

    def marked(self, drawing):
        """Each object gets the layer that stands for what the independent library reads of it."""
        if has_mended_styles(drawing):
            return
        before = read_document(drawing)
        marks = conditions.Marks(before)
        target, said = self.convert(marks.rules(), drawing)
        if target is None:
            self.fail(drawing, f"refused: {said}")
            return
        for entity, converted, current in self.pairs(drawing, before, read_document(target)):
            wanted = marks.expected(entity, current)
            if wanted is None:
                continue
            found = converted.dxf.get("layer", "0")
            self.objects_marked += found.startswith(conditions.MARK)
            if found.upper() != wanted.upper():
                self.fail(drawing, f"{entity}: {conditions.seen(entity)}: layer {found} instead of {wanted}")

    def marked_when_changed(self, drawing):
        target, _ = self.convert(RULES, drawing)
        self.marked(target.rename(self.work / drawing.name))

    def check_entity(self, drawing, entity, converted, in_current_space):
        wanted = dict(entity.dxfattribs())
        color = expected_color(entity, in_current_space)
        if color is not None:
            wanted["color"] = color
            wanted.pop("true_color", None)
            wanted.pop("color_name", None)
        height = TEXTS.get(entity.dxftype())
        if height:
            wanted[height] = entity.dxf.get(height) * 2
        found = dict(converted.dxfattribs())
        for key in sorted(wanted.keys() | found.keys()):
            if not same(wanted.get(key), found.get(key)):
                self.fail(drawing, f"{entity}: {key} is {found.get(key)} instead of {wanted.get(key)}")


def read_document(path):
    try:
        return ezdxf.readfile(path)
    except ezdxf.DXFError:
        return ezdxf.recover.readfile(path)[0]


def has_mended_styles(path):
    """True when the library reads texts in another style than the one they name, which the file lacks."""
    try:
        ezdxf.readfile(path)
        return False
    except ezdxf.DXFError:
        fixes = ezdxf.recover.readfile(path)[1].fixes
        return any(fix.code == ezdxf.audit.AuditError.UNDEFINED_TEXT_STYLE for fix in fixes)


def expected_color(entity, in_current_space):
    """What the rules give; references in the current space take part in every pass, others in none."""
    kind = entity.dxftype()
    on_zero = entity.dxf.is_supported("layer") and entity.dxf.get("layer", "0") == "0"
    if kind in TEXTS:
        return 3
    if kind == "DIMENSION":
        return 4
    if kind == "HATCH":
        return 5
    if kind == "INSERT":
        return (6 if on_zero else 5) if in_current_space else None
    if on_zero:
        return 6
    return 4 if kind == "LEADER" else None


def same(a, b):
    if isinstance(a, float) and isinstance(b, (int, float)):
        return abs(a - b) <= 1e-12 * max(abs(a), 1)
    return a == b


def main(program, folder):
    drawings = sorted(pathlib.Path(folder).rglob("*.dxf"))
    if not drawings:
        print(f"no drawings in {folder}")
        return 1
    with tempfile.TemporaryDirectory() as work:
        check = Check(program, pathlib.Path(work))
        readable = [drawing for drawing in drawings if check.changed(drawing)]
        for drawing in readable:
            check.loaded(drawing)
            check.marked(drawing)
            check.marked_when_changed(drawing)
        if len(readable) * 2 < len(drawings):
            check.failures.append(f"only {len(readable)} of {len(drawings)} drawings can be read")
        if min(check.records_changed, check.objects_marked) < len(readable):
            check.failures.append("the rules changed next to nothing")
    return check.report(f"{len(readable)} of {len(drawings)} drawings")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
