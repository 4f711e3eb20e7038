#include <algorithm>

#include "acedads.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

namespace {

constexpr int kKeyEvent = 2;
constexpr std::int64_t kEmptyPick = 7, kEnter = 52;  // what ERRNO tells

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

// Nothing is drawn here, so no point of the screen lies on an entity: every pick is an empty one.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
  cad::HostState& state = cad::hostState();
  if (entity == nullptr || point == nullptr) return RTERROR;
  ads_name_clear(entity);
  cad::printText(prompt == nullptr ? L"\nSelect object: " : prompt);
  int type = 0;
  resbuf event{};
  if (acedGrRead(0, &type, &event) != RTNORM) return RTERROR;
  state.sessionVariables["ERRNO"] = type == kKeyEvent ? kEnter : kEmptyPick;
  if (type != kKeyEvent) std::copy(event.resval.rpoint, event.resval.rpoint + 3, point);
  return RTERROR;
}
