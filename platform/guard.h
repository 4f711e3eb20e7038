#pragma once
// The border of the module: nothing is thrown across it, neither into the host nor through the frames of the
// window manager.

#include <exception>
#include <utility>

namespace kiv {

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

}  // namespace kiv
