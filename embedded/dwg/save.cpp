// Writing a drawing: what changed goes to the container, which copies everything else.

#include <algorithm>
#include <unordered_set>

#include "base/files.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/fields/header_fields.h"
#include "embedded/dwg/links.h"

namespace cad::dwg {
namespace {

class FileSink final : public Sink {
 public:
  explicit FileSink(base::AtomicFile& file) : file_(file) {}
  void write(std::string_view piece) override { file_.write(piece); }
  void overwrite(std::uint64_t at, std::string_view bytes) override { file_.overwrite(at, bytes); }

 private:
  base::AtomicFile& file_;
};

// The next free handle, which a file must have above all of its own.
base::Status raiseHandleSeed(FileChanges& changes, const DwgStorage& storage, Handle largest) {
  const std::string_view section =
      changes.header ? std::string_view(*changes.header) : storage.file().header();
  const Fields fields = readHeader(section, storage.version());
  const std::optional<Handle> seed = fields.handle("HANDSEED");
  if (!seed || *seed > largest) return {};
  FieldChanges raised;
  raised.setHandle("HANDSEED", largest + 1);
  base::Result<std::string> header = rewriteHeader(section, storage.version(), raised);
  if (!header.ok()) return header.failure();
  changes.header = std::move(header.value());
  return {};
}

}  // namespace

base::Result<FileChanges> DwgStorage::fileChanges(std::span<const Record> records) const {
  FileChanges changes;
  Handle largest = 0;
  base::Result<std::vector<ChangedObject>> linked = linkChanges(*this, records);
  if (!linked.ok()) return linked.failure();
  changes.objects = std::move(linked.value());
  std::unordered_set<Handle> linkedHandles;
  for (const ChangedObject& object : changes.objects) linkedHandles.insert(object.handle);
  changes.handleOf = [this, records](std::uint32_t number) { return handle(records[number]).value_or(0); };
  changes.bytesOf = [this, records](std::uint32_t number, std::string& buffer) {
    return object(records[number], buffer);
  };
  changes.held.reserve(static_cast<std::size_t>(std::ranges::count_if(records, [](const Record& record) {
    return record.edits != kNoEdit || (record.flags & Record::kAdded) != 0;
  })));
  for (RecordId id = 0; id < records.size(); ++id) {
    const Record& record = records[id];
    const bool isAdded = (record.flags & Record::kAdded) != 0;
    if (record.implied() || (isAdded && record.erased())) continue;
    if (record.kind == RecordKind::kFrame) {
      if (record.edits != kNoEdit) changes.header = std::string(object(record).data);
      continue;
    }
    if (!isAdded && !record.erased() && record.edits == kNoEdit) continue;
    const Handle own = handle(record).value_or(0);
    if (isAdded) largest = std::max(largest, own);
    if (!linkedHandles.empty() && linkedHandles.contains(own)) continue;
    if (record.erased()) {
      changes.objects.push_back({own, true, {}, 0});
    } else {
      changes.held.push_back(id);
    }
  }
  if (largest == 0) return changes;
  if (const base::Status status = raiseHandleSeed(changes, *this, largest); !status) return status.failure();
  return changes;
}

base::Status DwgStorage::save(const std::filesystem::path& target, std::span<const Record> records) const {
  const base::Result<FileChanges> changes = fileChanges(records);
  if (!changes.ok()) return changes.failure();
  auto file = base::AtomicFile::create(target);
  if (!file) return file.failure();
  FileSink sink(*file.value());
  if (base::Status written = file_->writeTo(changes.value(), sink); !written) return written;
  if (base::Status unchanged = checkUnchanged(); !unchanged) return unchanged;
  return file.value()->commit();
}

}  // namespace cad::dwg
