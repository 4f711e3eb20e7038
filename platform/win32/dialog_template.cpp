#include "platform/win32/dialog_template.h"

#include <cstring>
#include <string>

#include "platform/screen_scale.h"
#include "platform/win32/dialog_font.h"
#include "platform/win32/system.h"

namespace kiv::win32 {
namespace {

using Bytes = std::vector<unsigned char>;

// The head of the extended form; after it come menu, class and title, each a text or 0xFFFF and a number,
// then the font: size, weight, italic and character set, and the face; then, at a multiple of four, the
// controls.
constexpr std::size_t kHeadBytes = 26;
constexpr std::size_t kStyleOffset = 12;
constexpr WORD kExtendedSignature = 0xFFFF;

WORD wordAt(const Bytes& bytes, std::size_t at) {
  WORD word = 0;
  if (at + sizeof word <= bytes.size()) std::memcpy(&word, &bytes[at], sizeof word);
  return word;
}

DWORD styleOf(const Bytes& bytes) {
  return wordAt(bytes, kStyleOffset) | wordAt(bytes, kStyleOffset + 2) << 16;
}

std::size_t skipText(const Bytes& bytes, std::size_t at) {
  while (at < bytes.size() && wordAt(bytes, at) != 0) at += 2;
  return at + 2;
}

std::size_t skipTextOrNumber(const Bytes& bytes, std::size_t at) {
  return wordAt(bytes, at) == 0xFFFF ? at + 4 : skipText(bytes, at);
}

std::size_t roundedUp(std::size_t at) { return (at + 3) & ~std::size_t{3}; }

Bytes resourceBytes(int resource) {
  const HINSTANCE module = moduleInstance();
  const HRSRC place = FindResourceW(module, MAKEINTRESOURCEW(resource), RT_DIALOG);
  const HGLOBAL loaded = place ? LoadResource(module, place) : nullptr;
  const auto* data = loaded ? static_cast<const unsigned char*>(LockResource(loaded)) : nullptr;
  return data ? Bytes(data, data + SizeofResource(module, place)) : Bytes{};
}

void appendWord(Bytes& bytes, WORD word) {
  bytes.push_back(static_cast<unsigned char>(word & 0xFF));
  bytes.push_back(static_cast<unsigned char>(word >> 8));
}

std::wstring textAt(const Bytes& bytes, std::size_t at) {
  std::wstring text;
  for (; wordAt(bytes, at) != 0; at += 2) text += static_cast<wchar_t>(wordAt(bytes, at));
  return text;
}

// In the second per-monitor mode the window manager sizes dialogs for their monitor itself; otherwise it
// sizes a template's font for the resolution that the system started with.
WORD sizeForMonitor(WORD points) {
  if (AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(),
                                   DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2))
    return points;
  const HDC screen = GetDC(nullptr);
  const int systemDpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return static_cast<WORD>(MulDiv(points, screenDpi(), systemDpi > 0 ? systemDpi : kReferenceDpi));
}

Bytes withFontForHere(const Bytes& bytes) {
  std::size_t font = skipTextOrNumber(bytes, kHeadBytes);  // the menu
  font = skipTextOrNumber(bytes, font);                    // the window class
  font = skipText(bytes, font);
  const std::size_t face = font + 6;
  const std::size_t controls = roundedUp(skipText(bytes, face));
  if (controls > bytes.size()) return bytes;

  Bytes result(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(font));
  appendWord(result, sizeForMonitor(wordAt(bytes, font)));
  result.insert(result.end(), bytes.begin() + static_cast<std::ptrdiff_t>(font + 2),
                bytes.begin() + static_cast<std::ptrdiff_t>(face));
  for (const wchar_t character : japaneseFace(textAt(bytes, face)))
    appendWord(result, static_cast<WORD>(character));
  appendWord(result, 0);
  result.resize(roundedUp(result.size()));
  result.insert(result.end(), bytes.begin() + static_cast<std::ptrdiff_t>(controls), bytes.end());
  return result;
}

}  // namespace

std::vector<std::uint32_t> dialogTemplate(int resource) {
  Bytes bytes = resourceBytes(resource);
  if (bytes.size() < kHeadBytes) return {};
  if (wordAt(bytes, 2) == kExtendedSignature && (styleOf(bytes) & DS_SETFONT)) bytes = withFontForHere(bytes);
  std::vector<std::uint32_t> words((bytes.size() + 3) / 4);
  std::memcpy(words.data(), bytes.data(), bytes.size());
  return words;
}

}  // namespace kiv::win32
