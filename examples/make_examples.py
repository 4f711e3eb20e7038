#!/usr/bin/python3
"""Draws the example drawings: the work of an imaginary Japanese drafting office.

    /usr/bin/python3 examples/make_examples.py        (needs Debian's python3-ezdxf)

floor-plan.dxf    one floor of a house, AC1015, code page 932
machine-part.dxf  a flange, R12 (AC1009), dos932
site-plan.dxf     a building plot, AC1032, UTF-8

The drawings are committed; running this again gives the same bytes.
"""

import io
import pathlib

import ezdxf
from ezdxf.enums import TextEntityAlignment as Align

HERE = pathlib.Path(__file__).resolve().parent

LINETYPES = [
    ("CENTER", "Center ____ _ ____ _ ____", [50.8, 31.75, -6.35, 6.35, -6.35]),
    ("HIDDEN", "Hidden __ __ __ __ __ __", [9.525, 6.35, -3.175]),
    ("一点鎖線", "敷地境界 ____ . ____ . ____", [25.0, 20.0, -2.5, 0.0, -2.5]),
]


def new_drawing(version):
    ezdxf.options.write_fixed_meta_data_for_testing = True
    doc = ezdxf.new(version)
    doc.encoding = "cp932"
    doc.header["$DWGCODEPAGE"] = "ANSI_932"
    for name, description, pattern in LINETYPES:
        doc.linetypes.add(name, pattern=pattern, description=description)
    style = doc.styles.add("MS明朝", font="romans.shx")
    style.dxf.bigfont = "extfont2.shx"
    doc.styles.add("ゴシック", font="msgothic.ttc")
    return doc


def add_layers(doc, layers):
    """layers: (name, colour, linetype, state), state one of '', 'locked', 'frozen', 'off'."""
    for name, color, linetype, state in layers:
        layer = doc.layers.add(name, color=color, linetype=linetype)
        if state == "locked":
            layer.lock()
        elif state == "frozen":
            layer.freeze()
        elif state == "off":
            layer.off()


def add_dimstyle(doc, name, height, arrow):
    style = doc.dimstyles.duplicate_entry("Standard", name)
    style.dxf.dimtxsty = "MS明朝"
    style.dxf.dimtxt = height
    style.dxf.dimasz = height * 0.8
    style.dxf.dimexe = height * 0.5
    style.dxf.dimexo = height * 0.5
    style.dxf.dimgap = height * 0.4
    style.dxf.dimtad = 1
    style.dxf.dimdec = 0
    if arrow:
        style.set_arrows(blk=arrow)
    return style


def text(space, content, at, height, layer, align=Align.LEFT, style="MS明朝", **attributes):
    attributes |= {"layer": layer, "height": height, "style": style}
    return space.add_text(content, dxfattribs=attributes).set_placement(at, align=align)


def rectangle(space, x, y, width, height, layer, **attributes):
    corners = [(x, y), (x + width, y), (x + width, y + height), (x, y + height)]
    attributes["layer"] = layer
    if space.doc.dxfversion == "AC1009":
        return [space.add_line(a, b, dxfattribs=attributes) for a, b in zip(corners, corners[1:] + corners[:1])]
    return space.add_lwpolyline(corners, close=True, dxfattribs=attributes)


def title_block(doc, name, layer):
    """An A3 frame whose five attributes an office fills in for each drawing."""
    block = doc.blocks.new(name)
    rectangle(block, 10, 10, 400, 277, layer)
    rectangle(block, 260, 10, 150, 40, layer)
    for y in (18, 26, 34, 42):
        block.add_line((260, y), (410, y), dxfattribs={"layer": layer})
    for row, (tag, label) in enumerate(
        [("工事名", "工事名"), ("図名", "図面名称"), ("縮尺", "縮　尺"), ("図番", "図面番号"), ("作成", "ｻｸｾｲ")]
    ):
        y = 44.5 - 8 * row
        text(block, label, (262, y), 3, layer)
        block.add_attdef(
            tag, (290, y), text="-", height=3, dxfattribs={"layer": layer, "style": "MS明朝", "prompt": label}
        )
    return block


