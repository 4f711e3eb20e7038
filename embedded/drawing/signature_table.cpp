#include "embedded/drawing/signature_table.h"

#include <cstdint>

namespace cad {

std::size_t SignatureTable::Hash::operator()(const Signature& signature) const {
  std::uint64_t hash = signature.type;
  for (const std::uint64_t part :
       {static_cast<std::uint64_t>(signature.layer), static_cast<std::uint64_t>(signature.linetype),
        static_cast<std::uint64_t>(signature.style),
        static_cast<std::uint64_t>(static_cast<std::uint16_t>(signature.color))}) {
    hash = (hash ^ part) * 0x9E3779B97F4A7C15u;
    hash ^= hash >> 29;
  }
  return static_cast<std::size_t>(hash);
}

SignatureTable::SignatureTable() { intern(Signature{}); }

SignatureId SignatureTable::intern(const Signature& signature) {
  if (!all_.empty()) {
    for (const SignatureId id : recent_) {
      if (all_[id] == signature) return id;
    }
  }
  const auto [entry, added] = ids_.try_emplace(signature, static_cast<SignatureId>(all_.size()));
  if (added) all_.push_back(signature);
  recent_[nextRecent_++ % kRecent] = entry->second;
  return entry->second;
}

}  // namespace cad
