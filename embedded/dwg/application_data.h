#pragma once
// The extended data of one application, found by its name.

#include <optional>
#include <string_view>
#include <vector>

#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/fields/extended_data.h"

namespace cad::dwg {

bool isApplication(const DwgStorage& storage, Handle application, std::wstring_view name);  // ignores case

using ApplicationValues = std::optional<std::vector<ExtendedValue>>;

// Nothing when the record has none of the application. Case is ignored. Fails when they are there and cannot
// be read: nobody may put others in their place then.
base::Result<ApplicationValues> applicationValues(const DwgStorage& storage, const Record& record,
                                                  std::wstring_view application);
// For those who only look: what cannot be read is nothing.
ApplicationValues readableValues(const DwgStorage& storage, const Record& record,
                                 std::wstring_view application);

// All the record's extended data with these values for the application, behind the others when it is new
// there; without any the application's are left out. `application`: its record.
base::Result<std::vector<ExtendedData>> withApplicationValues(const DwgStorage& storage, const Record& record,
                                                              Handle application,
                                                              const std::vector<ExtendedValue>& values);

// The record of an application, which is made when the drawing does not have it.
base::Result<Handle> applicationHandle(Drawing& drawing, std::wstring_view name);

// `codePage`: of a text, DwgStorage::codePageNumber().
void append(std::vector<ExtendedValue>& values, int code, Value value, std::uint16_t codePage = 0);

std::int64_t integerOf(const ExtendedValue& value, std::int64_t fallback = 0);
double realOf(const ExtendedValue& value, double fallback = 0);
Handle handleOf(const ExtendedValue& value);
bool isText(const DwgStorage& storage, const ExtendedValue& value, std::wstring_view text);
bool isBrace(const ExtendedValue& value, bool opens);

}  // namespace cad::dwg
