// Writing a drawing: untouched stretches of the file as they are, changed records in their present state.

#include <string>
#include <unordered_map>
#include <vector>

#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/file_facts.h"
#include "embedded/dxf/traces.h"

namespace cad::dxf {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::size_t kBuffer = std::size_t{1} << 18;  // stays in the processor's cache

class Output {
 public:
  Output(base::AtomicFile& file, std::string_view source) : file_(file), source_(source) {
    buffer_.reserve(2 * kBuffer);
  }

  // Part of the source; neighbouring parts become one.
  void copy(std::size_t offset, std::size_t length) {
    if (offset != end_) {
      flushRun();
      begin_ = offset;
    }
    end_ = offset + length;
  }
  // Where changed bytes may be appended.
  std::string& changed() {
    flushRun();
    if (buffer_.size() >= kBuffer) flushBuffer();
    return buffer_;
  }
  void finish() {
    flushRun();
    flushBuffer();
  }

 private:
  void flushRun() {
    const std::string_view run = source_.substr(begin_, end_ - begin_);
    begin_ = end_;
    if (run.size() < kBuffer / 4) {
      buffer_ += run;
    } else {
      flushBuffer();
      file_.write(run);
    }
  }
  void flushBuffer() {
    if (!buffer_.empty()) file_.write(buffer_);
    buffer_.clear();
  }

  base::AtomicFile& file_;
  std::string_view source_;
  std::string buffer_;
  std::size_t begin_ = 0, end_ = 0;
};

using Children = std::unordered_map<RecordId, std::vector<RecordId>>;

}  // namespace

base::Status DxfStorage::save(const std::filesystem::path& target, std::span<const Record> records) const {
  auto file = base::AtomicFile::create(target);
  if (!file) return file.failure();
  Children children;
  for (const Placement& placement : added_) children[placement.before].push_back(placement.record);
  const Traces traces(*this, records);
  Output output(*file.value(), file_);
  const auto writeChanged = [&](const Record& record) {
    edits_.apply(record.edits, original(record), output.changed());
  };
  constexpr std::uint8_t kNotInFile = Record::kAdded | Record::kImplied;
  // A file without EOF may lack the end of its last line too: what is added where EOF would be begins with
  // it.
  const auto beginsLine = [&](const Record& record) {
    const bool first = (record.flags & kNotInFile) != 0 || record.offset <= prefixLength(file_);
    return dialect_.binary || first || "\r\n"sv.find(file_[record.offset - 1]) != std::string_view::npos;
  };
  // Added records may stand before records that were added too.
  const auto writeAdded = [&](const auto& self, RecordId before) -> void {
    const auto found = children.find(before);
    if (found == children.end()) return;
    if (!beginsLine(records[before])) output.changed() += lineEndBytes(dialect_.lineEnd);
    for (const RecordId id : found->second) {
      self(self, id);
      if (!records[id].erased()) writeChanged(records[id]);
    }
  };
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Record& record = records[i];
    if ((record.flags & kNotInFile) != 0) continue;
    if (!children.empty()) writeAdded(writeAdded, static_cast<RecordId>(i));
    if (record.erased() || traces.goes(static_cast<RecordId>(i))) continue;
    if (const auto entry = traces.entryOf(static_cast<RecordId>(i))) {
      output.changed() += *entry;
    } else if (record.edits == kNoEdit) {
      output.copy(record.offset, record.length);
    } else {
      writeChanged(record);
    }
  }
  output.finish();
  if (base::Status unchanged = source_->checkUnchanged(); !unchanged) return unchanged;
  return file.value()->commit();
}

}  // namespace cad::dxf