def insert(space, name, at, values=None, **attributes):
    reference = space.add_blockref(name, at, dxfattribs=attributes)
    if values:
        reference.add_auto_attribs(values)
    return reference


def sheet(doc, frame_layer, view_center, view_height, values):
    """Paper space: the title block and one view of the model."""
    doc.layouts.rename("Layout1", "A3横")
    layout = doc.layout("A3横")
    insert(layout, "図枠A3", (0, 0), values, layer=frame_layer)
    viewport = layout.add_viewport(
        center=(210, 160), size=(380, 220), view_center_point=view_center, view_height=view_height
    )
    viewport.dxf.layer = "ﾋﾞｭｰﾎﾟｰﾄ"


def save(doc, name, code_page="ANSI_932"):
    auditor = doc.audit()
    assert not auditor.has_errors and not auditor.has_fixes, auditor.errors + auditor.fixes
    stream = io.StringIO()
    doc.write(stream)
    encoded = stream.getvalue().encode(doc.output_encoding, errors="dxfreplace")
    # The library writes one name for the code page, but R12 programs write another.
    encoded = encoded.replace(b"ANSI_932", code_page.encode())
    (HERE / name).write_bytes(encoded.replace(b"\n", b"\r\n"))


# --- Floor plan ------------------------------------------------------------------------------------


def floor_plan_blocks(doc):
    knob = doc.blocks.new("把手")
    knob.add_circle((0, 0), 25, dxfattribs={"layer": "建具"})

    door = doc.blocks.new("片開き戸")
    door.add_line((0, 0), (0, 800), dxfattribs={"layer": "建具", "color": 4})
    door.add_arc((0, 0), 800, 0, 90, dxfattribs={"layer": "建具", "linetype": "HIDDEN"})
    door.add_blockref("把手", (30, 740), dxfattribs={"layer": "建具"})

    mark = doc.blocks.new("通り芯記号")
    mark.add_circle((0, 0), 300, dxfattribs={"layer": "通り芯"})
    mark.add_attdef(
        "番号", (0, 0), text="X0", height=300, dxfattribs={"layer": "通り芯", "style": "MS明朝"}
    ).set_placement((0, 0), align=Align.MIDDLE_CENTER)

    chair = doc.blocks.new("椅子")
    rectangle(chair, 0, 0, 400, 400, "家具")
    chair.add_line((0, 340), (400, 340), dxfattribs={"layer": "0"})
    table = doc.blocks.new("食卓ｾｯﾄ")
    rectangle(table, 0, 0, 1500, 800, "家具", color=3)
    for x in (150, 950):
        table.add_blockref("椅子", (x, 750), dxfattribs={"layer": "家具"})
        table.add_blockref("椅子", (x + 400, 50), dxfattribs={"layer": "家具", "rotation": 180})
    text(table, "食卓", (500, 350), 150, "家具")


def floor_plan_walls(msp):
    for x, y, width, height in [
        (0, 0, 150, 7280), (10770, 0, 150, 7280), (0, 0, 10920, 150), (0, 7130, 10920, 150), (5400, 150, 120, 6980),
    ]:
        rectangle(msp, x, y, width, height, "壁-躯体", const_width=0)
        hatch = msp.add_hatch(color=8, dxfattribs={"layer": "ﾊｯﾁﾝｸﾞ"})
        hatch.set_pattern_fill("ANSI31", scale=40.0)
        hatch.paths.add_polyline_path(
            [(x, y), (x + width, y), (x + width, y + height), (x, y + height)], is_closed=True
        )
    msp.add_line((5520, 3640), (10770, 3640), dxfattribs={"layer": "壁-間仕切", "lineweight": 35})
    floor = msp.add_hatch(color=254, dxfattribs={"layer": "ﾊｯﾁﾝｸﾞ"})
    floor.paths.add_polyline_path([(5520, 150), (10770, 150), (10770, 3640), (5520, 3640)], is_closed=True)


