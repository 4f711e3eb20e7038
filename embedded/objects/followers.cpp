#include "embedded/objects/followers.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

namespace cad {
namespace {

const wchar_t* reasonOf(DimOutcome outcome) {
  switch (outcome) {
    case DimOutcome::kNoStyle:
      return L"its dimension style is not known";
    case DimOutcome::kNoBlock:
      return L"the drawing does not have its block";
    case DimOutcome::kNothingDrawn:
      return L"its points make no picture";
    default:
      return L"dimensions of its kind are not drawn";
  }
}

constexpr double kSameHook = 1e-6;  // of its length

std::vector<Point> verticesOf(const Geometry& leader) {
  std::vector<Point> points;
  if (const auto* curve = std::get_if<SplineGeometry>(&leader.shape)) return curve->fit;
  if (const auto* path = std::get_if<PolylineGeometry>(&leader.shape))
    for (const PolylineGeometry::Vertex& vertex : path->vertices) points.push_back(vertex.at);
  return points;
}

bool sameValues(const std::vector<DimValue>& a, const std::vector<DimValue>& b) {
  return std::ranges::equal(a, b, [](const DimValue& one, const DimValue& other) {
    return one.variable == other.variable && one.value == other.value;
  });
}

}  // namespace

void Followers::opened(RecordId object) { open_[object] = {drawing_.record(object).edits, false}; }

Record Followers::formerOf(RecordId object, const Open& open) const {
  Record state = drawing_.record(object);
  state.edits = open.edits;
  return state;
}

void Followers::closed(RecordId object) {
  const auto known = open_.find(object);
  if (known == open_.end()) return;
  const Open open = known->second;
  open_.erase(known);
  const Record& now = drawing_.record(object);
  const bool isUnchanged = open.edits == now.edits;
  if (now.erased() || (isUnchanged && !open.wanted)) return;
  // A block that is missing is made for a change only.
  if (isUnchanged && drawing_.reference(object, Property::kDimBlock) == kNoRecord) return;
  const Record former = formerOf(object, open);
  if (drawing_.typeName(object) == "LEADER") return moveHook(object, former);
  if (open.wanted || looksOtherwise(object, former)) {
    draw(object, former);
  } else {
    follow(object, former);
  }
}

bool Followers::looksOtherwise(RecordId dimension, const Record& former) const {
  const Record& now = drawing_.record(dimension);
  const RecordStorage& storage = drawing_.storage();
  if (storage.differInCommonOnly(former, now)) return false;
  for (const Property property : {Property::kDimStyle, Property::kTextRotation, Property::kDimText})
    if (storage.property(former, property) != storage.property(now, property)) return true;
  return !sameValues(drawing_.dimVariables(former), drawing_.dimVariables(now));
}

// --- Dimensions --------------------------------------------------------------------------------------------

void Followers::wantDrawn(RecordId dimension) {
  if (const auto known = open_.find(dimension); known != open_.end()) known->second.wanted = true;
}

void Followers::finish(RecordId dimension) {
  const auto known = open_.find(dimension);
  if (known == open_.end() || !known->second.wanted) return;
  const Record former = formerOf(dimension, known->second);
  known->second.wanted = false;
  draw(dimension, former);
  known->second.edits = drawing_.record(dimension).edits;
}

void Followers::draw(RecordId dimension, const Record& former) {
  const base::Result<DimOutcome> drawn = redraw_.redraw(dimension, former);
  if (!drawn.ok()) return tellKept(dimension, drawn.failure().text());
  if (!keepsBlock(drawn.value())) return;
  follow(dimension, former);
  tellKept(dimension, reasonOf(drawn.value()));
}

void Followers::follow(RecordId dimension, const Record& former) {
  const RecordStorage& storage = drawing_.storage();
  const Record now = drawing_.record(dimension);
  const auto changed = [&](Property property) {
    return storage.property(former, property) != storage.property(now, property);
  };
  if (!changed(Property::kLayer) && !changed(Property::kLinetype)) return;
  const base::Result<bool> followed = redraw_.follow(dimension, former);
  if (!followed.ok()) return tellKept(dimension, followed.failure().text());
  if (followed.value()) return;
  // The block is not the dimension's alone: it gets one of its own, if it can be drawn.
  const base::Result<DimOutcome> drawn = redraw_.redraw(dimension, former);
  if (!drawn.ok()) return tellKept(dimension, drawn.failure().text());
  if (keepsBlock(drawn.value())) tellKept(dimension, reasonOf(drawn.value()));
}

// --- Leaders -----------------------------------------------------------------------------------------------

void Followers::moveHook(RecordId leader, const Record& former) {
  const auto hookOf = [&](const Record& state) {
    const DimVariables values = styles_.valuesOf(drawing_, state);
    const double scale = values.real(dimRow("DIMSCALE"));
    return values.real(dimRow("DIMASZ")) * (scale > 0 ? scale : 1);
  };
  const double before = hookOf(former), after = hookOf(drawing_.record(leader));
  if (before == after || !(before > 0)) return;
  const Geometry geometry = drawing_.geometry(leader);
  const std::vector<Point> path = verticesOf(geometry);
  if (path.size() < 3) return;
  const Point& end = path.back();
  const Point& start = path[path.size() - 2];
  const Point along{end.x - start.x, end.y - start.y, end.z - start.z};
  const auto* line = std::get_if<PolylineGeometry>(&geometry.shape);
  const bool follows = line != nullptr && line->hook > 0;  // it has its new length already, at the other end
  const double length = follows ? after : before;
  // Another length is no hook, or one that a person drew.
  if (std::abs(std::hypot(along.x, along.y, along.z) - length) > kSameHook * length) return;
  const double longer = (after - before) / length;
  const Point moved{end.x + longer * along.x, end.y + longer * along.y, end.z + longer * along.z};
  if (const base::Status status = drawing_.setLastVertex(leader, moved); !status)
    tell(leader, L"The leader keeps its hook: " + status.failure().reason);
}

// --- What is told ------------------------------------------------------------------------------------------

void Followers::tellKept(RecordId dimension, const std::wstring& reason) {
  tell(dimension, L"The dimension keeps the picture that it had: " + reason);
}

void Followers::tell(RecordId object, const std::wstring& reason) {
  if (!remark || !told_.insert(object).second) return;
  const std::string_view type = drawing_.typeName(object);
  std::wstring name(type.begin(), type.end());
  if (const std::optional<Handle> handle = drawing_.handle(object)) {
    wchar_t digits[20];
    std::swprintf(digits, std::size(digits), L" %llX", static_cast<unsigned long long>(*handle));
    name += digits;
  } else if (const auto block = drawing_.text(object, Property::kDimBlock)) {
    name += L" " + *block;
  }
  remark({name, reason});
}

}  // namespace cad
