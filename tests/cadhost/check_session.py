"""check_session.py FOLDER: what conversion_session leaves, seen by an independent reader.

FOLDER holds part.dxf and result.dxf (before and after), bin/CFG/SESSION.cvt and settings/common.cfg.
"""

import pathlib
import sys

import ezdxf


def by_handle(path):
    return {entity.dxf.handle: entity for entity in ezdxf.readfile(path).modelspace()}


def look(entity):
    return entity.dxf.layer, entity.dxf.color


def fail(message):
    sys.exit(f"check_session: {message}")


folder = pathlib.Path(sys.argv[1])

text = (folder / "bin/CFG/SESSION.cvt").read_bytes().decode("cp932")
section = text.split("[その他の図形]\r\n")[1].split("---End---")[0]
expected = "[画層] = 中心線\r\n[色] <> 3\r\n\t\t{\r\n\t\t\t[画層] = 0\r\n\t\t\t[色] = 5\r\n\t\t}\r\n"
if section.replace("\t", "").replace(" ", "") != expected.replace("\t", "").replace(" ", ""):
    fail(f"the specification holds\n{section}")
if "made in a session" not in text.lower():
    fail("the remark is lost")

before, after = by_handle(folder / "part.dxf"), by_handle(folder / "result.dxf")
if before.keys() != after.keys():
    fail("objects came or went")
changed = {handle for handle in before if look(before[handle]) != look(after[handle])}
meant = {handle for handle, entity in before.items() if entity.dxf.layer == "中心線"}
if not meant or changed != meant:
    fail(f"changed {sorted(changed)}, meant {sorted(meant)}")
for handle in meant:
    if look(after[handle]) != ("0", 5):
        fail(f"{handle} became {look(after[handle])}")
heights = [entity.dxf.height for entity in after.values() if entity.dxftype() == "TEXT" and entity.dxf.layer == "注記"]
if not heights or any(height != 4.5 for height in heights):
    fail(f"the heights of the notes are {heights}")

settings = (folder / "settings/common.cfg").read_text(encoding="utf-8")
for line in ("KivBlock = 1", "MorluxIgnoreLocks = 1", "MorluxCreateLog = 0"):
    if line.lower() not in settings.lower():
        fail(f"the settings lack '{line}':\n{settings}")
