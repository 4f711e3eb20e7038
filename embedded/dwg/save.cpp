// Writing a drawing: what changed goes to the container, which copies everything else.

#include "base/files.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/fields/header_fields.h"
#include "embedded/dwg/links.h"

namespace cad::dwg {
namespace {

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
  std::unordered_map<Handle, bool> isLinked;
  for (const ChangedObject& object : changes.objects) isLinked[object.handle] = true;
  for (const Record& record : records) {
    const bool isAdded = (record.flags & Record::kAdded) != 0;
    if (record.implied() || (isAdded && record.erased())) continue;
    if (record.kind == RecordKind::kFrame) {
      if (record.edits != kNoEdit) changes.header = std::string(object(record).data);
      continue;
    }
    if (!isAdded && !record.erased() && record.edits == kNoEdit) continue;
    const Handle own = handle(record).value_or(0);
    if (isAdded) largest = std::max(largest, own);
    if (isLinked.contains(own)) continue;
    const ObjectBytes bytes = object(record);
    changes.objects.push_back(
        {own, record.erased(), record.erased() ? std::string() : std::string(bytes.data), bytes.handleBits});
  }
  if (largest == 0) return changes;
  if (const base::Status status = raiseHandleSeed(changes, *this, largest); !status) return status.failure();
  return changes;
}

base::Status DwgStorage::save(const std::filesystem::path& target, std::span<const Record> records) const {
  const base::Result<FileChanges> changes = fileChanges(records);
  if (!changes.ok()) return changes.failure();
  std::string written;
  std::string_view bytes = file_->file();
  if (!changes.value().empty()) {
    base::Result<std::string> file = file_->write(changes.value());
    if (!file.ok()) return file.failure();
    written = std::move(file.value());
    bytes = written;
  }
  auto file = base::AtomicFile::create(target);
  if (!file) return file.failure();
  file.value()->write(bytes);
  if (base::Status unchanged = checkUnchanged(); !unchanged) return unchanged;
  return file.value()->commit();
}

}  // namespace cad::dwg
