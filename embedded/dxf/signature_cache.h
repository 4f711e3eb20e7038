#pragma once
// The signatures of a file's entities by the bytes that they are made of, so that these are read once for
// each signature and not once for each entity.

#include <cstdint>
#include <cstring>
#include <vector>

#include "embedded/dxf/signature_reader.h"

namespace cad::dxf {

class SignatureCache {
 public:
  // The place of the signature that is made of these bytes; 0 in it when it is not known yet. The bytes must
  // stay where they are as long as the cache lives.
  SignatureId& find(const SignatureReader::Fields& fields) {
    Known& known = known_[hashOf(fields) % kPlaces];
    if (known.id == 0 || known.fields != fields) known = {fields, 0};
    return known.id;
  }

 private:
  struct Known {
    SignatureReader::Fields fields;
    SignatureId id = 0;
  };
  static constexpr std::size_t kPlaces = 1024;

  // By the length and both ends, where names differ.
  static std::uint64_t mixed(std::uint64_t hash, std::string_view text) {
    std::uint64_t first = text.size(), last = 0;
    if (text.size() >= sizeof last) {
      std::memcpy(&first, text.data(), sizeof first);
      std::memcpy(&last, text.data() + text.size() - sizeof last, sizeof last);
    } else {
      for (const char c : text) last = last << 8 | static_cast<unsigned char>(c);
    }
    hash = (hash ^ first ^ last << 7 ^ last >> 57) * 0x9E3779B97F4A7C15u;
    return hash ^ hash >> 32;
  }
  static std::uint64_t hashOf(const SignatureReader::Fields& fields) {
    std::uint64_t hash = fields.type.size();
    for (const std::string_view part :
         {fields.type, fields.layer, fields.linetype, fields.style, fields.color}) {
      hash = hash << 9 | hash >> 55;
      if (!part.empty()) hash = mixed(hash, part);
    }
    return hash;
  }

  std::vector<Known> known_ = std::vector<Known>(kPlaces);
};

}  // namespace cad::dxf
