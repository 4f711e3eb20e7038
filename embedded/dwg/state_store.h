#pragma once
// The states of changed objects, none of which is ever altered. A state holds what is different from the one
// that it was made from: its bytes, or values that are to be put among its bits. Its number tells where it
// stands.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drawing/storage.h"
#include "embedded/dwg/entity_values.h"
#include "embedded/dwg/files/dwg_file.h"

namespace cad::dwg {

// A state of values, and the one of bytes that they are to be put into; kNoEdit: the original.
struct ValueState {
  EditId base = kNoEdit;
  EntityValues values;
};

// Adding throws std::bad_alloc when all states are four gigabytes.
class StateStore {
 public:
  // Whether no bytes can be made from the state any more, but from the original.
  bool isLast(EditId state) const;
  // `from`: the state with the bytes `present`, not the last; kNoEdit: they are the original's, the object as
  // it was first.
  EditId add(EditId from, std::string_view present, std::string_view data, std::uint64_t handleBits);
  EditId add(const ValueState& state);
  EditId base(EditId state) const;        // that of its values; of bytes, or the original: itself
  ValueState values(EditId state) const;  // of bytes, or the original: without any
  // In the buffer. Of a state of bytes.
  ObjectBytes object(EditId state, std::string_view original, std::string& buffer) const;

 private:
  struct Difference {
    EditId from = kNoEdit;
    std::uint64_t depth = 0;  // how many states it goes back to the original; 0: it is of values
    std::uint64_t handleBits = 0;
    std::uint64_t begin = 0, removed = 0;  // bytes that give way
    std::string_view bytes;
  };
  Difference difference(EditId state) const;
  char* at(EditId state) const;
  EditId room(std::size_t bytes);

  std::vector<std::unique_ptr<char[]>> chunks_;
  std::size_t used_ = 0, size_ = 0;  // of the newest chunk
};

}  // namespace cad::dwg
