#pragma once
// What a file format does for the drawing: it holds the records' bytes and knows where each typed
// property stands in them.

#include <cstdint>
#include <string>
#include <variant>

#include "base/codepage.h"

namespace cad {

enum class Version : std::uint8_t { kR12, kR13, kR14, kR2000, kR2004, kR2007, kR2010, kR2013, kR2018, kUnknown };

struct DrawingFacts {
  Version version = Version::kR12;
  std::string versionCode;  // "AC1009"
  base::CodePage codePage = 1252;
  std::string codePageName;  // as declared, "ANSI_932"; empty: none declared
  bool binary = false;
};

// A variable's value by the host's own type.
using Variable = std::variant<std::int64_t, double, std::wstring>;

class RecordStorage {
 public:
  virtual ~RecordStorage() = default;
  virtual const DrawingFacts& facts() const = 0;
  // ... the owner of this folder declares the rest: the drawing asks only through this interface
};

}  // namespace cad
