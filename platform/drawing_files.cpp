#include "platform/drawing_files.h"

#include <memory>

#include "acutads.h"
#include "adscodes.h"
#include "base/paths.h"
#include "platform/host_output.h"

namespace kiv {
namespace {

constexpr const wchar_t* kFileModule = L"KivFile.arx";

struct Release {
  void operator()(resbuf* list) const { acutRelRb(list); }
};
using OwnedList = std::unique_ptr<resbuf, Release>;

// Takes one value after another. What is not of the type asked for spoils the rest.
class ListReader {
 public:
  explicit ListReader(const resbuf* list) : next_(list) {}
  bool isWell() const { return well_; }
  int shortNumber() {
    const resbuf* const value = take(RTSHORT);
    return value != nullptr ? value->resval.rint : 0;
  }
  int longNumber() {
    const resbuf* const value = take(RTLONG);
    return value != nullptr ? value->resval.rlong : 0;
  }
  std::wstring text() {
    const resbuf* const value = take(RTSTR);
    return value != nullptr && value->resval.rstring != nullptr ? value->resval.rstring : L"";
  }

 private:
  const resbuf* take(short type) {
    well_ = well_ && next_ != nullptr && next_->restype == type;
    if (!well_) return nullptr;
    const resbuf* const value = next_;
    next_ = value->rbnext;
    return value;
  }

  const resbuf* next_;
  bool well_ = true;
};

std::optional<DrawingChoice> readChoice(const resbuf* list) {
  ListReader values(list);
  const int count = values.shortNumber();
  if (values.isWell() && count < 1) return DrawingChoice();
  const auto format = base::saveFormat(values.longNumber());
  if (!format) return std::nullopt;
  DrawingChoice choice{*format, values.longNumber(), {}, {}};
  choice.folder = base::ensureTrailingSeparator(values.text());
  for (int i = 0; i < count && values.isWell(); ++i) choice.names.push_back(values.text());
  return values.isWell() ? std::optional(choice) : std::nullopt;
}

}  // namespace

std::optional<DrawingChoice> chooseDrawings(const std::wstring& title) {
  const Sibling module(kFileModule);
  const auto open = module.function<OpenMulti>("dll_kiv_openmulti");
  if (open == nullptr) return std::nullopt;
  const OwnedList list(open(nullptr, title.c_str()));
  if (!list) return DrawingChoice();
  if (const auto choice = readChoice(list.get())) return choice;
  printError(std::wstring(kFileModule) + L"の選択結果を読み取れません.");
  return DrawingChoice();
}

DrawingVersions::DrawingVersions()
    : module_(kFileModule), ask_(module_.function<GetDrawingFileVersion>("dll_kiv_GetAcadFileVer")) {}

}  // namespace kiv