def floor_plan_dimensions(doc, msp):
    for base, points in [((0, -1500), (0, 5460, 10920)), ((0, -2300), (0, 10920))]:
        for a, b in zip(points, points[1:]):
            msp.add_linear_dim(
                base=base, p1=(a, 0), p2=(b, 0), dimstyle="建築", dxfattribs={"layer": "寸法"}
            ).render()
    for a, b in ((0, 3640), (3640, 7280)):
        msp.add_linear_dim(
            base=(-1500, 0), p1=(0, a), p2=(0, b), angle=90, dimstyle="建築", dxfattribs={"layer": "寸法"}
        ).render()
    inner = msp.add_linear_dim(
        base=(0, 8300), p1=(0, 7280), p2=(5460, 7280), text="5460 (内法)", dimstyle="建築", dxfattribs={"layer": "寸法"}
    )
    inner.render()
    inner.dimension.dxf.text = "<> (内法)"  # the measured value; the rendering would show the sign itself
    msp.add_leader([(2700, 7205), (3600, 9200), (4200, 9200)], dimstyle="建築", dxfattribs={"layer": "寸法"})
    text(msp, "外壁：窯業系ｻｲﾃﾞｨﾝｸﾞ", (4300, 9150), 200, "文字-仕上")


def floor_plan_texts(msp):
    for name, area, x, y in [
        ("居間", "33.1", 1600, 3900), ("食堂", "18.5", 6800, 5200), ("和室", "17.4", 7400, 1900), ("玄関", "4.9", 900, 900),
    ]:
        text(msp, name, (x, y), 300, "文字-室名", style="ゴシック")
        text(msp, f"A={area}㎡", (x, y - 400), 200, "文字-室名", width=0.8)
    note = msp.add_mtext(
        "{\\fＭＳ ゴシック|b0|i0|c128|p49;\\H1.4x;特記事項}\\P"
        "1. 寸法は\\C1;壁芯\\C256;とする。\\P2. 建具符号は建具表による。\\P"
        "3. 断熱材 \\S100/2; 厚、ｸﾞﾗｽｳｰﾙ 16K。",
        dxfattribs={"layer": "文字-注記", "char_height": 200, "width": 6000, "style": "MS明朝"},
    )
    note.set_location((12200, 6000))
    text(msp, "基準線・変更不可", (-3000, -3600), 200, "図枠")


