#include "embedded/support/arrow_blocks.h"

#include "base/fold.h"
#include "embedded/drawing/drawing.h"

namespace cad::support {
namespace {

constexpr Point kTip{0, 0, 0};
constexpr Point kTail{-1, 0, 0};
constexpr Point kHalf{-0.5, 0, 0};

LineShape line(Point from, Point to) { return {from, to}; }
CircleShape circle(double radius) { return {kTip, radius}; }

// The two flanks of an arrow whose back ends lie at -length, +-halfWidth.
std::vector<Shape> open(double length, double halfWidth) {
  return {line({-length, halfWidth}, kTip), line(kTip, {-length, -halfWidth})};
}

std::vector<Shape> operator+(std::vector<Shape> shapes, Shape more) {
  shapes.push_back(std::move(more));
  return shapes;
}

constexpr double kFlank = 1.0 / 6;

std::vector<Shape> closed() { return open(1, kFlank) + line({-1, -kFlank}, {-1, kFlank}); }

// A filled disc: a closed polyline of two half circles as wide as its own diameter.
PolylineShape disc(double radius) { return {{{-radius / 2, 0, 1}, {radius / 2, 0, 1}}, radius, true}; }

std::vector<Shape> box() {
  constexpr Point a{-0.5, -0.5}, b{0.5, -0.5}, c{0.5, 0.5}, d{-0.5, 0.5};
  return {line(a, b), line(b, c), line(c, d), line(d, a)};
}

std::vector<Shape> datum() {
  constexpr double kBase = 0.5773502691896258;  // an equilateral triangle of height 1
  return {line({0, kBase}, kTail), line(kTail, {0, -kBase}), line({0, -kBase}, {0, kBase})};
}

std::vector<Shape> datumFilled() {
  constexpr double kBase = 0.5773502691896258;
  return {SolidShape{{0, kBase}, kTail, {0, -kBase}, {0, -kBase}}};
}

// An S of two arcs that meet at the point.
std::vector<Shape> integral() {
  constexpr double kRadius = 0.4543, kX = 0.4443725, kY = 0.0944541;  // radius at -12 degrees
  return {ArcShape{{kX, -kY}, kRadius, 102, 168}, ArcShape{{-kX, kY}, kRadius, 282, 348}};
}

std::vector<ArrowBlock> makeArrows() {
  const LineShape stem = line(kTip, kTail);
  const LineShape shortStem = line(kHalf, kTail);
  const SolidShape square{{-0.5, 0.5}, {0.5, 0.5}, {-0.5, -0.5}, {0.5, -0.5}};
  const PolylineShape tick{{{-0.5, -0.5}, {0.5, 0.5}}, 0.15, false};
  return {
      {L"_ClosedBlank", closed()},
      {L"_Closed", closed() + stem},
      {L"_Dot", {disc(0.5), shortStem}},
      {L"_ArchTick", {tick}},
      {L"_Oblique", {line({-0.5, -0.5}, {0.5, 0.5})}},
      {L"_Open", open(1, kFlank) + stem},
      {L"_Origin", {circle(0.5), stem}},
      {L"_Origin2", {circle(0.5), circle(0.25), shortStem}},
      {L"_Open90", open(0.5, 0.5) + stem},
      {L"_Open30", open(1, 0.2679491924311227) + stem},
      {L"_DotSmall", {disc(0.125)}},
      {L"_DotBlank", {circle(0.5), shortStem}},
      {L"_Small", {circle(0.25)}},
      {L"_BoxBlank", box() + shortStem},
      {L"_BoxFilled", {square, shortStem}},
      {L"_DatumBlank", datum()},
      {L"_DatumFilled", datumFilled()},
      {L"_Integral", integral()},
      {L"_None", {}},
  };
}

}  // namespace

const ArrowBlock* findArrowBlock(std::wstring_view name) {
  static const std::vector<ArrowBlock> arrows = makeArrows();
  for (const ArrowBlock& arrow : arrows)
    if (base::equalFolded(arrow.name, name)) return &arrow;
  return nullptr;
}

RecordId arrowBlockOfFile(const Drawing& drawing, std::wstring_view name) {
  const RecordId exact = name.empty() ? kNoRecord : drawing.find(Table::kBlock, name);
  if (exact != kNoRecord || name.empty()) return exact;
  return drawing.find(Table::kBlock, std::wstring_view(L"_" + std::wstring(name)));
}

base::Result<RecordId> ensureArrowBlock(Drawing& drawing, std::wstring_view arrowName) {
  const ArrowBlock* arrow = findArrowBlock(arrowName);
  if (arrow == nullptr) return base::Failure{std::wstring(arrowName), L"This is not a built-in arrow"};
  const RecordId existing = drawing.find(Table::kBlock, std::wstring_view(arrow->name));
  if (existing != kNoRecord) return existing;
  // Names were all upper-case until names of any spelling came with the 2000 format.
  const bool upperOnly = drawing.facts().version < Version::kR2000;
  return drawing.defineBlock(upperOnly ? base::upper(arrow->name) : std::wstring(arrow->name), arrow->shapes);
}

}  // namespace cad::support
