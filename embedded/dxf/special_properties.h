#pragma once
// Properties that are more than one group: an MTEXT's content and direction, what text styles and layers
// keep in extended data.

#include <string>
#include <string_view>

#include "embedded/dxf/dxf_storage.h"

namespace cad::dxf {

bool isSpecial(std::string_view type, const PropertyPlace& place);
StoredValue readSpecial(std::string_view bytes, const Dialect& dialect, std::string_view type,
                        Property property);
base::Result<EditId> writeSpecial(DxfStorage& storage, const Record& record, std::string_view type,
                                  Property property, const StoredValue& value);

// The content of an MTEXT in pieces: the last of them goes into group 1, those before it into groups 3.
std::string contentGroups(const Dialect& dialect, base::CodePage page, std::string_view content);

// Where a record's extended data of one application stands.
struct ApplicationData {
  bool found = false;
  Group name;             // its 1001 group
  std::uint32_t end = 0;  // behind its last group; without it, behind the record's last group
};
ApplicationData findApplicationData(std::string_view bytes, const Dialect& dialect,
                                    std::string_view application);

}  // namespace cad::dxf
