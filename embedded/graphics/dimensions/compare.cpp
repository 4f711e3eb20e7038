#include "embedded/graphics/dimensions/compare.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cwchar>

#include "base/fold.h"

namespace cad {
namespace {

constexpr double kSameAngle = 1e-6;      // degrees
constexpr double kSameSize = 1e-12;      // as part of it, wherever in the drawing it stands
constexpr double kSameDirection = 1e-9;  // of unit vectors

std::wstring nameText(const Drawing& drawing, RecordId entity, Property property) {
  const NameId name = drawing.name(entity, property);
  return name == kNoName ? std::wstring() : drawing.names().text(name);
}

std::wstring number(double value) {
  wchar_t text[32];
  std::swprintf(text, std::size(text), L"%.9g", value);
  return text;
}

std::wstring pointText(const Point& at) { return number(at.x) + L"," + number(at.y) + L"," + number(at.z); }

bool sameName(std::wstring_view a, std::wstring_view b) { return base::equalFolded(a, b); }

std::wstring digitsAt(std::wstring_view text, std::size_t at, std::wstring_view digits) {
  const std::size_t end = std::min(text.find_first_not_of(digits, at), text.size());
  return std::wstring(text.substr(at, end - at));
}

// The text with \U+XXXX as the characters and "\H1.000000x;" as "\H1x;": releases of the host differ in how
// they write the same.
std::wstring comparable(std::wstring_view contents) {
  std::wstring text;
  for (std::size_t i = 0; i < contents.size();) {
    const std::wstring_view rest = contents.substr(i);
    if (rest.starts_with(L"\\U+")) {
      const std::wstring code = digitsAt(rest.substr(0, 7), 3, L"0123456789ABCDEFabcdef");
      if (code.size() == 4) {
        text += static_cast<wchar_t>(std::wcstoul(code.c_str(), nullptr, 16));
        i += 7;
        continue;
      }
    }
    if (rest.starts_with(L"\\H")) {
      const std::wstring factor = digitsAt(rest, 2, L"0123456789.");
      if (!factor.empty() && rest.substr(2 + factor.size()).starts_with(L"x;")) {
        text += L"\\H" + number(std::wcstod(factor.c_str(), nullptr));
        i += 2 + factor.size();
        continue;
      }
    }
    text += contents[i++];
  }
  return text;
}

// Two entities of one number; collects how they differ, or tells only whether (`found` null).
class Comparison {
 public:
  Comparison(std::size_t number, const BlockEntity& drawn, const BlockEntity& kept, double tolerance,
             std::vector<std::wstring>* found)
      : number_(number), drawn_(drawn), kept_(kept), tolerance_(tolerance), found_(found) {}

  // Of entities of one type. True: they are the same.
  bool run() {
    names(L"layer", drawn_.layer, kept_.layer);
    names(L"linetype", drawn_.linetype, kept_.linetype);
    whole(L"colour", drawn_.color, kept_.color);
    whole(L"lineweight", drawn_.lineWeight, kept_.lineWeight);
    whole(L"transparency", drawn_.transparency, kept_.transparency);
    color(L"true colour", drawn_.trueColor, kept_.trueColor);
    whole(L"visibility", !drawn_.geometry.invisible, !kept_.geometry.invisible);
    std::visit([this](const auto& shape) { compare(shape); }, drawn_.geometry.shape);
    return !differs_;
  }

 private:
  static std::wstring wide(std::string_view text) { return {text.begin(), text.end()}; }

