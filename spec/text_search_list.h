#pragma once
// Text search lists: files of text patterns, one a line, that a condition names.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace kiv {

// A conversion keeps at most so many texts of one list; the rest is not used.
inline constexpr size_t kTextSearchListCapacity = 200;

// For a message box; the reasons of failed reading are exactly these texts, the second one of the
// kind kForeignContent.
inline constexpr const wchar_t* kTextListCannotOpen = L"ファイルを開くことができませんでした";
inline constexpr const wchar_t* kTextListNotUsable = L"選択されたファイルは使用できません";

// Every line after the header, as it stands, blank ones included.
base::Result<std::vector<std::wstring>> readTextSearchList(const std::filesystem::path& file);

struct LoadedTextList {
  std::vector<std::wstring> texts;  // at most kTextSearchListCapacity
  bool isCut = false;               // the file has more
  bool isUtf8 = false;              // and not in the code page of such files
};
// The list `name` of `folder`, the name's case ignored.
base::Result<LoadedTextList> loadTextSearchList(const std::filesystem::path& folder, std::wstring_view name);

// Rows that show nothing are left out. Nothing is written when the file cannot be created, or when a
// row holds a character that such files cannot hold; the failure names the system's reason or the characters.
base::Status writeTextSearchList(const std::filesystem::path& file, const std::vector<std::wstring>& rows);

// Empty, or nothing but white space, control characters and ideographic spaces.
bool isBlankRow(std::wstring_view row);

}  // namespace kiv