def floor_plan():
    doc = new_drawing("R2000")
    doc.header["$INSUNITS"] = 4
    add_layers(doc, [
        ("通り芯", 1, "CENTER", ""), ("壁-躯体", 7, "CONTINUOUS", ""), ("壁-間仕切", 5, "CONTINUOUS", ""),
        ("建具", 4, "CONTINUOUS", ""), ("家具", 3, "CONTINUOUS", ""), ("寸法", 2, "CONTINUOUS", ""),
        ("文字-室名", 7, "CONTINUOUS", ""), ("文字-仕上", 7, "CONTINUOUS", ""), ("文字-注記", 7, "CONTINUOUS", ""),
        ("ﾊｯﾁﾝｸﾞ", 8, "CONTINUOUS", ""), ("図枠", 7, "CONTINUOUS", ""), ("ﾋﾞｭｰﾎﾟｰﾄ", 9, "CONTINUOUS", ""),
        ("測量基準", 6, "一点鎖線", "locked"), ("下書き", 8, "CONTINUOUS", "frozen"), ("検討用", 8, "CONTINUOUS", "off"),
    ])
    add_dimstyle(doc, "建築", 200, "DOT")
    floor_plan_blocks(doc)
    title_block(doc, "図枠A3", "図枠")
    msp = doc.modelspace()
    floor_plan_walls(msp)
    for index, x in enumerate((0, 5460, 10920)):
        msp.add_line((x, -3000), (x, 8200), dxfattribs={"layer": "通り芯"})
        insert(msp, "通り芯記号", (x, -3300), {"番号": f"X{index + 1}"}, layer="通り芯")
    for index, y in enumerate((0, 3640, 7280)):
        msp.add_line((-3000, y), (11800, y), dxfattribs={"layer": "通り芯", "ltscale": 2.0})
        insert(msp, "通り芯記号", (-3300, y), {"番号": f"Y{index + 1}"}, layer="通り芯")
    for x, y, rotation in ((1200, 150, 0), (5520, 1200, 90), (7600, 3640, 0)):
        insert(msp, "片開き戸", (x, y), layer="建具", rotation=rotation)
    insert(msp, "食卓ｾｯﾄ", (6600, 5900), layer="家具")
    floor_plan_dimensions(doc, msp)
    floor_plan_texts(msp)
    msp.add_point((0, 0), dxfattribs={"layer": "測量基準"})
    msp.add_line((-500, 0), (500, 0), dxfattribs={"layer": "測量基準"})
    msp.add_line((0, 0), (10920, 7280), dxfattribs={"layer": "下書き"})
    msp.add_circle((5460, 3640), 2000, dxfattribs={"layer": "検討用"})
    values = {"工事名": "山田邸新築工事", "図名": "１階平面図", "縮尺": "1/50", "図番": "A-03", "作成": "ﾔﾏｼﾀ"}
    sheet(doc, "図枠", (5460, 3640), 13000, values)
    save(doc, "floor-plan.dxf")


# --- Machine part ----------------------------------------------------------------------------------


def machine_part_views(msp):
    for radius, layer in ((75, "外形線"), (55, "中心線"), (30, "外形線"), (20, "かくれ線")):
        msp.add_circle((0, 0), radius, dxfattribs={"layer": layer})
    for dx, dy in ((55, 0), (0, 55), (-55, 0), (0, -55)):
        msp.add_blockref("ﾎﾞﾙﾄ穴", (dx, dy), dxfattribs={"layer": "外形線"})
    for a, b in (((-85, 0), (85, 0)), ((0, -85), (0, 85))):
        msp.add_line(a, b, dxfattribs={"layer": "中心線"})
    profile = [(140, -75), (152, -75), (152, -30), (180, -30), (180, 30), (152, 30), (152, 75), (140, 75)]
    msp.add_polyline2d(profile, close=True, dxfattribs={"layer": "外形線"})
    for y in (-20, 20):
        msp.add_line((140, y), (180, y), dxfattribs={"layer": "かくれ線"})
    msp.add_line((130, 0), (190, 0), dxfattribs={"layer": "中心線"})
    msp.add_solid([(140, 60), (152, 60), (140, 50), (152, 50)], dxfattribs={"layer": "断面"})


def machine_part_notes(msp):
    for base, p1, p2, angle in [
        ((0, -100), (-75, 0), (75, 0), 0), ((0, -90), (140, -75), (152, -75), 0), ((200, 0), (180, -30), (180, 30), 90),
    ]:
        msp.add_linear_dim(
            base=base, p1=p1, p2=p2, angle=angle, dimstyle="機械", dxfattribs={"layer": "寸法"}
        ).render()
    msp.add_diameter_dim(
        center=(0, 0), radius=30, angle=45, dimstyle="機械", dxfattribs={"layer": "寸法"}
    ).render()
    text(msp, "4-φ11 ｷﾘ", (45, 62), 3.5, "注記")
    text(msp, "ﾌﾗﾝｼﾞ詳細図", (-75, 100), 7, "注記", width=0.9)
    text(msp, "指示なき角部は糸面取りのこと", (-75, -125), 3.5, "注記", rotation=0)
    text(msp, "Ra6.3", (156, 32), 2.5, "注記", rotation=90, oblique=15)


