#include "embedded/editor/picking.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "acdb.h"
#include "acedads.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"
#include "embedded/graphics/hit_test.h"
#include "embedded/objects/database_access.h"

namespace cad {

const Scene& Picking::scene(const Drawing& drawing) {
  if (!scene_ || drawing_ != &drawing || revision_ != drawing.revision()) {
    scene_ = std::make_unique<Scene>(buildScene(drawing));
    drawing_ = &drawing;
    revision_ = drawing.revision();
  }
  return *scene_;
}

void Picking::forget() {
  scene_.reset();
  drawing_ = nullptr;
  highlight(kNoRecord);
}

void Picking::highlight(RecordId entity) {
  if (std::exchange(highlighted_, entity) != entity && observer_) observer_(entity);
}

}  // namespace cad

namespace {

constexpr int kKeyEvent = 2, kPickEvent = 3;
constexpr int kEnterKey = 13, kLineFeedKey = 10, kBlankKey = 32, kEscapeKey = 27, kBreakKey = 3;
constexpr std::int64_t kEmptyPick = 7, kEnter = 52;  // what ERRNO tells

// A point that a script gives without a radius still meets the lines that it lies on.
constexpr double kRounding = 1e-9;

cad::RecordId entityAt(cad::Document& document, const cad::InputEvent& event) {
  const double least = kRounding * (1 + std::abs(event.x) + std::abs(event.y));
  const cad::Scene& scene = cad::hostState().picking.scene(document.drawing());
  return cad::hitTest(scene, event.x, event.y, std::max(event.pickRadius, least));
}

int fail(std::int64_t reason) {
  cad::hostState().picking.highlight(cad::kNoRecord);
  cad::hostState().sessionVariables["ERRNO"] = reason;
  return RTERROR;
}

// The outcome of an event; nothing when the wait goes on.
std::optional<int> take(const cad::InputEvent& event, ads_name entity, ads_point point) {
  cad::HostState& state = cad::hostState();
  if (event.kind == kKeyEvent) {
    if (event.key == kEnterKey || event.key == kLineFeedKey || event.key == kBlankKey) return fail(kEnter);
    if (event.key != kEscapeKey && event.key != kBreakKey) return std::nullopt;
    state.picking.highlight(cad::kNoRecord);
    return RTCAN;
  }
  cad::Document* document = state.documents.current();
  if (document == nullptr) return RTERROR;
  const cad::RecordId found = entityAt(*document, event);
  state.picking.highlight(found);
  if (event.kind != kPickEvent) return std::nullopt;
  point[0] = event.x;
  point[1] = event.y;
  point[2] = 0;
  if (found == cad::kNoRecord) return fail(kEmptyPick);
  entity[0] = cad::idOf(*document->database(), found).asOldId();
  return RTNORM;
}

}  // namespace

int acedUsrBrk() {
  const cad::HostState& state = cad::hostState();
  return state.breakQuery && state.breakQuery() ? 1 : 0;
}

int acedGrRead(int, int* type, resbuf* result) {
  const cad::HostState& state = cad::hostState();
  if (type == nullptr || result == nullptr || !state.inputSource) return RTERROR;
  const std::optional<cad::InputEvent> event = state.inputSource();
  if (!event) return RTERROR;
  *type = event->kind;
  result->rbnext = nullptr;
  if (event->kind == kKeyEvent) {
    result->restype = RTSHORT;
    result->resval.rint = static_cast<short>(event->key);
    return RTNORM;
  }
  result->restype = RT3DPOINT;
  result->resval.rpoint[0] = event->x;
  result->resval.rpoint[1] = event->y;
  result->resval.rpoint[2] = 0;
  return RTNORM;
}

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
  cad::HostState& state = cad::hostState();
  if (entity == nullptr || point == nullptr) return RTERROR;
  ads_name_clear(entity);
  cad::printText(prompt == nullptr ? L"\nSelect object: " : prompt);
  if (!state.inputSource) return RTERROR;
  const cad::Picking::Waiting waiting(state.picking);
  for (;;) {
    const std::optional<cad::InputEvent> event = state.inputSource();
    if (!event) {
      state.picking.highlight(cad::kNoRecord);
      return RTERROR;
    }
    if (const std::optional<int> outcome = take(*event, entity, point)) return *outcome;
  }
}

int acedRedraw(const ads_name entity, int mode) {
  constexpr int kFirst = 1, kHighlight = 3, kNormal = 4;
  if (mode < kFirst || mode > kNormal) return RTERROR;
  if (entity == nullptr || ads_name_nil(entity)) return RTNORM;
  cad::HostState& state = cad::hostState();
  const cad::Document* document = state.documents.current();
  AcDbObjectId id;
  if (document == nullptr || acdbGetObjectId(id, entity) != Acad::eOk ||
      id.database() != document->database()) {
    return RTERROR;
  }
  const cad::RecordId record = cad::recordOf(id);
  if (record == cad::kNoRecord) return RTERROR;
  if (mode == kHighlight) state.picking.highlight(record);
  if (mode == kNormal && state.picking.highlighted() == record) state.picking.highlight(cad::kNoRecord);
  return RTNORM;
}
