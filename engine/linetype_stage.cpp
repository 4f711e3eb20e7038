// Loading of linetypes.

#include "acdb.h"
#include "base/fold.h"
#include "engine/messages.h"
#include "engine/resource_stages.h"
#include "engine/table_lookup.h"

namespace kiv {
void loadLinetypes(RunState& run) {
  for (const std::wstring& entry : run.list(kLinetypeList)) {
    const std::size_t comma = entry.find(L',');
    if (comma == std::wstring::npos) continue;
    const std::wstring file(base::trim(std::wstring_view(entry).substr(0, comma)));
    const std::wstring linetype(base::trim(std::wstring_view(entry).substr(comma + 1)));
    if (file.empty() || linetype.empty()) continue;
    if (!findInTable(run.database.linetypeTableId(), linetype).isNull()) continue;
    const Acad::ErrorStatus status = acdbLoadLineTypeFile(linetype.c_str(), file.c_str(), &run.database);
    if (status == Acad::eOk) continue;
    run.tell(linetypeProblem(linetype), linetypeReason(file, status));
  }
}

}  // namespace kiv
