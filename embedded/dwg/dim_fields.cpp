#include "embedded/dwg/dim_fields.h"

#include <cmath>

#include "embedded/drawing/stored_text.h"
#include "embedded/drawing/variable_numbers.h"
#include "embedded/dwg/special_properties.h"

namespace cad::dwg {
namespace {

constexpr int kText = 1000, kHandle = 1005, kReal = 1040, kInteger = 1070;

base::Failure badValue(const DimVariableInfo& info) {
  return {std::wstring(info.name.begin(), info.name.end()), L"The value does not fit the variable"};
}

base::Result<Handle> handleOfName(Drawing& drawing, const DwgStorage& storage, const DimVariableInfo& info,
                                  std::wstring_view name) {
  if (name.empty() || name == L".") return Handle{0};
  const RecordId id = drawing.find(tableOf(info.type), name);
  if (id == kNoRecord) return base::Failure{std::wstring(name), L"The drawing has no record of this name"};
  if (info.type == DimType::kArrow) {
    const Handle entry = storage.entryOf(drawing.record(id));
    if (entry == 0) return base::Failure{std::wstring(name), L"The block has no table entry"};
    return entry;
  }
  if (const base::Status status = drawing.materialise(id); !status.ok()) return status.failure();
  return drawing.handle(id).value_or(0);
}

// A text of the variable; of a name that of the record.
base::Result<std::string> textOf(const Drawing& drawing, const DwgStorage& storage,
                                 const DimVariableInfo& info, const std::wstring& text) {
  if (!info.isName()) return encodeStored(text, storage.facts().codePage);
  if (text.empty() || text == L".") return std::string();
  const RecordId id = drawing.find(tableOf(info.type), std::wstring_view(text));
  const NameId name = id == kNoRecord ? kNoName : drawing.recordName(id);
  if (name == kNoName) return base::Failure{text, L"The drawing has no record of this name"};
  return std::string(drawing.names().stored(name));
}

ExtendedValue extended(int code, Value value, std::uint16_t codePage = 0) {
  ExtendedValue made;
  made.code = code;
  made.value = std::move(value);
  made.codePage = codePage;
  return made;
}

}  // namespace

bool isColorVariable(const DimVariableInfo& info) { return info.name.find("CLR") != std::string_view::npos; }

bool isNamedByText(Version version, const DimVariableInfo& info) {
  return info.type == DimType::kArrow && version < Version::kR2000;
}

base::Status setStyleField(Drawing& drawing, const DwgStorage& storage, const DimVariableInfo& info,
                           const Variable& value, FieldChanges& changes) {
  if (info.type == DimType::kReal) {
    const std::optional<double> real = asReal(value);
    if (!real) return badValue(info);
    changes.set(info.name, Value(*real));
    return {};
  }
  if (info.isInteger()) {
    const std::optional<std::int64_t> integer = asInteger(value);
    if (!integer) return badValue(info);
    if (isColorVariable(info))
      changes.setColor(info.name, colorOf(*integer));
    else
      changes.set(info.name, Value(*integer));
    return {};
  }
  const auto* text = std::get_if<std::wstring>(&value);
  if (text == nullptr) return badValue(info);
  if (!info.isName() || isNamedByText(storage.version(), info)) {
    const base::Result<std::string> stored = textOf(drawing, storage, info, *text);
    if (!stored.ok()) return stored.failure();
    changes.set(info.name, storage.fieldText(stored.value()));
    return {};
  }
  const base::Result<Handle> handle = handleOfName(drawing, storage, info, *text);
  if (!handle.ok()) return handle.failure();
  changes.setHandle(info.name, handle.value());
  return {};
}

base::Result<ExtendedValue> overrideOf(Drawing& drawing, const DwgStorage& storage,
                                       const DimVariableInfo& info, const Variable& value) {
  if (info.type == DimType::kReal) {
    const std::optional<double> real = asReal(value);
    return real ? base::Result<ExtendedValue>(extended(kReal, *real)) : badValue(info);
  }
  if (info.isInteger()) {
    const std::optional<std::int64_t> integer = asInteger(value);
    return integer ? base::Result<ExtendedValue>(extended(kInteger, *integer)) : badValue(info);
  }
  const auto* text = std::get_if<std::wstring>(&value);
  if (text == nullptr) return badValue(info);
  if (!info.isName() || isNamedByText(storage.version(), info)) {
    const base::Result<std::string> stored = textOf(drawing, storage, info, *text);
    if (!stored.ok()) return stored.failure();
    return extended(kText, storage.extendedText(stored.value()), storage.codePageNumber());
  }
  const base::Result<Handle> handle = handleOfName(drawing, storage, info, *text);
  if (!handle.ok()) return handle.failure();
  constexpr std::uint8_t kBytesOfHandle = 8;
  return extended(kHandle, HandleReference{0, kBytesOfHandle, handle.value()});
}

}  // namespace cad::dwg
