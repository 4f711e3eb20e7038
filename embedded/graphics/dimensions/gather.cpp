#include "embedded/graphics/dimensions/gather.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/fold.h"
#include "embedded/graphics/dimensions/compare.h"
#include "embedded/graphics/dimensions/fit.h"
#include "embedded/graphics/dimensions/measured_arc.h"
#include "embedded/graphics/dimensions/text_box.h"
#include "embedded/graphics/dimensions/value_text.h"
#include "embedded/graphics/text_styles.h"
#include "embedded/support/arrow_blocks.h"

namespace cad {
namespace {

using Kind = DimFigure::Kind;

Vec flat(const Point& at) { return {at.x, at.y}; }

void placePoints(const DimensionGeometry& geometry, const Axes& axes, DimFigure& figure) {
  const auto inPlan = [&](const Point& world) { return flat(axes.own(world)); };
  figure.kind = geometry.kind;
  figure.line = inPlan(geometry.line);
  figure.first = inPlan(geometry.first);
  figure.second = inPlan(geometry.second);
  figure.third = inPlan(geometry.third);
  figure.text = flat(geometry.text);
  figure.arc = flat(geometry.arc);
  figure.rotation = geometry.rotation * kRadiansPerDegree;
  figure.oblique = geometry.oblique * kRadiansPerDegree;
  figure.textRotation = geometry.textRotation * kRadiansPerDegree;
  figure.horizontal = geometry.horizontal * kRadiansPerDegree;
  figure.userText = geometry.userText;
  figure.alongX = geometry.alongX;
}

// The block's name as the drawing spells it; empty for the closed filled arrow, also in place of a block that
// the drawing does not have.
std::wstring arrowBlock(const Drawing& drawing, const std::wstring& name) {
  constexpr std::wstring_view kClosedFilled = L"_CLOSEDFILLED";
  if (name.empty() || base::equalFolded(name, kClosedFilled) ||
      base::equalFolded(name, kClosedFilled.substr(1)))
    return {};
  const RecordId block = support::arrowBlockOfFile(drawing, name);
  return block == kNoRecord ? std::wstring() : drawing.names().text(drawing.recordName(block));
}

// Blocks without a line of their own from the point backwards: the dimension line runs through them.
bool isStroke(std::wstring_view block) {
  constexpr std::wstring_view kStrokes[] = {L"_ArchTick", L"_Oblique",  L"_None",
                                            L"_Small",    L"_DotSmall", L"_Integral"};
  return std::ranges::any_of(kStrokes,
                             [&](std::wstring_view each) { return base::equalFolded(each, block); });
}

void chooseArrows(const Drawing& drawing, const DimVariables& variables, DimFigure& figure) {
  const bool differ = variables.integer(dimRow("DIMSAH")) != 0;
  // Angles have arrows whatever the size of the ticks.
  const bool isTick = variables.real(dimRow("DIMTSZ")) > 0 && !isAngular(figure.kind);
  for (std::size_t end = 0; end < figure.arrows.size(); ++end) {
    const DimVariableInfo& own = end == 0 ? dimRow("DIMBLK1") : dimRow("DIMBLK2");
    ArrowHead& arrow = figure.arrows[end];
    arrow.block = arrowBlock(drawing, variables.text(differ ? own : dimRow("DIMBLK")));
    arrow.isTick = isTick;
    arrow.isStroke = isTick || isStroke(arrow.block);
  }
}

bool isInPaperSpace(const Drawing& drawing, RecordId dimension) {
  const RecordId space = drawing.blockOf(dimension);
  return drawing.isLayoutSpace(space) && space != drawing.modelSpace();
}

bool isAnonymous(const Drawing& drawing, RecordId block) {
  return drawing.names().text(drawing.recordName(block)).starts_with(L'*');
}

// The name of the style of the first text that a block shows, itself or by anonymous blocks in it.
std::wstring textStyleIn(const Drawing& drawing, RecordId block, bool withBlocks = true) {
  for (const RecordId id : drawing.entitiesOf(block)) {
    if (drawing.record(id).erased()) continue;
    const std::string_view type = drawing.typeName(id);
    if (type == "TEXT") return drawing.text(id, Property::kTextStyle).value_or(L"Standard");
    const RecordId shown =
        type == "INSERT" && withBlocks ? drawing.reference(id, Property::kBlockName) : kNoRecord;
    if (shown == kNoRecord || !isAnonymous(drawing, shown)) continue;
    if (std::wstring style = textStyleIn(drawing, shown, false); !style.empty()) return style;
  }
  return {};
}

// Before R13 no variable names the style: it was the current one when the dimension was drawn.
std::wstring oldTextStyle(const Drawing& drawing, RecordId dimension) {
  if (const RecordId block = drawing.reference(dimension, Property::kDimBlock); block != kNoRecord)
    if (std::wstring style = textStyleIn(drawing, block); !style.empty()) return style;
  const std::optional<Variable> current = drawing.headerVariable("TEXTSTYLE");
  const auto* name = current ? std::get_if<std::wstring>(&*current) : nullptr;
  return name != nullptr ? *name : std::wstring();
}

RecordId textStyleOf(const Drawing& drawing, RecordId dimension, const DimVariables& variables) {
  const bool isOld = drawing.facts().version < Version::kR13;
  const std::wstring name = isOld ? oldTextStyle(drawing, dimension) : variables.text(dimRow("DIMTXSTY"));
  const RecordId style = drawing.find(Table::kTextStyle, std::wstring_view(name));
  return style != kNoRecord ? style : drawing.find(Table::kTextStyle, std::wstring_view(L"Standard"));
}

// 0: it is no arrow.
double arrowSizeOf(const Drawing& drawing, const BlockEntity& entity) {
  if (const auto* area = std::get_if<SolidGeometry>(&entity.geometry.shape)) {
    const auto& corners = area->corners;
    return distance(0.5 * (flat(corners[0]) + flat(corners[1])), flat(corners[2]));
  }
  const auto* insert = std::get_if<InsertGeometry>(&entity.geometry.shape);
  const bool isArrow =
      insert != nullptr && insert->block != kNoRecord && !isAnonymous(drawing, insert->block);
  return isArrow ? std::abs(insert->scale.x) : 0;
}

double arrowScaleOf(const Drawing& drawing, RecordId block, double variable) {
  if (!(variable > 0) || block == kNoRecord) return 1;
  for (const BlockEntity& entity : blockEntities(drawing, block))
    if (const double size = arrowSizeOf(drawing, entity); size > 0) return size / variable;
  return 1;
}

// What the host took from the place where the old picture was drawn: the size of its text to the variable
// that it was drawn with, of its arrows where the text's is fixed.
double scaleOfPicture(const Drawing& drawing, RecordId dimension, const std::vector<BlockEntity>& kept,
                      const DimVariables& former, TextFaces& faces) {
  if (former.real(dimRow("DIMSCALE")) > 0) return 1;  // it was not drawn by its place
  if (faces.of(drawing, textStyleOf(drawing, dimension, former)).fixedHeight > 0)
    return arrowScaleOf(drawing, drawing.reference(dimension, Property::kDimBlock),
                        former.real(dimRow("DIMASZ")));
  const double height = former.real(dimRow("DIMTXT"));
  for (const BlockEntity& entity : kept) {
    const auto* text = std::get_if<TextGeometry>(&entity.geometry.shape);
    if (text != nullptr && text->height > 0 && height > 0) return text->height / height;
  }
  return 1;
}

// Before R2000 one variable says what these two are later.
void takeOldFit(DimVariables& variables) {
  const std::int64_t fit = variables.integer(dimRow("DIMFIT"));
  variables.set(dimRow("DIMATFIT"), std::min<std::int64_t>(fit, FitRule::kBestFit));
  variables.set(dimRow("DIMTMOVE"), std::max<std::int64_t>(fit - FitRule::kBestFit, Movement::kLineFollows));
}

void chooseText(const Drawing& drawing, RecordId dimension, TextFaces& faces, DimSource& source) {
  const DimVariables& variables = source.variables;
  DimFigure& figure = source.figure;
  const TextFaces::Face& face = faces.of(drawing, textStyleOf(drawing, dimension, variables));
  source.textStyle = face.name;
  // A style's fixed height counts as it is.
  figure.textHeight =
      face.fixedHeight > 0 ? face.fixedHeight : figure.scale * variables.real(dimRow("DIMTXT"));
  figure.value = dimensionText(figure.kind, measured(figure), source.geometry.contents, variables,
                               {isInPaperSpace(drawing, dimension), drawing.facts().version});
  if (!figure.value.empty())
    figure.box = textBox(figure.value, figure.textHeight, face.widthFactor, *face.font);
  // A single line of text is never parted.
  if (drawing.facts().version < Version::kR13) figure.box.parting.reset();
}

}  // namespace

RecordId dimStyleOf(const Drawing& drawing, const Record& state) {
  const RecordId named = drawing.referenceOf(state, Property::kDimStyle);
  if (named != kNoRecord || drawing.facts().version < Version::kR13) return named;
  return drawing.find(Table::kDimStyle, std::wstring_view(L"Standard"));
}

// --- Variables ---------------------------------------------------------------------------------------------

const DimVariables& DimStyles::ofStyle(const Drawing& drawing, RecordId style) {
  const EditId edits = style == kNoRecord ? kNoEdit : drawing.record(style).edits;
  const auto [found, isNew] = kept_.try_emplace(style);
  if (isNew || found->second.edits != edits) found->second = {edits, DimVariables::ofStyle(drawing, style)};
  return found->second.variables;
}

DimVariables DimStyles::valuesOf(const Drawing& drawing, const Record& dimension) {
  DimVariables values = ofStyle(drawing, dimStyleOf(drawing, dimension));
  values.takeOwn(drawing, dimension);
  return values;
}

const TextFaces::Face& TextFaces::of(const Drawing& drawing, RecordId style) {
  const EditId edits = style == kNoRecord ? kNoEdit : drawing.record(style).edits;
  const auto [found, isNew] = kept_.try_emplace(style);
  Face& face = found->second;
  if (!isNew && face.edits == edits) return face;
  face.edits = edits;
  if (style == kNoRecord) {
    face.font = fonts_.font({});
    return face;
  }
  face.name = drawing.names().text(drawing.recordName(style));
  if (base::equalFolded(face.name, L"Standard")) face.name.clear();
  face.fixedHeight = drawing.real(style, Property::kFixedHeight).value_or(0);
  face.widthFactor = drawing.real(style, Property::kStyleWidthFactor).value_or(1);
  face.font = fonts_.font(fontOf(drawing, style));
  return face;
}

// --- The figure --------------------------------------------------------------------------------------------

void gather(const Drawing& drawing, RecordId dimension, const Record& former,
            const std::vector<BlockEntity>& kept, DimStyles& styles, TextFaces& faces, DimSource& source) {
  const Geometry geometry = drawing.geometry(dimension);
  source.geometry = std::get<DimensionGeometry>(geometry.shape);
  source.normal = geometry.normal;
  source.elevation = source.geometry.text.z;
  source.variables = styles.valuesOf(drawing, drawing.record(dimension));
  if (drawing.facts().version < Version::kR2000) takeOldFit(source.variables);
  DimFigure& figure = source.figure;
  figure.variables = &source.variables;
  placePoints(source.geometry, axesOf(source.normal), figure);
  figure.scale = source.variables.real(dimRow("DIMSCALE"));
  if (!(figure.scale > 0))
    figure.scale = scaleOfPicture(drawing, dimension, kept, styles.valuesOf(drawing, former), faces);
  chooseArrows(drawing, source.variables, figure);
  chooseText(drawing, dimension, faces, source);
}

double measured(const DimFigure& figure) {
  switch (figure.kind) {
    case Kind::kRotated:
      return std::abs(dot(figure.second - figure.first, direction(figure.rotation)));
    case Kind::kAligned:
      return distance(figure.first, figure.second);
    case Kind::kRadial:
    case Kind::kDiametric:
      return distance(figure.line, figure.third);
    case Kind::kOrdinate: {
      const Vec along = direction(-figure.horizontal);
      return std::abs(dot(figure.first - figure.line, figure.alongX ? along : leftOf(along)));
    }
    case Kind::kAngular:
    case Kind::kAngularPoints: {
      const std::optional<MeasuredArc> arc = measuredArc(figure);
      return arc ? arc->sweep : 0;
    }
    default:
      return 0;
  }
}

}  // namespace cad