def machine_part():
    doc = new_drawing("R12")
    add_layers(doc, [
        ("外形線", 7, "CONTINUOUS", ""), ("中心線", 1, "CENTER", ""), ("かくれ線", 3, "HIDDEN", ""),
        ("断面", 8, "CONTINUOUS", ""), ("寸法", 2, "CONTINUOUS", ""), ("注記", 7, "CONTINUOUS", ""),
        ("表題欄", 7, "CONTINUOUS", ""), ("治具参考", 9, "CONTINUOUS", "locked"), ("旧版", 8, "CONTINUOUS", "frozen"),
    ])
    add_dimstyle(doc, "機械", 3.5, "")
    tap = doc.blocks.new("座ぐり")
    tap.add_circle((0, 0), 9, dxfattribs={"layer": "かくれ線", "color": 3})
    hole = doc.blocks.new("ﾎﾞﾙﾄ穴")
    hole.add_circle((0, 0), 5.5, dxfattribs={"layer": "外形線"})
    hole.add_blockref("座ぐり", (0, 0), dxfattribs={"layer": "かくれ線"})
    title_block(doc, "図枠A3", "表題欄")
    msp = doc.modelspace()
    machine_part_views(msp)
    machine_part_notes(msp)
    values = {"工事名": "搬送装置Ⅱ型", "図名": "ﾌﾗﾝｼﾞ", "縮尺": "1:1", "図番": "M-0117-2", "作成": "能登"}
    insert(msp, "図枠A3", (-150, -160), values, layer="表題欄")
    msp.add_line((-90, -90), (90, -90), dxfattribs={"layer": "治具参考"})
    msp.add_arc((0, 0), 65, 30, 150, dxfattribs={"layer": "旧版"})
    save(doc, "machine-part.dxf", "dos932")


# --- Site plan -------------------------------------------------------------------------------------

PLOT = [(0, 0), (24.5, -1.2), (27.8, 17.4), (2.1, 19.6)]


def site_plan_ground(msp):
    msp.add_lwpolyline(PLOT, close=True, dxfattribs={"layer": "敷地境界線", "linetype": "一点鎖線", "lineweight": 50})
    for step in range(4):
        points = [(-5, 4 * step), (6, 4 * step + 1.5), (15, 4 * step - 0.5), (32, 4 * step + 2)]
        msp.add_spline(fit_points=points, dxfattribs={"layer": "等高線", "color": 33})
    road = msp.add_hatch(color=252, dxfattribs={"layer": "ﾊｯﾁﾝｸﾞ-道路"})
    road.set_pattern_fill("AR-CONC", scale=0.02)
    road.paths.add_polyline_path([(-5, -8), (33, -8), (33, -2), (-5, -2)], is_closed=True)
    building = msp.add_hatch(dxfattribs={"layer": "ﾊｯﾁﾝｸﾞ-建物"})
    building.set_solid_fill(color=30)
    building.transparency = 0.5
    building.paths.add_polyline_path([(6, 5), (18, 5), (18, 13), (6, 13)], is_closed=True)
    msp.add_lwpolyline([(6, 5), (18, 5), (18, 13), (6, 13)], close=True, dxfattribs={"layer": "建物"})
    msp.add_ellipse((22, 14), (2.2, 0.4), 0.6, dxfattribs={"layer": "植栽"})


def site_plan_notes(msp):
    for (x1, y1), (x2, y2) in zip(PLOT, PLOT[1:] + PLOT[:1]):
        msp.add_aligned_dim(
            p1=(x1, y1), p2=(x2, y2), distance=-1.0, dimstyle="配置", dxfattribs={"layer": "寸法"}
        ).render()
    for index, (x, y) in enumerate(PLOT):
        msp.add_circle((x, y), 0.15, dxfattribs={"layer": "境界点"})
        text(msp, f"K{index + 1}", (x + 0.4, y + 0.4), 0.5, "文字-測点", rotation=15.0 * index)
    msp.add_leader([(12, 9), (20, 22), (22, 22)], dimstyle="配置", dxfattribs={"layer": "寸法", "color": 3})
    text(msp, "計画建物 木造２階建", (22.3, 21.8), 0.6, "文字-建物")
    text(msp, "前面道路 W=6.0m", (8, -5.2), 0.8, "文字-道路", width=0.75)
    table = msp.add_mtext(
        "\\A1;{\\H1.5x;敷地概要}\\P敷地面積\\~482.15㎡\\P建築面積\\~96.00㎡（建蔽率 \\L19.9%\\l）\\P"
        "{\\C5;用途地域：}第一種低層住居専用地域",
        dxfattribs={"layer": "文字-概要", "char_height": 0.6, "width": 14.0, "style": "ゴシック"},
    )
    table.set_location((34, 18))


