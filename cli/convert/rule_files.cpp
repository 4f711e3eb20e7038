#include "cli/convert/rule_files.h"

#include "base/codepage.h"
#include "base/files.h"
#include "base/fold.h"

namespace kivcli {

namespace fs = std::filesystem;

RuleFiles::RuleFiles(const fs::path& specification) : specification_(specification) {
  if (const base::Result<std::string> bytes = base::readFile(specification)) {
    texts_ = base::upper(base::decode(bytes.value(), base::kJapanese).text + L"\n" +
                         base::fromUtf8(bytes.value()));
  }
  stamps_ = stamps();
}

std::map<fs::path, FileStamp> RuleFiles::stamps() const {
  std::map<fs::path, FileStamp> stamps = {{specification_, stampOf(specification_)}};
  const fs::path folder = specification_.parent_path();
  for (const std::wstring& name : base::filesWithExtension(base::pathText(folder), L".list")) {
    const fs::path list = folder / base::pathFromText(name);
    if (texts_.find(base::upper(name)) != std::wstring::npos) stamps[list] = stampOf(list);
  }
  return stamps;
}

}  // namespace kivcli
