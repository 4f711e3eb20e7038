#pragma once
// Texts in the order met, each once whatever its case.

#include <string>
#include <unordered_set>
#include <vector>

#include "base/fold.h"

namespace kiv {

class DistinctTexts {
 public:
  void add(const std::wstring& text) {
    if (folded_.insert(base::upper(text)).second) texts_.push_back(text);
  }
  const std::vector<std::wstring>& texts() const { return texts_; }

 private:
  std::vector<std::wstring> texts_;
  std::unordered_set<std::wstring> folded_;
};

}  // namespace kiv
