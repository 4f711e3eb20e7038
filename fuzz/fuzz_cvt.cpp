// Any bytes are a specification or not; what the editor's reader makes of them survives saving and loading,
// and the conversion run's reader takes the same files.

#include <unistd.h>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/codepage.h"
#include "base/files.h"
#include "fuzz/require.h"
#include "fuzz/share.h"
#include "spec/cvt_reader.h"
#include "spec/cvt_writer.h"

namespace {

namespace fs = std::filesystem;
using fuzz::require;

const fs::path& folder() {
  static const fs::path path = [] {
    fs::path made = fs::path(fs::is_directory("/dev/shm") ? "/dev/shm" : "/tmp") /
                    ("kiv-cvt-" + std::to_string(getpid()));
    fs::create_directories(made);
    return made;
  }();
  return path;
}

// Text that the reader cuts or splits anew cannot be stable: lines beyond the limit, and values with the
// characters that a value must not hold.
bool isStable(const std::wstring& text) {
  std::size_t length = 0;
  for (const wchar_t c : text) {
    length = c == L'\n' ? 0 : length + 1;
    if (length > 200 || c == L'\xFFFD' || c == L'?') return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  require(base::writeFileAtomically(folder() / "a.cvt", bytes).ok());
  kiv::WorkLists lists;
  const bool usable = kiv::readWorkLists(folder() / "a.cvt", lists);
  const kiv::TreeLoad first = kiv::loadSpecification(folder(), L"a.cvt");
  static fuzz::Share share("specifications");
  share.add(usable);
  require(usable == first.isSpecification);
  require(usable || first.linesExamined == 0);

  if (!kiv::writeSpecification(first.specification, folder() / "b.cvt").ok()) return 0;
  const std::wstring text = kiv::cvtText(first.specification);
  if (!isStable(text)) return 0;
  const kiv::TreeLoad second = kiv::loadSpecification(folder(), L"b.cvt");
  require(kiv::writeSpecification(second.specification, folder() / "c.cvt").ok());
  const kiv::TreeLoad third = kiv::loadSpecification(folder(), L"c.cvt");
  require(kiv::cvtText(third.specification) == kiv::cvtText(second.specification));
  return 0;
}
