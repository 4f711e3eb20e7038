#pragma once
// Saving a specification.

#include <filesystem>
#include <string>

#include "base/result.h"
#include "spec/specification.h"

namespace kiv {

inline constexpr const wchar_t* kLayerMissingMessage = L"[画層の色･線種] に画層名が指定されていません";

enum class CvtWriteOutcome {
  kWritten,
  kLayerMissing,  // a setting of the layer section names no layer; nothing written
  kUnwritable,    // characters that such files cannot hold; nothing written
  kNotCreated,    // nothing written
};

struct CvtWriteResult {
  CvtWriteOutcome outcome = CvtWriteOutcome::kWritten;
  int setting = -1;       // kLayerMissing: the first such setting of the layer section
  std::wstring message;   // for the message box (kLayerMissing) or the host's command line; empty: none
  base::Failure failure;  // kUnwritable, kNotCreated: why; names the characters or the system's reason
  bool ok() const { return outcome == CvtWriteOutcome::kWritten; }
};

// The whole file with "\n" as line end.
std::wstring cvtText(const Specification& specification);

// Replaces the file or leaves it as it is.
CvtWriteResult writeSpecification(const Specification& specification, const std::filesystem::path& file);

}  // namespace kiv
