"""Rules that tell which properties a conversion sees: one setting for each combination of values that an
independent reader finds, with a layer as its mark.

What texts have besides keeps them apart from others; what others have is the same in each of their sections.
"""

from ezdxf.lldxf.encoding import decode_dxf_unicode

COMMON = {"layer": "画層", "linetype": "線種", "color": "色", "lineweight": "線幅値", "ltscale": "線種尺度",
          "transparency": "透過性"}
OF_TEXTS = {"style": "字体", "height": "文字高さ", "rotation": "文字角度"}
TEXTS = ("TEXT", "MTEXT", "ATTDEF")
SECTIONS = ("文字", "寸法", "ﾊｯﾁﾝｸﾞ", "その他の図形")
WEIGHTS = {-1: "ByLayer", -2: "ByBlock", -3: "Default"}
MARK = "KIV_MARK_"
LIMIT = 400  # combinations of a drawing


def seen(entity):
    """The values as conditions write them, by the key of the condition; None: the reader does not know them all."""
    dxf = entity.dxf
    if not dxf.is_supported("lineweight"):
        return None
    weight = dxf.get("lineweight", -1)
    values = {
        "layer": name(dxf.get("layer", "0")),
        "linetype": name(dxf.get("linetype", "BYLAYER")),
        "color": str(dxf.get("color", 256)),
        "lineweight": WEIGHTS.get(weight, f"{weight / 100:.2f} mm"),
        "ltscale": f"{dxf.get('ltscale', 1):.6f}",
        "transparency": transparency(dxf.get("transparency", 0)),
    }
    if entity.dxftype() in TEXTS:
        mtext = entity.dxftype() == "MTEXT"
        values["style"] = name(dxf.get("style", "Standard"))
        values["height"] = f"{dxf.char_height if mtext else dxf.height:.6f}"
        angle = entity.get_rotation() if mtext else dxf.get("rotation", 0)
        values["rotation"] = f"{angle % 360:.6f}"
    return tuple(sorted((COMMON | OF_TEXTS)[key] + "\t" + value for key, value in values.items()))


def transparency(raw):
    if raw < 0x01000000:
        return "ByLayer"
    return "ByBlock" if raw < 0x02000000 else str(round(100 - (raw & 255) / 2.55))


def name(text):
    return "".join("`" + c if c in "#@.*?~[]-,`" else c for c in decode_dxf_unicode(text).upper())


def writable(combination):
    """A condition has signs of its own, and the file a code page."""
    lines = "".join(combination)
    return not any(sign in lines for sign in "<>=\n") and lines.encode("cp932", "ignore").decode("cp932") == lines


class Marks:
    """The combinations of a document and the rules that mark them."""

    def __init__(self, document):
        found = dict.fromkeys(seen(entity) for layout in document.layouts for entity in layout)
        chosen = [combination for combination in found if combination and writable(combination)][:LIMIT]
        self.marks = {combination: f"{MARK}{number}" for number, combination in enumerate(chosen)}

    def rules(self):
        lines = []
        for section in SECTIONS:
            lines.append(f"[{section}]")
            for combination, mark in self.marks.items():
                if (section == "文字") != (len(combination) > len(COMMON)):
                    continue
                lines += ["[{}] = {}".format(*line.split("\t")) for line in combination]
                lines += ["{", f"[画層] = {mark}", "}"]
            lines.append("---End---")
        lines += ["[画層の作成]", *(f"{mark}, 7, CONTINUOUS" for mark in self.marks.values()), "---End---", "[EOF]"]
        return "\n".join(lines) + "\n"

    def expected(self, entity, in_current_space):
        """The layer of the marked entity, None for any; references of other spaces take no part."""
        if seen(entity) is None:
            return None
        mark = self.marks.get(seen(entity)) if entity.dxftype() != "INSERT" or in_current_space else None
        return mark or entity.dxf.get("layer", "0")
