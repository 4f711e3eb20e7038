"""check_session.py FOLDER: what conversion_session leaves, seen by an independent reader.

FOLDER holds part.dxf and result.dxf (before and after), bin/CFG/SESSION.cvt, log and settings/common.cfg.
"""

import pathlib
import sys

import ezdxf

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "cases"))
import compare_drawings


def fail(message):
    sys.exit(f"check_session: {message}")


def entities(path):
    """By handle, those inside block definitions too."""
    drawing = ezdxf.readfile(path)
    return {entity.dxf.handle: entity for block in drawing.blocks for entity in block}


def without_blanks(text):
    return text.replace("\t", "").replace(" ", "")


def check_specification(text):
    expected = "[画層] = 中心線\r\n[色] <> 3\r\n{\r\n[画層] = 0\r\n[色] = 5\r\n}\r\n"
    section = text.split("[その他の図形]\r\n")[1].split("---End---")[0]
    if without_blanks(section) != without_blanks(expected):
        fail(f"the specification holds\n{section}")
    if "made in a session" not in text.lower():
        fail("the remark is lost")


def check_drawing(before, after):
    lines = {handle for handle, entity in entities(before).items() if entity.dxf.layer == "中心線"}
    notes = {handle for handle, entity in entities(before).items()
             if entity.dxf.layer == "注記" and entity.dxftype() == "TEXT"}
    result = entities(after)
    for handle in lines:
        if (result[handle].dxf.layer, result[handle].dxf.color) != ("0", 5):
            fail(f"{result[handle]} is on {result[handle].dxf.layer} in {result[handle].dxf.color}")
    for handle in notes:
        if result[handle].dxf.height != 4.5:
            fail(f"{result[handle]} is {result[handle].dxf.height} high")
    if not lines or not notes:
        fail("the drawing is not the one meant")

    groups = {**dict.fromkeys(lines, {8, 62}), **dict.fromkeys(notes, {40})}
    for found in compare_drawings.differences(compare_drawings.read(before), compare_drawings.read(after)):
        changed = {code for code, _ in found.removed + found.added}
        if not changed or not changed <= groups.get(compare_drawings.text(found.handle), set()):
            fail(f"also changed: {found}")


def check_log(files):
    if len(files) != 1 or "part.dxf" not in files[0].read_bytes().decode("cp932"):
        fail(f"the log is not there: {files}")


def check_settings(settings):
    for line in ("KivBlock = 1", "MorluxIgnoreLocks = 1", "MorluxCreateLog = 1", "MorluxLogOutPath = Z:"):
        if line.lower() not in settings.lower():
            fail(f"the settings lack '{line}':\n{settings}")


folder = pathlib.Path(sys.argv[1])
check_specification((folder / "bin/CFG/SESSION.cvt").read_bytes().decode("cp932"))
check_drawing(folder / "part.dxf", folder / "result.dxf")
check_log(list((folder / "log").glob("*Morlux.log")))
check_settings((folder / "settings/common.cfg").read_text(encoding="utf-8"))
