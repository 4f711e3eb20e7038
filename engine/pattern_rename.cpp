#include "engine/pattern_rename.h"

#include <vector>

#include "acutads.h"
#include "adscodes.h"
#include "base/fold.h"

namespace kiv {
namespace {

constexpr std::size_t kMostWildcards = 30;

struct Wildcard {
  std::size_t position;
  wchar_t character;
};

std::vector<Wildcard> wildcardsOf(std::wstring_view pattern) {
  std::vector<Wildcard> found;
  for (std::size_t i = 0; i < pattern.size() && found.size() < kMostWildcards; ++i) {
    if (pattern[i] == L'*' || pattern[i] == L'?') found.push_back({i, pattern[i]});
  }
  return found;
}

bool sameSequence(const std::vector<Wildcard>& a, const std::vector<Wildcard>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i].character != b[i].character) return false;
  }
  return true;
}

std::wstring_view between(std::wstring_view pattern, const std::vector<Wildcard>& wildcards, std::size_t i) {
  const std::size_t start = wildcards[i].position + 1;
  const std::size_t end = i + 1 < wildcards.size() ? wildcards[i + 1].position : pattern.size();
  return pattern.substr(start, end - start);
}

// Walks the name along the literals of one pattern and writes the literals of the other.
class Renaming {
 public:
  Renaming(std::wstring_view name, std::wstring_view foldedName, std::wstring_view from, std::wstring_view to)
      : name_(name), folded_(foldedName), from_(from), to_(to) {}

  std::optional<std::wstring> run(const std::vector<Wildcard>& from, const std::vector<Wildcard>& to) {
    result_ = to_.substr(0, to.front().position);
    cursor_ = from.front().position;
    if (cursor_ > name_.size()) return std::nullopt;
    for (std::size_t i = 0; i + 1 < from.size(); ++i) {
      const std::wstring_view literal = between(from_, from, i);
      if (literal.empty()) {
        // Side by side, a wildcard stands for one character, and the text that follows it in the new
        // pattern is left out; specifications in use depend on it.
        if (cursor_ < name_.size()) result_ += name_[cursor_++];
        continue;
      }
      if (!copyUpTo(literal)) return std::nullopt;
      result_ += between(to_, to, i);
    }
    const std::wstring_view tail = between(from_, from, from.size() - 1);
    if (tail.empty()) {
      result_ += name_.substr(cursor_);
    } else if (!copyUpTo(tail)) {
      return std::nullopt;
    }
    result_ += between(to_, to, to.size() - 1);
    return std::move(result_);
  }

 private:
  bool copyUpTo(std::wstring_view literal) {
    const std::size_t at = folded_.find(literal, cursor_);
    if (at == std::wstring_view::npos) return false;
    result_ += name_.substr(cursor_, at - cursor_);
    cursor_ = at + literal.size();
    return true;
  }

  std::wstring_view name_, folded_, from_, to_;
  std::wstring result_;
  std::size_t cursor_ = 0;
};

}  // namespace

std::optional<std::wstring> renameByPattern(const std::wstring& name, const std::wstring& from,
                                            const std::wstring& to) {
  const std::wstring foldedName = base::upper(name);
  const std::wstring foldedFrom = base::upper(from);
  if (from != L"*" && acutWcMatch(foldedName.c_str(), foldedFrom.c_str()) != RTNORM) return std::nullopt;
  const std::vector<Wildcard> toWildcards = wildcardsOf(to);
  if (toWildcards.empty()) return to;
  const std::vector<Wildcard> fromWildcards = wildcardsOf(foldedFrom);
  if (!sameSequence(fromWildcards, toWildcards)) return std::nullopt;
  return Renaming(name, foldedName, foldedFrom, to).run(fromWildcards, toWildcards);
}

}  // namespace kiv
