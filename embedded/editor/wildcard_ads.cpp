#include <functional>
#include <string>
#include <unordered_map>

#include "acutads.h"
#include "embedded/drawing/wildcard.h"

namespace {

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::wstring_view text) const { return std::hash<std::wstring_view>()(text); }
};

using Patterns = std::unordered_map<std::wstring, cad::Wildcard, TextHash, std::equal_to<>>;

// Callers try the same few patterns on very many texts, and reading a pattern costs more than matching it.
// The reference holds until the thread's next call.
const cad::Wildcard& compiled(std::wstring_view pattern, bool ignoreCase) {
  constexpr std::size_t kMostPatterns = 256;
  thread_local Patterns heedingCase, ignoringCase;
  Patterns& patterns = ignoreCase ? ignoringCase : heedingCase;
  if (const auto known = patterns.find(pattern); known != patterns.end()) return known->second;
  if (patterns.size() >= kMostPatterns) patterns.clear();
  return patterns.try_emplace(std::wstring(pattern), pattern, ignoreCase).first->second;
}

}  // namespace

int acutWcMatch(const ACHAR* text, const ACHAR* pattern) {
  if (text == nullptr || pattern == nullptr) return RTERROR;
  return compiled(pattern, false).matches(text) ? RTNORM : RTERROR;
}

bool acutWcMatchEx(const ACHAR* text, const ACHAR* pattern, bool ignoreCase) {
  return text != nullptr && pattern != nullptr && compiled(pattern, ignoreCase).matches(text);
}
