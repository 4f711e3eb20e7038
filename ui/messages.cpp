#include "ui/messages.h"

#include "platform/questions.h"

namespace kiv {
namespace {

std::wstring inTheDialogs(const base::Failure& failure) {
  using base::FailureKind;
  switch (failure.kind) {
    case FailureKind::kOther:
      return L"システムからの応答: " + failure.reason;
    case FailureKind::kNoSuchFile:
      return L"ファイルがありません";
    case FailureKind::kNoSuchFolder:
      return L"フォルダがありません";
    case FailureKind::kIsAFolder:
      return L"ファイルではなくフォルダです";
    case FailureKind::kNotAFolder:
      return L"パスの途中にフォルダでないものがあります";
    case FailureKind::kNotAnOrdinaryFile:
      return L"通常のファイルではありません";
    case FailureKind::kFileInTheWay:
      return L"同じ名前のファイルがあります";
    case FailureKind::kPermissionDenied:
      return L"書き込みが許可されていません";
    case FailureKind::kReadOnlyFileSystem:
      return L"ディスクが書き込み禁止です";
    case FailureKind::kNoSpaceLeft:
      return L"ディスクの空き容量が不足しています";
    case FailureKind::kFileTooLarge:
      return L"ファイルが大きすぎます";
    case FailureKind::kInputOutput:
      return L"ディスクの読み書きでエラーが発生しました";
    case FailureKind::kTooManyOpenFiles:
      return L"開いているファイルが多すぎます";
    case FailureKind::kNameTooLong:
      return L"名前が長すぎます";
    case FailureKind::kUnusableName:
      return L"ファイル名に使用できない文字があります";
    case FailureKind::kOpenElsewhere:
      return L"他のプログラムが使用しています";
    case FailureKind::kChangedWhileRead:
      return L"読み込み中に他のプログラムが変更しました";
    case FailureKind::kNotInCodePage:
      return L"保存できない文字があります: " + failure.detail;
    case FailureKind::kForeignContent:
      return L"ファイルの内容が違います";
  }
  return failure.reason;
}

}  // namespace

void tell(DialogWindow& window, const std::wstring& text, const wchar_t* caption) {
  static_cast<void>(showMessage(window.native(), {text, caption, Buttons::kOk, Icon::kWarning}));
}

bool isAgreed(DialogWindow& window, const std::wstring& question, const wchar_t* caption) {
  const MessageQuestion asked{question, caption, Buttons::kYesNo, Icon::kQuestion, true};
  return showMessage(window.native(), asked) == Answer::kYes;
}

std::wstring refusalText(const std::wstring& what, const base::Failure& failure) {
  return what + L"\n\n" + failure.place + L"\n" + inTheDialogs(failure);
}

}  // namespace kiv
