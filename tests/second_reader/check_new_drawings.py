#!/usr/bin/python3
"""New drawings of each version, read by a library that is not the product's: it finds nothing to mend.

    check_new_drawings.py PROGRAM        the program saves them; exit status: 0 all is well, 1 not
"""

import pathlib
import subprocess
import sys
import tempfile

import ezdxf

# What its readers look for in every drawing.
TABLES = {"layers": {"0"}, "linetypes": {"ByBlock", "ByLayer", "Continuous"}, "styles": {"Standard"},
          "appids": {"ACAD"}, "dimstyles": {"Standard"}, "block_records": {"*Model_Space", "*Paper_Space"}}


def faults(path):
    document = ezdxf.readfile(path)
    if document.dxfversion != path.stem:
        yield f"the version is {document.dxfversion}"
    if document.encoding != "cp932":
        yield f"the code page is {document.encoding}"
    for table, names in TABLES.items():
        missing = names - {entry.dxf.name for entry in getattr(document, table)}
        if missing:
            yield f"{table} lack {missing}"
    audit = document.audit()
    yield from (error.message for error in audit.errors + audit.fixes)


def main(program):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, folder], check=True)
        drawings = sorted(pathlib.Path(folder).iterdir())
        found = [f"{drawing.stem}: {fault}" for drawing in drawings for fault in faults(drawing)]
    print(*found, f"{len(drawings)} drawings, {len(found)} faults", sep="\n")
    return 1 if found or not drawings else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
