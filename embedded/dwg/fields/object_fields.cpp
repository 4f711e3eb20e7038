#include "embedded/dwg/fields/object_fields.h"

#include <algorithm>

#include "base/lineweights.h"
#include "embedded/dwg/fields/extended_data.h"
#include "embedded/dwg/fields/field_reader.h"
#include "embedded/dwg/fields/field_writer.h"
#include "embedded/dwg/fields/text_range.h"

namespace cad::dwg {
namespace {

constexpr std::uint32_t kSizeBits = 32;

Streams streamsOf(const ObjectFrame& frame) {
  return {.dataBegin = frame.extendedEnd,
          .dataEnd = frame.dataEnd,
          .textBegin = frame.textBegin,
          .textEnd = frame.textEnd,
          .handleBegin = frame.handleBegin,
          .handleEnd = frame.handleEnd};
}

FieldReader readerOf(const ObjectFrame& frame) {
  return FieldReader(frame.data, streamsOf(frame), frame.version, frame.type.kind, frame.handle);
}

void writeExtended(BitWriter& writer, const std::vector<ExtendedData>& list) {
  for (const ExtendedData& data : list) {
    writer.bs(static_cast<std::int16_t>(data.bytes.size()));
    writer.h(data.application);
    writer.copy(data.bytes, 0, std::uint64_t{data.bytes.size()} * 8);
  }
  writer.bs(0);
}

// What the parts of an object are before they are put together.
struct Parts {
  BitWriter type, front;  // front: handle and extended data
  bool textsWanted = false;
};

// Programs fill the last byte up with ones.
void fillLastByte(BitWriter& whole, const ObjectFrame* source) {
  const auto missing = static_cast<unsigned>((8 - whole.size() % 8) % 8);
  if (source != nullptr && std::uint64_t{source->data.size()} * 8 - source->handleEnd == missing) {
    whole.copy(source->data, source->handleEnd, source->handleEnd + missing);
  } else {
    whole.bits(0xFF, missing);
  }
}

// `source`: of the object that is rewritten.
WrittenObject assemble(Version version, const ObjectFrame* source, Parts& parts, FieldWriter& fields) {
  const bool sizeInMiddle = version < Version::kR2000;
  const bool texts = hasWideTexts(version) && parts.textsWanted;
  std::uint64_t behindSize = fields.data().size() + (sizeInMiddle ? 0 : parts.front.size());
  if (texts) behindSize += fields.texts().size() + sizeOfClosing(fields.texts().size());
  if (hasWideTexts(version) && !texts) ++behindSize;
  BitWriter whole;
  whole.copy(parts.type);
  if (sizeInMiddle) {
    whole.copy(parts.front);
    whole.copy(fields.beforeSize());
  }
  if (version < Version::kR2010) whole.rl(static_cast<std::uint32_t>(whole.size() + kSizeBits + behindSize));
  if (!sizeInMiddle) whole.copy(parts.front);
  whole.copy(fields.data());
  if (texts) {
    whole.copy(fields.texts());
    closeTexts(whole, fields.texts().size());
  } else if (hasWideTexts(version)) {
    whole.b(false);
  }
  const std::uint64_t handles = whole.size();
  whole.copy(fields.handles());
  fillLastByte(whole, source);
  WrittenObject written;
  if (version >= Version::kR2010) written.handleBits = whole.size() - handles;
  written.data = whole.take();
  return written;
}

base::Failure misfitFailure(std::string_view name, std::wstring_view what) {
  return {{},
          L"The field \"" + std::wstring(name.begin(), name.end()) + L"\" cannot be written so in a " +
              std::wstring(what) + L" of a DWG file"};
}

std::wstring nameOf(const ObjectType& type) {
  if (type.name.empty()) return L"object of type " + std::to_wstring(type.number);
  return {type.name.begin(), type.name.end()};
}

// What the description leaves of each stream goes along as it is.
void copyRest(const ObjectFrame& frame, const Streams& rest, FieldWriter& writer) {
  writer.data().copy(frame.data, rest.dataBegin, rest.dataEnd);
  writer.texts().copy(frame.data, rest.textBegin, rest.textEnd);
  writer.handles().copy(frame.data, rest.handleBegin, rest.handleEnd);
}

// With the description of the class, or only with that of what every object has.
base::Result<WrittenObject> rewriteAs(const ObjectFrame& frame, const FieldChanges& changes, bool whole) {
  FieldReader reader = readerOf(frame);
  describeCommon(reader, frame.type.isEntity);
  const bool complete = whole && describeOwn(reader);
  if (reader.failed())
    return base::Failure{{}, L"An object is damaged: the " + nameOf(frame.type) + L" ends within its fields"};
  const Streams rest = reader.rest();
  const Fields source = reader.take(complete);
  FieldWriter writer(&source, changes, frame.version, frame.type.kind, frame.handle);
  describeCommon(writer, frame.type.isEntity);
  if (whole) describeOwn(writer);
  if (const std::string_view misfit = writer.misfit(); !misfit.empty())
    return misfitFailure(misfit, nameOf(frame.type));
  copyRest(frame, rest, writer);
  Parts parts;
  parts.type.copy(frame.data, 0, frame.typeEnd);
  const bool extended = changes.extendedData() != nullptr;
  parts.front.copy(frame.data, frame.handleFieldBegin, extended ? frame.extendedBegin : frame.extendedEnd);
  if (extended) writeExtended(parts.front, *changes.extendedData());
  // Objects without a stream of texts have only empty ones.
  parts.textsWanted = writer.hasTexts() || frame.hasTexts;
  return assemble(frame.version, &frame, parts, writer);
}

base::Status checkExtended(const FieldChanges& changes) {
  constexpr std::size_t kMost = 0xFFFF;
  if (changes.extendedData() == nullptr) return {};
  for (const ExtendedData& data : *changes.extendedData())
    if (data.bytes.empty() || data.bytes.size() > kMost)
      return base::Failure{{}, L"The extended data of an application is empty or larger than 65535 bytes"};
  return {};
}

}  // namespace

Fields readFields(const ObjectFrame& frame) {
  FieldReader reader = readerOf(frame);
  describeCommon(reader, frame.type.isEntity);
  const bool complete = describeOwn(reader);
  return reader.take(complete);
}

Fields readCommonFields(const ObjectFrame& frame) {
  FieldReader reader = readerOf(frame);
  describeCommon(reader, frame.type.isEntity);
  return reader.take(false);
}

bool differInCommonOnly(const ObjectFrame& before, const ObjectFrame& now) {
  FieldReader former = readerOf(before), present = readerOf(now);
  describeCommon(former, before.type.isEntity);
  describeCommon(present, now.type.isEntity);
  if (former.failed() || present.failed() || before.type.number != now.type.number) return false;
  const Streams a = former.rest(), b = present.rest();
  const auto sameBits = [&](std::uint32_t beginBefore, std::uint32_t endBefore, std::uint32_t beginNow,
                            std::uint32_t endNow) {
    BitReader was(before.data, beginBefore, endBefore), is(now.data, beginNow, endNow);
    if (was.left() != is.left()) return false;
    while (was.left() > 0) {
      const auto count = static_cast<unsigned>(std::min<std::uint64_t>(was.left(), 32));
      if (was.bits(count) != is.bits(count)) return false;
    }
    return true;
  };
  return sameBits(before.extendedBegin, before.extendedEnd, now.extendedBegin, now.extendedEnd) &&
         sameBits(a.dataBegin, a.dataEnd, b.dataBegin, b.dataEnd) &&
         sameBits(a.textBegin, a.textEnd, b.textBegin, b.textEnd) &&
         sameBits(a.handleBegin, a.handleEnd, b.handleBegin, b.handleEnd);
}

FieldRest fieldRest(const ObjectFrame& frame) {
  FieldReader reader = readerOf(frame);
  describeCommon(reader, frame.type.isEntity);
  describeOwn(reader);
  const Streams rest = reader.rest();
  return {.data = rest.dataEnd - rest.dataBegin,
          .texts = rest.textEnd - rest.textBegin,
          .handles = rest.handleEnd - rest.handleBegin};
}

base::Result<WrittenObject> rewrite(const ObjectFrame& frame, const FieldChanges& changes) {
  if (base::Status fits = checkExtended(changes); !fits.ok()) return fits.failure();
  // Mostly it is what every object has; then the rest need not be understood.
  base::Result<WrittenObject> written = rewriteAs(frame, changes, false);
  return written.ok() ? std::move(written) : rewriteAs(frame, changes, true);
}

base::Result<WrittenObject> build(ObjectKind kind, Version version, Handle handle, const FieldChanges& values,
                                  const std::vector<FileClass>& classes) {
  if (base::Status fits = checkExtended(values); !fits.ok()) return fits.failure();
  const std::optional<std::uint16_t> number = numberOf(kind, version, classes);
  if (!number)
    return base::Failure{{}, L"The drawing's classes have no object of the kind that is to be made"};
  const ObjectType type = typeOf(*number, classes);
  FieldWriter writer(nullptr, values, version, kind, handle);
  describeCommon(writer, type.isEntity);
  describeOwn(writer);
  if (const std::string_view misfit = writer.misfit(); !misfit.empty())
    return misfitFailure(misfit, nameOf(type));
  Parts parts;
  parts.type.ot(*number, version);
  parts.front.h(0, handle);
  const std::vector<ExtendedData>* const extended = values.extendedData();
  writeExtended(parts.front, extended != nullptr ? *extended : std::vector<ExtendedData>());
  parts.textsWanted = writer.texts().size() != 0;
  return assemble(version, nullptr, parts, writer);
}

namespace {

// The widths by their order, behind the words for none.
std::span<const base::Lineweight> widths() { return base::lineweights().subspan(3); }
constexpr std::int64_t kStoredByLayer = 29, kStoredByBlock = 30, kStoredDefault = 31;

}  // namespace

int lineWeightOf(std::int64_t stored) {
  if (stored == kStoredByBlock) return -2;
  if (stored == kStoredDefault) return -3;
  const bool known = stored >= 0 && stored < static_cast<std::int64_t>(widths().size());
  return known ? widths()[static_cast<std::size_t>(stored)].hundredths : -1;
}

std::optional<std::int64_t> storedLineWeight(int lineWeight) {
  if (lineWeight == -1) return kStoredByLayer;
  if (lineWeight == -2) return kStoredByBlock;
  if (lineWeight == -3) return kStoredDefault;
  const std::span<const base::Lineweight> all = widths();
  const auto found = std::ranges::find(all, lineWeight, &base::Lineweight::hundredths);
  if (found == all.end()) return std::nullopt;
  return found - all.begin();
}

}  // namespace cad::dwg
