#include "acedads.h"
#include "embedded/editor/host_state.h"

namespace {

constexpr int kKeyEvent = 2;

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
