"""An independent reader for the benchmark: what the conversion may have changed, by handle.

It knows nothing of the programs under test: it splits the file into groups and takes the groups of each
entity of the ENTITIES section, and of each layer record.
"""

TEXTS = (b"TEXT", b"MTEXT", b"ATTDEF")


def records(path):
    """Yields each record as a list of (code, value), both bytes without blanks around them."""
    with open(path, "rb") as file:
        lines = file.read().split(b"\n")
    record = []
    for code, value in zip(lines[0::2], lines[1::2]):
        code, value = code.strip(), value.rstrip(b"\r")
        if code == b"0" and record:
            yield record
            record = []
        record.append((code, value))
    yield record


def entity_properties(record):
    """(type, layer, colour, linetype, height of a text); the first group of a code is the entity's own."""
    first = {}
    for code, value in record:
        first.setdefault(code, value)
    kind = first[b"0"].strip()
    handle = int(first[b"5"], 16)
    height = float(first[b"40"]) if kind in TEXTS else None
    linetype = first.get(b"6", b"ByLayer").lower()
    return handle, (kind, first.get(b"8"), int(first.get(b"62", 256)), linetype, height)


def read(path):
    """The entities' properties by handle, and the names and colours of the layers."""
    section, entities, layers = b"", {}, {}
    for record in records(path):
        kind = record[0][1].strip()
        if kind == b"SECTION":
            section = record[1][1].strip()
        elif kind == b"LAYER" and section == b"TABLES":
            values = dict(record)
            layers[values[b"2"]] = int(values[b"62"])
        elif section == b"ENTITIES" and kind != b"ENDSEC":
            handle, properties = entity_properties(record)
            entities[handle] = properties
    return entities, layers


def differences(a, b):
    """At most five lines that say where two results differ; empty when they agree.

    Layers that only `b` has do not count: a library may add some of its own.
    """
    found = []
    for what, first, second in zip(("entity", "layer"), a, b):
        for key in sorted(first.keys() | (second.keys() if what == "entity" else set())):
            if first.get(key) != second.get(key):
                found.append(f"{what} {key}: {first.get(key)} against {second.get(key)}")
                if len(found) == 5:
                    return found
    return found