  bool isToBeTold() {
    differs_ = true;
    return found_ != nullptr;
  }
  void add(const wchar_t* what, const std::wstring& drawn, const std::wstring& kept) {
    found_->push_back(std::to_wstring(number_ + 1) + L" " + wide(kept_.type) + L": " + what + L" " + drawn +
                      L" instead of " + kept);
  }
  void names(const wchar_t* what, const std::wstring& drawn, const std::wstring& kept) {
    if (!sameName(drawn, kept) && isToBeTold()) add(what, drawn, kept);
  }
  void whole(const wchar_t* what, std::int64_t drawn, std::int64_t kept) {
    if (drawn != kept && isToBeTold()) add(what, std::to_wstring(drawn), std::to_wstring(kept));
  }
  void place(const wchar_t* what, const Point& drawn, const Point& kept) {
    const double apart = std::hypot(drawn.x - kept.x, drawn.y - kept.y, drawn.z - kept.z);
    if (!(apart <= tolerance_) && isToBeTold()) add(what, pointText(drawn), pointText(kept));
  }
  void distance(const wchar_t* what, double drawn, double kept, double tolerance) {
    if (!(std::abs(drawn - kept) <= tolerance) && isToBeTold()) add(what, number(drawn), number(kept));
  }
  void size(const wchar_t* what, double drawn, double kept) {
    distance(what, drawn, kept, kSameSize * std::max(std::abs(drawn), std::abs(kept)));
  }
  void color(const wchar_t* what, const std::optional<std::int32_t>& drawn,
             const std::optional<std::int32_t>& kept) {
    if (drawn != kept && isToBeTold()) add(what, number(drawn.value_or(-1)), number(kept.value_or(-1)));
  }
  // Of entities in a system of their own.
  void normal() {
    const Point drawn = axesOf(drawn_.geometry.normal).z, kept = axesOf(kept_.geometry.normal).z;
    const double apart = std::hypot(drawn.x - kept.x, drawn.y - kept.y, drawn.z - kept.z);
    if (!(apart <= kSameDirection) && isToBeTold()) add(L"normal", pointText(drawn), pointText(kept));
  }
  void angle(const wchar_t* what, double drawn, double kept) {
    if (!(std::abs(std::remainder(drawn - kept, 360)) <= kSameAngle) && isToBeTold())
      add(what, number(drawn), number(kept));
  }
  template <class Shape>
  const Shape& other() const {
    return std::get<Shape>(kept_.geometry.shape);
  }
  static Point onArc(const ArcGeometry& arc, double degrees) {
    const double angle = degrees * kRadiansPerDegree;
    return {arc.centre.x + arc.radius * std::cos(angle), arc.centre.y + arc.radius * std::sin(angle),
            arc.centre.z};
  }

  // A multi-line text that is read tells how its direction lies in the world's plan.
  static double worldRotation(const Geometry& geometry, const TextGeometry& text) {
    if (!text.multiline) return text.rotation;
    const double angle = text.rotation * kRadiansPerDegree;
    const Point along = axesOf(geometry.normal).world({std::cos(angle), std::sin(angle), 0});
    return std::atan2(along.y, along.x) / kRadiansPerDegree;
  }

  void compare(const LineGeometry& line) {
    const auto& kept = other<LineGeometry>();
    place(L"start", line.from, kept.from);
    place(L"end", line.to, kept.to);
  }
  void compare(const PointGeometry& point) { place(L"place", point.at, other<PointGeometry>().at); }
  void compare(const ArcGeometry& arc) {
    const auto& kept = other<ArcGeometry>();
    place(L"centre", arc.centre, kept.centre);
    distance(L"radius", arc.radius, kept.radius, tolerance_);  // it comes from two places
    place(L"start", onArc(arc, arc.start), onArc(kept, kept.start));
    place(L"end", onArc(arc, arc.end), onArc(kept, kept.end));
    normal();
  }
  void compare(const SolidGeometry& solid) {
    constexpr std::array<const wchar_t*, 4> kCorners = {L"corner 1", L"corner 2", L"corner 3", L"corner 4"};
    for (std::size_t i = 0; i < kCorners.size(); ++i)
      place(kCorners[i], solid.corners[i], other<SolidGeometry>().corners[i]);
    normal();
  }
  void compare(const InsertGeometry& insert) {
    const auto& kept = other<InsertGeometry>();
    if (insert.block != kept.block && isToBeTold())
      add(L"block", std::to_wstring(insert.block), std::to_wstring(kept.block));
    place(L"place", insert.at, kept.at);
    size(L"scale", insert.scale.x, kept.scale.x);
    size(L"scale", insert.scale.y, kept.scale.y);
    size(L"scale", insert.scale.z, kept.scale.z);
    angle(L"rotation", insert.rotation, kept.rotation);
    whole(L"columns", insert.columns, kept.columns);
    whole(L"rows", insert.rows, kept.rows);
    normal();
  }
  void compare(const TextGeometry& text) {
    const auto& kept = other<TextGeometry>();
    if (comparable(text.contents) != comparable(kept.contents) && isToBeTold())
      add(L"text", text.contents, kept.contents);
    names(L"text style", drawn_.textStyle.empty() ? L"Standard" : drawn_.textStyle,
          kept_.textStyle.empty() ? L"Standard" : kept_.textStyle);
    place(L"place", text.at, kept.at);
    size(L"height", text.height, kept.height);
    angle(L"rotation", worldRotation(drawn_.geometry, text), worldRotation(kept_.geometry, kept));
    whole(L"side", static_cast<int>(text.side), static_cast<int>(kept.side));
    whole(L"level", static_cast<int>(text.level), static_cast<int>(kept.level));
    size(L"width factor", text.widthFactor, kept.widthFactor);
    angle(L"slant", text.oblique, kept.oblique);
    whole(L"backwards", text.backwards, kept.backwards);
    whole(L"upside down", text.upsideDown, kept.upsideDown);
    size(L"line spacing", text.lineSpacing, kept.lineSpacing);
    size(L"frame width", text.frameWidth, kept.frameWidth);
    compareFill(text, kept);
    if (text.multiline) {
      whole(L"tilt", isTilted(drawn_.geometry), isTilted(kept_.geometry));
    } else {
      normal();
    }
  }
  // Of a multi-line text that is read, the plan's rotation and this tell the system.
  static bool isTilted(const Geometry& geometry) {
    const Point& normal = geometry.normal;
    return geometry.partial || normal.x != 0 || normal.y != 0 || normal.z <= 0;
  }
  void compareFill(const TextGeometry& text, const TextGeometry& kept) {
    whole(L"fill", static_cast<int>(text.fill), static_cast<int>(kept.fill));
    if (text.fill == TextGeometry::Fill::kNone) return;
    size(L"fill factor", text.fillFactor, kept.fillFactor);
    if (text.fill != TextGeometry::Fill::kOwnColor) return;
    whole(L"fill colour", text.fillColor, kept.fillColor);
    color(L"fill's true colour", text.fillTrueColor, kept.fillTrueColor);
  }
  template <class Shape>
  void compare(const Shape&) {}  // no other shapes are drawn

