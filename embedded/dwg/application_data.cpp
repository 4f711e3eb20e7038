#include "embedded/dwg/application_data.h"

#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/stored_text.h"

namespace cad::dwg {
namespace {

constexpr int kText = 1000, kBrace = 1002;
constexpr std::uint8_t kPointing = 5;       // the kind of reference to an application
constexpr std::uint32_t kLengthOfNone = 2;  // bits: the size 0

}  // namespace

// Applications do not change their names.
bool isApplication(const DwgStorage& storage, Handle application, std::wstring_view name) {
  return base::equalFolded(decodeStored(storage.firstName(application), storage.facts().codePage), name);
}

base::Result<ApplicationValues> applicationValues(const DwgStorage& storage, const Record& record,
                                                  std::wstring_view application) {
  const base::Result<ObjectFrame> frame = storage.frame(record);
  if (!frame.ok()) return frame.failure();
  if (frame.value().extendedEnd - frame.value().extendedBegin <= kLengthOfNone) return ApplicationValues();
  const base::Result<std::vector<ExtendedData>> data = readExtendedData(frame.value());
  if (!data.ok()) return data.failure();
  for (const ExtendedData& each : data.value()) {
    if (!isApplication(storage, each.application.absolute(frame.value().handle), application)) continue;
    base::Result<std::vector<ExtendedValue>> values = decodeExtended(each.bytes, storage.version());
    if (!values.ok()) return values.failure();
    return ApplicationValues(std::move(values.value()));
  }
  return ApplicationValues();
}

ApplicationValues readableValues(const DwgStorage& storage, const Record& record,
                                 std::wstring_view application) {
  base::Result<ApplicationValues> values = applicationValues(storage, record, application);
  return values.ok() ? std::move(values.value()) : std::nullopt;
}

base::Result<std::vector<ExtendedData>> withApplicationValues(const DwgStorage& storage, const Record& record,
                                                              Handle application,
                                                              const std::vector<ExtendedValue>& values) {
  const base::Result<ObjectFrame> frame = storage.frame(record);
  if (!frame.ok()) return frame.failure();
  base::Result<std::vector<ExtendedData>> data = readExtendedData(frame.value());
  if (!data.ok()) return data.failure();
  std::vector<ExtendedData> changed;
  base::Result<std::string> bytes = values.empty() ? std::string() : encodeExtended(values);
  if (!bytes.ok()) return bytes.failure();
  bool isThere = false;
  for (ExtendedData& each : data.value()) {
    if (each.application.absolute(frame.value().handle) == application && !isThere) {
      isThere = true;
      if (values.empty()) continue;
      each.bytes = bytes.value();
    }
    changed.push_back(std::move(each));
  }
  if (!isThere && !values.empty()) changed.push_back({{kPointing, 0, application}, bytes.value()});
  return changed;
}

base::Result<Handle> applicationHandle(Drawing& drawing, std::wstring_view name) {
  RecordId id = drawing.find(Table::kAppId, name);
  if (id == kNoRecord) {
    const base::Result<RecordId> made = drawing.addTableRecord(Table::kAppId, name);
    if (!made.ok()) return made.failure();
    id = made.value();
  }
  return drawing.handle(id).value_or(0);
}

void append(std::vector<ExtendedValue>& values, int code, Value value, std::uint16_t codePage) {
  ExtendedValue& last = values.emplace_back();
  last.code = code;
  last.value = std::move(value);
  last.codePage = codePage;
}

std::int64_t integerOf(const ExtendedValue& value, std::int64_t fallback) {
  const auto* integer = std::get_if<std::int64_t>(&value.value);
  return integer == nullptr ? fallback : *integer;
}

double realOf(const ExtendedValue& value, double fallback) {
  const auto* real = std::get_if<double>(&value.value);
  return real == nullptr ? fallback : *real;
}

Handle handleOf(const ExtendedValue& value) {
  const auto* reference = std::get_if<HandleReference>(&value.value);
  return reference == nullptr ? 0 : reference->value;
}

bool isText(const DwgStorage& storage, const ExtendedValue& value, std::wstring_view text) {
  return value.code == kText && base::equalFolded(storage.text(value.value), text);
}

bool isBrace(const ExtendedValue& value, bool opens) {
  return value.code == kBrace && integerOf(value, -1) == (opens ? 0 : 1);
}

}  // namespace cad::dwg
