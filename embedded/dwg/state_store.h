#pragma once
// The states of changed objects: each is the object's data whole, and is never altered.

#include <memory>
#include <string_view>
#include <vector>

#include "embedded/drawing/storage.h"
#include "embedded/dwg/files/dwg_file.h"

namespace cad::dwg {

class StateStore {
 public:
  StateStore() : states_(1) {}  // kNoEdit

  EditId add(std::string_view data, std::uint64_t handleBits);
  ObjectBytes object(EditId state) const { return {{}, states_[state].data, states_[state].handleBits}; }

 private:
  struct State {
    std::string_view data;
    std::uint64_t handleBits = 0;
  };
  std::vector<State> states_;
  std::vector<std::unique_ptr<char[]>> chunks_;
  std::size_t used_ = 0, size_ = 0;  // of the newest chunk
};

}  // namespace cad::dwg
