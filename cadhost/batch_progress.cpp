#include "cadhost/batch_progress.h"

#include <cmath>

namespace cadhost {

void BatchProgress::update(const cad::ScriptProgress& now, Time time) {
  if (now_.state == State::kRunning) worked_ += time - since_;
  if (now.drawing <= 1 && now.state == State::kRunning) worked_ = {};
  since_ = time;
  now_ = now;
}

std::wstring BatchProgress::timeLeft() const {
  if (done() == 0) return {};
  const double seconds = std::ceil(worked_.count() / done() * (now_.drawings - done()));
  const auto whole = static_cast<long long>(seconds);
  if (whole < 60) return L"  残り約" + std::to_wstring(whole) + L"秒";
  const long long minutes = (whole + 59) / 60;
  if (minutes < 60) return L"  残り約" + std::to_wstring(minutes) + L"分";
  return L"  残り約" + std::to_wstring(minutes / 60) + L"時間" + std::to_wstring(minutes % 60) + L"分";
}

std::wstring BatchProgress::text() const {
  if (now_.drawings == 0 || now_.state == State::kEnded) return {};
  const std::wstring all = L"/" + std::to_wstring(now_.drawings);
  if (now_.state == State::kSuspended)
    return L"中断  図面 " + std::to_wstring(now_.drawing) + all + L" まで  RESUME で再開";
  return L"図面 " + std::to_wstring(now_.drawing) + all + L"  " + now_.name + timeLeft();
}

}  // namespace cadhost