def site_plan():
    doc = new_drawing("R2018")
    doc.header["$INSUNITS"] = 6
    add_layers(doc, [
        ("敷地境界線", 1, "一点鎖線", ""), ("等高線", 33, "CONTINUOUS", ""), ("建物", 7, "CONTINUOUS", ""),
        ("植栽", 3, "CONTINUOUS", ""), ("境界点", 1, "CONTINUOUS", ""), ("寸法", 2, "CONTINUOUS", ""),
        ("文字-測点", 7, "CONTINUOUS", ""), ("文字-建物", 7, "CONTINUOUS", ""), ("文字-道路", 7, "CONTINUOUS", ""),
        ("文字-概要", 7, "CONTINUOUS", ""), ("ﾊｯﾁﾝｸﾞ-道路", 8, "CONTINUOUS", ""), ("ﾊｯﾁﾝｸﾞ-建物", 30, "CONTINUOUS", ""),
        ("図枠", 7, "CONTINUOUS", ""), ("ﾋﾞｭｰﾎﾟｰﾄ", 9, "CONTINUOUS", ""), ("公図", 6, "HIDDEN", "locked"),
        ("旧建物", 8, "HIDDEN", "frozen"),
    ])
    add_dimstyle(doc, "配置", 0.5, "OBLIQUE").dxf.dimdec = 2
    leaf = doc.blocks.new("枝")
    for angle in range(0, 180, 45):
        leaf.add_line((0, 0), (0.5 - angle / 300, angle / 200), dxfattribs={"layer": "0"})
    tree = doc.blocks.new("高木")
    tree.add_circle((0, 0), 0.9, dxfattribs={"layer": "植栽", "true_color": 0x2E8B57})
    tree.add_blockref("枝", (0, 0), dxfattribs={"layer": "植栽"})
    hedge = doc.blocks.new("植込み")
    for x in range(3):
        hedge.add_blockref("高木", (2 * x, 0), dxfattribs={"layer": "植栽", "xscale": 0.7, "yscale": 0.7})
    hedge.add_attdef("樹種", (0, -1.5), text="ﾂﾂｼﾞ", height=0.4, dxfattribs={"layer": "植栽", "style": "MS明朝"})
    title_block(doc, "図枠A3", "図枠")
    msp = doc.modelspace()
    site_plan_ground(msp)
    site_plan_notes(msp)
    for x, y, name in ((1.5, 16.5, "ｻｻﾞﾝｶ"), (19.5, 2, "ドウダンツツジ")):
        insert(msp, "植込み", (x, y), {"樹種": name}, layer="植栽")
    insert(msp, "高木", (23, 8), layer="植栽")
    msp.add_lwpolyline([(-4, -2), (0, 0), (2.1, 19.6)], dxfattribs={"layer": "公図"})
    msp.add_line((7, 6), (15, 6), dxfattribs={"layer": "旧建物"})
    values = {"工事名": "𠮷野邸新築工事", "図名": "配置図", "縮尺": "1/200", "図番": "A-01", "作成": "ﾔﾏｼﾀ"}
    sheet(doc, "図枠", (14, 9), 40, values)
    save(doc, "site-plan.dxf")


if __name__ == "__main__":
    floor_plan()
    machine_part()
    site_plan()
