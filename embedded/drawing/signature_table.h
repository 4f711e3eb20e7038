#pragma once
// Every distinct signature of a drawing, held once.

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/record.h"

namespace cad {

class SignatureTable {
 public:
  SignatureTable();  // holds the empty signature as number 0, for records that are no entities

  SignatureId intern(const Signature& signature);
  const Signature& operator[](SignatureId id) const { return all_[id]; }
  const std::vector<Signature>& all() const { return all_; }

 private:
  struct Hash {
    std::size_t operator()(const Signature& signature) const;
  };
  std::vector<Signature> all_;
  std::unordered_map<Signature, SignatureId, Hash> ids_;
  // Neighbouring entities are mostly alike.
  static constexpr std::size_t kRecent = 4;
  SignatureId recent_[kRecent] = {};
  std::size_t nextRecent_ = 0;
};

}  // namespace cad
