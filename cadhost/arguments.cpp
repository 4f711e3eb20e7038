#include "cadhost/arguments.h"

namespace cadhost {
namespace {

constexpr int kLeastSize = 200, kMostSize = 20000;

base::Failure refusal(const std::wstring& word, const wchar_t* why) { return {word, why}; }

// Digits only, within the limits of a window; 0 otherwise.
int readSize(const std::wstring& text) {
  if (text.empty() || text.size() > 5) return 0;
  int value = 0;
  for (const wchar_t c : text) {
    if (c < L'0' || c > L'9') return 0;
    value = value * 10 + (c - L'0');
  }
  return value >= kLeastSize && value <= kMostSize ? value : 0;
}

bool takeSize(const std::wstring& value, Arguments& out) {
  const std::size_t cross = value.find_first_of(L"xX");
  if (cross == std::wstring::npos) return false;
  out.width = readSize(value.substr(0, cross));
  out.height = readSize(value.substr(cross + 1));
  return out.width > 0 && out.height > 0;
}

bool isOption(const std::wstring& word) { return word.size() > 2 && word.starts_with(L"--"); }

}  // namespace

base::Result<Arguments> parseArguments(const std::vector<std::wstring>& words) {
  Arguments out;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::wstring& word = words[i];
    if (!isOption(word)) {
      out.drawings.push_back(word);
      continue;
    }
    if (word != L"--module" && word != L"--script" && word != L"--size")
      return refusal(word, L"不明なオプションです。");
    if (i + 1 == words.size() || isOption(words[i + 1])) return refusal(word, L"値がありません。");
    const std::wstring& value = words[++i];
    if (word == L"--module") out.modules.push_back(value);
    if (word == L"--script") out.script = value;
    if (word == L"--size" && !takeSize(value, out))
      return refusal(word + L" " + value, L"「幅x高さ」（200～20000 ピクセル）で指定してください。");
  }
  return out;
}

}  // namespace cadhost
