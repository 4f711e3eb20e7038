#pragma once
// The configuration folder and the small file that names the specification to start with.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace kiv {

// The host's file search: the full path of a file, or empty.
using HostFileLookup = std::function<std::optional<std::wstring>(const std::wstring& name)>;

inline constexpr const wchar_t* kModuleFileName = L"KIVGUI.ARX";
inline constexpr const wchar_t* kSampleFolderName = L"samples";  // beside the module
inline constexpr const wchar_t* kInitialFileName = L"KivCvtInit.dat";
inline constexpr const wchar_t* kUnnamedSpecification = L"Unnamed";
inline constexpr const wchar_t* kWorkFileName = L"ﾌｧｲﾙ変換_作業用(削除可).$cvt$";
inline constexpr const wchar_t* kWorkFileRemark = L"この作業ﾌｧｲﾙは自動的に削除されます";

// The folder CFG beside the module, with a trailing separator; upper-cased where file names do not heed
// case. Empty when the host does not find the module, or not below a folder.
std::wstring configurationFolder(const HostFileLookup& lookup);

struct FolderMade {
  base::Status status;
  std::wstring notice = {};  // for the command line: what the folder lacks; mostly empty
};
// Makes the folder when it is missing, with the samples that stand beside the module; one that exists is left
// alone. An empty `folder`: nothing to do.
FolderMade makeConfigurationFolder(const std::wstring& folder);

// The first line of the initial file, trimmed at its end. Empty: the host does not find the file.
std::optional<std::wstring> defaultSpecificationName(const std::wstring& folder,
                                                     const HostFileLookup& lookup);

// `path`: the specification's full path, or empty when there is no default. A name that the file cannot
// hold counts as no default. The interactive command ignores a failure.
base::Status writeDefaultSpecificationName(const std::wstring& folder, std::wstring_view path);

}  // namespace kiv
