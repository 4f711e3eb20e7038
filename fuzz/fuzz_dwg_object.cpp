// Objects of DWG files: a new one of every kind and version, with bytes of the input in place of its own. Two
// bytes choose version and kind, one how much of the object stays, one how much of the end are handles.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "embedded/dwg/entity_changes.h"
#include "embedded/dwg/fields/extended_data.h"
#include "embedded/dwg/fields/object_fields.h"
#include "fuzz/input.h"
#include "fuzz/require.h"

namespace {

using namespace cad::dwg;  // NOLINT(google-build-using-namespace)
using enum base::Version;

constexpr base::Version kVersions[] = {kR13, kR14, kR2000, kR2004, kR2007, kR2010, kR2013, kR2018};
constexpr std::size_t kChoices = 4;

const std::vector<FileClass> kClasses = {{500, "LWPOLYLINE", true},
                                         {501, "HATCH", true},
                                         {502, "LAYOUT", false},
                                         {503, "ARC_DIMENSION", true},
                                         {504, "LARGE_RADIAL_DIMENSION", true},
                                         {505, "DBCOLOR", false}};

WrittenObject rewritten(const WrittenObject& object, base::Version version, const FieldChanges& changes) {
  const auto frame = readFrame(object.data, object.handleBits, version, kClasses);
  fuzz::require(frame.ok(), "an object that was written is read");
  const auto written = rewrite(frame.value(), changes);
  fuzz::require(written.ok(), "an object that was written is written again");
  return written.value();
}

void change(const ObjectFrame& frame, const Fields& fields) {
  const auto first = rewrite(frame, {});
  fuzz::require(first.ok(), "an intact object is written");
  const WrittenObject& same = first.value();
  fuzz::require(rewritten(same, frame.version, {}).data == same.data, "without changes it stays");
  const auto owner = fields.handle("owner");
  if (!owner) return;
  FieldChanges there, back;
  there.setHandle("owner", 0x12345), back.setHandle("owner", *owner);
  const WrittenObject moved = rewritten(same, frame.version, there);
  const WrittenObject restored = rewritten(moved, frame.version, back);
  fuzz::require(rewritten(restored, frame.version, there).data == moved.data, "the same change again");
}

void changeValues(const ObjectFrame& frame) {
  EntityValues values;
  values.layer = 0x12345, values.linetypeScale = 2.5;
  values.color = std::int16_t{3}, values.invisible = std::int16_t{1};
  if (frame.version >= kR2000) values.linetypeKind = LinetypeKind::kNamed, values.linetype = 0x77;
  const EntityHead head = readEntityHead(frame);
  if (!fit(values, frame.version, head)) return;
  const auto written = rewrite(frame, asFields(values, frame.version));
  fuzz::require(written.ok(), "an intact entity takes values");
  const WrittenObject now = changeEntity(frame, head, values);
  fuzz::require(now.data == written.value().data && now.handleBits == written.value().handleBits,
                "values come among the bits as fields do");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kChoices) return 0;
  const base::Version version = kVersions[data[0] % std::size(kVersions)];
  const auto kind = static_cast<ObjectKind>(1 + data[1] % static_cast<unsigned>(kLastWhole));
  const auto made = build(kind, version, 0x1A2, {}, kClasses);
  fuzz::require(made.ok(), "every kind can be made");
  WrittenObject object = made.value();
  object.data.resize(std::min<std::size_t>(data[2], object.data.size()));
  object.data += fuzz::view(data + kChoices, size - kChoices);
  object.handleBits = std::min<std::uint64_t>(data[3], object.data.size() * 8);
  const auto frame = readFrame(object.data, object.handleBits, version, kClasses);
  if (!frame.ok()) return 0;
  const Fields fields = readFields(frame.value());
  fuzz::require(fields.all().size() < object.data.size() * 16 + 400, "fields are bounded by the bits");
  if (const auto extended = readExtendedData(frame.value()); extended.ok())
    for (const ExtendedData& one : extended.value()) (void)decodeExtended(one.bytes, version);
  if (fields.intact()) change(frame.value(), fields);
  if (fields.intact() && frame.value().type.isEntity) changeValues(frame.value());
  return 0;
}
