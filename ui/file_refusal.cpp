#include "ui/file_refusal.h"

#include <string_view>
#include <utility>

#include "base/file_errors.h"
#include "platform/text.h"

namespace kiv {
namespace {

// How a reason begins, and how it begins in the dialogs.
constexpr std::pair<std::wstring_view, const wchar_t*> kReasons[] = {
    {base::kPermissionDenied, L"書き込みが許可されていません"},
    {base::kReadOnlyFileSystem, L"ディスクが書き込み禁止です"},
    {base::kNoSpaceLeft, L"ディスクの空き容量が不足しています"},
    {base::kFolderDoesNotExist, L"フォルダがありません"},
    {base::kNotAFolder, L"パスの途中にフォルダでないものがあります"},
    {base::kIsAFolder, L"ファイルではなくフォルダです"},
    {base::kFileInTheWay, L"同じ名前のファイルがあります"},
    {base::kOpenElsewhere, L"他のプログラムが使用しています"},
    {base::kNameTooLong, L"名前が長すぎます"},
    {base::kUnusableName, L"ファイル名に使用できない文字があります"},
    {kNotInCodePage, L"保存できない文字があります: "},
};

std::wstring inTheDialogs(const std::wstring& reason) {
  for (const auto& [given, shown] : kReasons) {
    if (reason.starts_with(given)) return shown + reason.substr(given.size());
  }
  return reason;
}

}  // namespace

std::wstring refusalText(const std::wstring& what, const base::Failure& failure) {
  return what + L"\n\n" + failure.place + L"\n" + inTheDialogs(failure.reason);
}

}  // namespace kiv
