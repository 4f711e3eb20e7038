#pragma once
// A selection filter: conditions on group values, joined by -4 operators. What depends on a signature
// alone is decided once for each signature of the drawing.

#include <memory>
#include <vector>

#include "adsdef.h"
#include "embedded/drawing/drawing.h"

namespace cad {

enum class Verdict : std::uint8_t { kNo, kYes, kOpen };  // open: the entity itself must be asked

class SelectionFilter {
 public:
  // Null for a malformed chain: unbalanced or unknown operators, a value without its text.
  static std::unique_ptr<SelectionFilter> parse(const resbuf* chain);

  class Node {
   public:
    virtual ~Node() = default;
    virtual Verdict ofSignature(const Drawing& drawing, const Signature& signature) const = 0;
    virtual bool ofEntity(const Drawing& drawing, RecordId entity) const = 0;
  };

  explicit SelectionFilter(std::unique_ptr<Node> root) : root_(std::move(root)) {}
  // Newest first.
  std::vector<RecordId> select(const Drawing& drawing) const;

 private:
  std::unique_ptr<Node> root_;
};

}  // namespace cad
