#pragma once
// The bytes that a drawing was read from, alive as long as the drawing.

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/files.h"

namespace cad {

class SourceBytes {
 public:
  explicit SourceBytes(std::unique_ptr<base::MappedFile> file) : file_(std::move(file)) {}
  explicit SourceBytes(std::string bytes) : bytes_(std::move(bytes)) {}
  // A failure once another program has written to the file: what was read from it is not to be saved.
  base::Status checkUnchanged() const { return file_ ? file_->checkUnchanged() : base::Status(); }
  std::string_view view() const { return file_ ? file_->bytes() : std::string_view(bytes_); }

 private:
  std::unique_ptr<base::MappedFile> file_;
  std::string bytes_;
};

}  // namespace cad
