#include "embedded/dxf/dxf_storage.h"

#include <algorithm>
#include <utility>

#include "embedded/drawing/drawing.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dxf/group_cursor.h"
#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/largest_handle.h"
#include "embedded/dxf/signature_reader.h"

namespace cad::dxf {

DxfStorage::DxfStorage(std::shared_ptr<const SourceBytes> source, const Dialect& dialect, DrawingFacts facts,
                       const FileFrame& frame)
    : source_(std::move(source)),
      file_(source_->view()),
      dialect_(dialect),
      facts_(std::move(facts)),
      frame_(frame) {}

std::string_view DxfStorage::original(const Record& record) const {
  if ((record.flags & Record::kAdded) != 0) return edits_.text(static_cast<TextId>(record.offset));
  if ((record.flags & Record::kImplied) != 0) return {};
  return file_.substr(record.offset, record.length);
}

std::string_view DxfStorage::bytes(const Record& record, std::string& scratch) const {
  if (record.edits == kNoEdit) return original(record);
  scratch.clear();
  edits_.apply(record.edits, original(record), scratch);
  return scratch;
}

EditId DxfStorage::splice(const Record& record, const Splice& change) {
  return splice(record, change.offset, change.removed, edits_.keepText(change.bytes));
}

EditId DxfStorage::splice(const Record& record, std::uint32_t offset, std::uint32_t removed, TextId text) {
  if (!edits_.isLong(record.edits)) return edits_.add(record.edits, offset, removed, text);
  std::string scratch;
  std::string whole(bytes(record, scratch));
  whole.replace(offset, removed, edits_.text(text));
  return edits_.addWhole(record.edits, std::move(whole));
}

EditId DxfStorage::withValue(const Record& record, const Group& group, std::string_view value) {
  return splice(record, {group.valueBegin, static_cast<std::uint32_t>(group.value.size()), value});
}

EditId DxfStorage::withGroups(const Record& record, std::uint32_t at, std::string_view groups) {
  return splice(record, {at, 0, groups});
}

EditId DxfStorage::withoutGroup(const Record& record, const Group& group) {
  return splice(record, {group.begin, group.end - group.begin, {}});
}

EditId DxfStorage::withGroupsFor(const Record& record, std::uint32_t begin, std::uint32_t end,
                                 std::string groups) {
  std::string scratch;
  groups += commentsIn(bytes(record, scratch).substr(begin, end - begin), dialect_);
  return splice(record, {begin, end - begin, groups});
}

std::string DxfStorage::encode(std::wstring_view text) const { return encodeStored(text, facts_.codePage); }
std::wstring DxfStorage::decode(std::string_view stored) const {
  return decodeStored(stored, facts_.codePage);
}

std::string_view DxfStorage::typeName(const Record& record) const {
  GroupCursor cursor(original(record), dialect_);
  if (!cursor.next() || cursor.group().code != 0) return {};
  const std::string_view type = trimmed(cursor.group().value);
  if (std::ranges::none_of(type, [](char c) { return c != asciiUpper(c); })) return type;
  std::string upper(type);
  for (char& c : upper) c = asciiUpper(c);
  return *upperTypes_.insert(std::move(upper)).first;
}

std::optional<Handle> DxfStorage::handle(const Record& record) const {
  const int code = handleCode(record);
  if (code == kNoHandle) return std::nullopt;
  RegionCursor cursor(original(record), dialect_);
  while (cursor.next()) {
    if (cursor.region() == Region::kExtendedData) break;
    if (cursor.group().code == code && cursor.region() != Region::kApplication)
      return handleValue(cursor.group());
  }
  return std::nullopt;
}

Signature DxfStorage::readSignature(Drawing& drawing, const Record& record) const {
  std::string scratch;
  GroupCursor cursor(bytes(record, scratch), dialect_);
  if (!cursor.next()) return {};
  SignatureReader reader;
  reader.begin(typeName(record));
  while (cursor.next()) reader.group(cursor.group().code, cursor.group().value);
  return reader.finish(drawing.names(), dialect_);
}

Handle DxfStorage::handleSeed(const Record& header) const {
  std::string scratch;
  GroupCursor cursor(bytes(header, scratch), dialect_);
  bool wanted = false;
  while (cursor.next()) {
    const Group& group = cursor.group();
    if (wanted && group.code == 5) return handleValue(group).value_or(0);
    if (group.code == 9) wanted = trimmed(group.value) == "$HANDSEED";
  }
  return 0;
}

EditId DxfStorage::raiseHandleSeed(const Record& header, Handle seed) {
  std::string scratch;
  GroupWriter digits(dialect_);
  digits.handle(5, seed);
  Group written;
  const bool ok = readGroup(digits.bytes(), 0, dialect_, written);
  GroupCursor cursor(bytes(header, scratch), dialect_);
  bool wanted = false;
  while (ok && cursor.next()) {
    const Group& group = cursor.group();
    if (wanted && group.code == 5) return withValue(header, group, written.value);
    if (group.code == 9) wanted = trimmed(group.value) == "$HANDSEED";
  }
  return header.edits;
}

}  // namespace cad::dxf