  std::size_t number_;
  const BlockEntity& drawn_;
  const BlockEntity& kept_;
  double tolerance_;
  std::vector<std::wstring>* found_;
  bool differs_ = false;
};

bool isText(const BlockEntity& entity) { return entity.type == "MTEXT" || entity.type == "TEXT"; }

void readWhole(const Drawing& drawing, RecordId id, BlockEntity& entity) {
  entity.geometry = drawing.geometry(id);
  entity.layer = nameText(drawing, id, Property::kLayer);
  entity.linetype = nameText(drawing, id, Property::kLinetype);
  if (sameName(entity.linetype, L"ByLayer")) entity.linetype.clear();
  if (isText(entity)) entity.textStyle = nameText(drawing, id, Property::kTextStyle);
}

std::wstring typeList(const std::vector<BlockEntity>& entities) {
  std::wstring list;
  for (const BlockEntity& entity : entities) {
    if (!list.empty()) list += L" ";
    list.append(entity.type.begin(), entity.type.end());
  }
  return list;
}

}  // namespace

std::vector<BlockEntity> blockEntities(const Drawing& drawing, RecordId block, BlockReading reading) {
  std::vector<BlockEntity> entities;
  for (const RecordId id : drawing.entitiesOf(block)) {
    if (drawing.record(id).erased()) continue;
    BlockEntity entity;
    entity.type = drawing.typeName(id);
    if (reading == BlockReading::kWhole || isText(entity)) readWhole(drawing, id, entity);
    entity.color = static_cast<std::int16_t>(drawing.integer(id, Property::kColorIndex).value_or(256));
    const EntityLooks looks = drawing.looks(id);
    entity.lineWeight = looks.lineWeight;
    entity.transparency = looks.transparency;
    entity.trueColor = looks.trueColor;
    entities.push_back(std::move(entity));
  }
  return entities;
}

std::vector<std::wstring> differences(const std::vector<BlockEntity>& drawn,
                                      const std::vector<BlockEntity>& kept, const PlaceTolerance& tolerance,
                                      const std::vector<bool>& byText) {
  std::vector<std::wstring> found;
  const auto sameType = [](const BlockEntity& a, const BlockEntity& b) { return a.type == b.type; };
  if (!std::ranges::equal(drawn, kept, sameType)) {
    found.push_back(L"entities " + typeList(drawn) + L" instead of " + typeList(kept));
    return found;
  }
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    const bool dependsOnText = i < byText.size() && byText[i];
    Comparison(i, drawn[i], kept[i], dependsOnText ? tolerance.byText : tolerance.exact, &found).run();
  }
  return found;
}

bool differAtAGlance(const std::vector<BlockEntity>& drawn, const std::vector<BlockEntity>& kept,
                     double tolerance) {
  return !std::ranges::equal(drawn, kept, [&](const BlockEntity& a, const BlockEntity& b) {
    return a.type == b.type && (!isText(a) || Comparison(0, a, b, tolerance, nullptr).run());
  });
}

bool samePicture(const std::vector<BlockEntity>& drawn, const std::vector<BlockEntity>& kept,
                 double tolerance) {
  return std::ranges::equal(drawn, kept, [&](const BlockEntity& a, const BlockEntity& b) {
    return a.type == b.type && Comparison(0, a, b, tolerance, nullptr).run();
  });
}

}  // namespace cad
