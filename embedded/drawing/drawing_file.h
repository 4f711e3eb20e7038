#pragma once
// The file of a drawing: its bytes, and what it says of itself.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.h"
#include "base/drawing_version.h"
#include "base/files.h"

namespace cad {

using base::Version;

// Objects that something is wrong with, by their handles. They stay in the file as they came.
struct DamagedObjects {
  std::vector<std::uint64_t> unreadable;         // nothing is known of them
  std::vector<std::uint64_t> withWrongChecksum;  // read as they stand where they can be; ascending
  std::vector<std::uint64_t> ownerless;          // entities of no block

  // Then the object keeps its values: a right checksum would hide that they are unsure.
  bool hasWrongChecksum(std::uint64_t handle) const {
    return std::ranges::binary_search(withWrongChecksum, handle);
  }
};

struct DrawingFacts {
  Version version = Version::kR12;
  std::string versionCode;  // "AC1009"
  base::CodePage codePage = 1252;
  std::string codePageName;   // as declared, "ANSI_932"; empty: none declared
  bool codePageKnown = true;  // false: the declared name is not one that we know; 1252 is used
  std::wstring form;          // of a format with several: "text", "binary"
  bool lacksEnd = false;      // the file's end is missing, but nothing else of it
  DamagedObjects damage;

  // Texts and shapes stand in the patterns of linetypes.
  bool linetypesHoldSymbols() const { return version >= Version::kR13; }
};

// The bytes that a drawing was read from.
class SourceBytes {
 public:
  explicit SourceBytes(std::unique_ptr<base::FileBytes> file) : file_(std::move(file)) {}
  explicit SourceBytes(std::string bytes) : bytes_(std::move(bytes)) {}
  // A failure once another program has written to the file: what was read from it is not to be used.
  base::Status checkUnchanged() const { return file_ ? file_->checkUnchanged() : base::Status(); }
  std::string_view view() const { return file_ ? file_->bytes() : std::string_view(bytes_); }

 private:
  std::unique_ptr<base::FileBytes> file_;
  std::string bytes_;
};

}  // namespace cad
