#include "embedded/graphics/dimensions/gather.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/fold.h"
#include "embedded/graphics/dimensions/measured_arc.h"
#include "embedded/graphics/dimensions/text_box.h"
#include "embedded/graphics/dimensions/value_text.h"
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

// The height of the old picture's text to the variable that it was drawn with: what the host took from the
// place where it was drawn.
double scaleOfPicture(const std::vector<BlockEntity>& kept, const DimVariables& former) {
  const double height = former.real(dimRow("DIMTXT"));
  for (const BlockEntity& entity : kept) {
    const auto* text = std::get_if<TextGeometry>(&entity.geometry.shape);
    if (text != nullptr && text->height > 0 && height > 0) return text->height / height;
  }
  return 1;
}

bool isInPaperSpace(const Drawing& drawing, RecordId dimension) {
  const RecordId space = drawing.blockOf(dimension);
  return drawing.isLayoutSpace(space) && space != drawing.modelSpace();
}

FontRequest fontOf(const Drawing& drawing, RecordId style) {
  constexpr std::int64_t kItalic = 1 << 24, kBold = 1 << 25;
  const auto text = [&](Property property) { return drawing.text(style, property).value_or(std::wstring()); };
  const std::int64_t flags = drawing.integer(style, Property::kFontFlags).value_or(0);
  return {text(Property::kFontFile), text(Property::kBigFontFile), text(Property::kTypeface),
          (flags & kBold) != 0, (flags & kItalic) != 0};
}

RecordId textStyleOf(const Drawing& drawing, const DimVariables& variables) {
  const RecordId style =
      drawing.find(Table::kTextStyle, std::wstring_view(variables.text(dimRow("DIMTXSTY"))));
  return style != kNoRecord ? style : drawing.find(Table::kTextStyle, std::wstring_view(L"Standard"));
}

void chooseText(const Drawing& drawing, RecordId dimension, TextFaces& faces, DimSource& source) {
  const DimVariables& variables = source.variables;
  DimFigure& figure = source.figure;
  const TextFaces::Face& face = faces.of(drawing, textStyleOf(drawing, variables));
  source.textStyle = face.name;
  // A style's fixed height counts as it is.
  figure.textHeight =
      face.fixedHeight > 0 ? face.fixedHeight : figure.scale * variables.real(dimRow("DIMTXT"));
  figure.value = dimensionText(figure.kind, measured(figure), source.geometry.contents, variables,
                               {isInPaperSpace(drawing, dimension), drawing.facts().version});
  if (!figure.value.empty())
    figure.box = textBox(figure.value, figure.textHeight, face.widthFactor, *face.font);
}

}  // namespace

// --- Variables ---------------------------------------------------------------------------------------------

const DimVariables& DimStyles::ofStyle(const Drawing& drawing, RecordId style) {
  const EditId edits = style == kNoRecord ? kNoEdit : drawing.record(style).edits;
  const auto [found, isNew] = kept_.try_emplace(style);
  if (isNew || found->second.edits != edits) found->second = {edits, DimVariables::ofStyle(drawing, style)};
  return found->second.variables;
}

DimVariables DimStyles::valuesOf(const Drawing& drawing, const Record& dimension) {
  DimVariables values = ofStyle(drawing, drawing.referenceOf(dimension, Property::kDimStyle));
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
  DimFigure& figure = source.figure;
  figure.variables = &source.variables;
  placePoints(source.geometry, axesOf(source.normal), figure);
  figure.scale = source.variables.real(dimRow("DIMSCALE"));
  if (!(figure.scale > 0)) figure.scale = scaleOfPicture(kept, styles.valuesOf(drawing, former));
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
