#pragma once
// What a person reads on the host's command line and in its status bar. Errors that nobody expected end
// there: nothing is thrown across the border of the module, neither into the host nor through the frames of
// the window manager.

#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "siblings/common/host_output.h"

namespace kiv {

// "\nKivｴﾗｰ:" and the text.
void printError(std::wstring_view text);

// Both print on the command line; a text that cannot even be printed is lost.
void reportEscaped(const std::exception& error) noexcept;
void reportEscaped() noexcept;

// What `work` returns, or `otherwise` after an error that is told on the command line.
template <class Result, class Work>
Result guarded(Result otherwise, Work&& work) noexcept {
  try {
    return std::forward<Work>(work)();
  } catch (const std::exception& error) {
    reportEscaped(error);
  } catch (...) {
    reportEscaped();
  }
  return otherwise;
}

template <class Work>
void guarded(Work&& work) noexcept {
  guarded(0, [&] {
    std::forward<Work>(work)();
    return 0;
  });
}

// --- The meter in the status bar

void startMeter(const std::wstring& label, int steps);  // at step 0
void moveMeter(int step);
void endMeter();  // the status bar shows again what it showed before; nothing when no meter was started

}  // namespace kiv
