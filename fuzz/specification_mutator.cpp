// Changes specifications line by line, with the words that they are made of, so that most of what comes out
// is a specification still and its rules are read.

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.h"
#include "fuzz/choice.h"
#include "fuzz/input.h"
#include "spec/cvt_lines.h"
#include "spec/dimension_catalogue.h"
#include "spec/item_kinds.h"

namespace fuzz {
namespace {

std::string stored(std::wstring_view text) { return base::encode(text, base::kJapanese).bytes; }

constexpr const wchar_t* kValues[] = {L"",         L"0",           L"*",        L"A-*",
                                      L"~A-*,B",   L"壁",          L"表",       L"3",
                                      L"256",      L"300",         L"-1",       L"BYLAYER",
                                      L"byblock",  L"ByLayer",     L"黒/白",    L"赤",
                                      L"2x",       L"2.5",         L"2.5x",     L"x",
                                      L"90",       L"<>",          L"<> 3",     L"= 3",
                                      L"<3",       L">=2.5",       L"1,2",      L"0.25 mm",
                                      L"既定",     L"ON",          L"off",      L"50",
                                      L"_DOT",     L"黒丸 (_DOT)", L"右",       L"1e999",
                                      L"\\U+5BA4", L"]",           L"[",        L"{",
                                      L"}",        L"CONTINUOUS",  L"list.txt", L"..\\list.txt",
                                      L"１２",     L"　"};
constexpr const wchar_t* kEntries[] = {L"DIMBLK, 黒丸 (_DOT)",
                                       L"DIMASZ=3",
                                       L"DIMASZ, abc",
                                       L"DIMLWD, ByLayer",
                                       L"NOSUCH, 1",
                                       L"DIMPOST, <>mm,",
                                       L"新規, 3, CONTINUOUS",
                                       L"属性, BYLAYER, CENTER,OFF,ON,ON,OFF,0.25 mm,0",
                                       L"新規, 3",
                                       L",,",
                                       L",,,,,,,,",
                                       L"ACADISO.LIN, CENTER",
                                       L"ACADISO.LIN",
                                       L"社名, romans.shx, ----------",
                                       L"社名, ＭＳ ゴシック",
                                       L"社名",
                                       L"_DOT",
                                       L"_NOSUCH",
                                       L"arrows\\dot.dxf, x",
                                       L"",
                                       L"見本"};
constexpr const wchar_t* kStructure[] = {
    kiv::kRemarkHeader, L"{",     L"}",     L"{ }",      L"}}", L"[***]", L"---End---", L"---END---",
    L"--End--",         L"[EOF]", L"[eof]", L"[無い節]", L"[",  L"]",     L"[]",        L""};

class Specification {
 public:
  Specification(std::string_view bytes, Choice& choice) : choice_(choice) {
    while (!bytes.empty()) {
      const std::size_t length = std::min(bytes.find_first_of("\r\n"), bytes.size());
      const std::size_t end = bytes.substr(length).starts_with("\r\n") ? 2 : length < bytes.size() ? 1 : 0;
      lines_.push_back({std::string(bytes.substr(0, length)), std::string(bytes.substr(length, end))});
      bytes.remove_prefix(length + end);
    }
  }
  bool empty() const { return lines_.empty(); }
  void mutate();
  void insertSectionOf(const Specification& other);
  std::string bytes() const {
    std::string result;
    for (const Line& line : lines_) result += line.text + line.end;
    return result;
  }
  void shorten() { lines_.erase(lines_.begin() + anyIndex()); }

 private:
  struct Line {
    std::string text, end;
  };
  using Position = std::ptrdiff_t;

  Position anyIndex() { return static_cast<Position>(choice_.below(lines_.size())); }
  Line& anyLine() { return lines_[static_cast<std::size_t>(anyIndex())]; }
  std::string anyValue() { return stored(choice_.of(kValues)); }
  std::string anyKey();
  void insert(std::string text) {
    lines_.insert(lines_.begin() + static_cast<Position>(choice_.below(lines_.size() + 1)),
                  Line{std::move(text), lines_.empty() ? "\r\n" : lines_.front().end});
  }
  std::pair<Position, Position> anySection();  // from its header to behind its end
  Line* anyKeyLine();

  void addKeyLine();
  void addEntry();
  void addStructure();
  void changeValue();
  void changeKey();
  void changeSign();
  void changeBytes();
  void addBlanks();
  void changeCase();
  void changeLineEnds();
  void moveLine();
  void duplicateSection();

  Choice& choice_;
  std::vector<Line> lines_;
};

std::string Specification::anyKey() {
  return stored(choice_.oneIn(4) ? choice_.of(kiv::dimensionCatalogue()).name
                                 : choice_.of(kiv::itemKinds()).key);
}

void Specification::addKeyLine() {
  insert("[" + anyKey() + "]" + choice_.of({" = ", " <> ", "=", "<>", " == ", " "}) + anyValue());
}

void Specification::addEntry() { insert(stored(choice_.of(kEntries))); }

void Specification::addStructure() {
  insert(stored(choice_.oneIn(2) ? choice_.of(kStructure) : choice_.of(kiv::sections()).header));
}

Specification::Line* Specification::anyKeyLine() {
  for (int tries = 0; tries < 8; ++tries) {
    Line& line = anyLine();
    const std::size_t bracket = line.text.find(']');
    if (bracket != std::string::npos && line.text.find_first_of("=<", bracket) != std::string::npos)
      return &line;
  }
  return nullptr;
}

void Specification::changeValue() {
  Line* line = anyKeyLine();
  if (line == nullptr) return;
  const std::size_t sign = line->text.find_first_of("=>", line->text.find(']'));
  if (sign != std::string::npos) line->text = line->text.substr(0, sign + 1) + " " + anyValue();
}

void Specification::changeKey() {
  Line* line = anyKeyLine();
  if (line == nullptr) return;
  const std::size_t begin = line->text.find('['), end = line->text.find(']');
  if (begin < end) line->text.replace(begin + 1, end - begin - 1, anyKey());
}

void Specification::changeSign() {
  Line* line = anyKeyLine();
  if (line == nullptr) return;
  const std::size_t begin = line->text.find_first_of("=<", line->text.find(']'));
  const std::size_t end = std::min(line->text.find_first_not_of("=<>", begin), line->text.size());
  line->text.replace(begin, end - begin, choice_.of({"=", "<>", "==", "", "<", "=<>"}));
}

// What libFuzzer makes of the line, within it.
void Specification::changeBytes() {
  Line& line = anyLine();
  std::string text = line.text;
  const std::size_t size = text.size();
  text.resize(size + 16);
  text.resize(LLVMFuzzerMutate(reinterpret_cast<unsigned char*>(text.data()), size, text.size()));
  if (text.find_first_of("\r\n") == std::string::npos) line.text = text;
}

void Specification::addBlanks() {
  Line& line = anyLine();
  const std::string blanks = choice_.oneIn(8) ? std::string(260, ' ') : choice_.of({" ", "\t\t", "\x81\x40"});
  line.text.insert(choice_.oneIn(2) ? 0 : choice_.of({line.text.find(']') + 1, line.text.size()}), blanks);
}

// Of the ASCII letters; a two-byte character's second byte may be one.
void Specification::changeCase() {
  for (char& c : anyLine().text) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) c = static_cast<char>(c ^ 0x20);
  }
}

void Specification::changeLineEnds() {
  const char* const end = choice_.of({"\n", "\r\n", "\r"});
  const bool mixed = choice_.oneIn(2);
  for (Line& line : lines_) {
    if (!mixed || choice_.oneIn(8)) line.end = end;
  }
}

void Specification::moveLine() {
  const Position from = anyIndex();
  std::string text = lines_[static_cast<std::size_t>(from)].text;
  if (!choice_.oneIn(3)) lines_.erase(lines_.begin() + from);
  insert(std::move(text));
}

std::pair<Specification::Position, Specification::Position> Specification::anySection() {
  static const std::string kEnd = stored(kiv::kEndOfSection);
  const Position middle = anyIndex();
  const auto isEnd = [](const Line& line) { return line.text.find(kEnd) != std::string::npos; };
  const auto at = lines_.begin() + middle;
  const auto before = std::find_if(std::make_reverse_iterator(at), lines_.rend(), isEnd).base();
  const auto last = std::find_if(at, lines_.end(), isEnd);
  return {before - lines_.begin(), (last == lines_.end() ? last : last + 1) - lines_.begin()};
}

void Specification::duplicateSection() {
  const auto [begin, end] = anySection();
  const std::vector<Line> copy(lines_.begin() + begin, lines_.begin() + end);
  if (choice_.oneIn(2)) lines_.erase(lines_.begin() + begin, lines_.begin() + end);
  lines_.insert(lines_.begin() + static_cast<Position>(choice_.below(lines_.size() + 1)), copy.begin(),
                copy.end());
}

void Specification::insertSectionOf(const Specification& other) {
  Specification from = other;
  if (from.empty()) return;
  const auto [begin, end] = from.anySection();
  lines_.insert(lines_.begin() + static_cast<Position>(choice_.below(lines_.size() + 1)),
                from.lines_.begin() + begin, from.lines_.begin() + end);
}

void Specification::mutate() {
  using Change = void (Specification::*)();
  using S = Specification;
  constexpr Change kAdd[] = {&S::addKeyLine, &S::addKeyLine, &S::addEntry, &S::addStructure};
  // Those that matter more stand here more than once.
  constexpr Change kChanges[] = {&S::shorten,     &S::shorten,     &S::changeValue, &S::changeValue,
                                 &S::changeValue, &S::changeValue, &S::changeKey,   &S::changeKey,
                                 &S::changeSign,  &S::changeSign,  &S::changeBytes, &S::changeBytes,
                                 &S::addBlanks,   &S::addBlanks,   &S::changeCase,  &S::changeLineEnds,
                                 &S::moveLine,    &S::moveLine,    &S::moveLine,    &S::duplicateSection};
  const Change change = lines_.empty() || choice_.oneIn(5) ? choice_.of(kAdd) : choice_.of(kChanges);
  (this->*change)();
}

std::size_t write(Specification& specification, std::uint8_t* out, std::size_t most) {
  std::string bytes = specification.bytes();
  while (bytes.size() > most && !specification.empty()) {
    specification.shorten();
    bytes = specification.bytes();
  }
  return store(bytes, out);
}

}  // namespace
}  // namespace fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
  fuzz::Choice choice(seed);
  if (choice.oneIn(64)) return LLVMFuzzerMutate(data, size, most);
  fuzz::Specification specification(fuzz::view(data, size), choice);
  for (std::size_t left = choice.between(1, 4); left > 0; --left) specification.mutate();
  return fuzz::write(specification, data, most);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t most, unsigned seed) {
  fuzz::Choice choice(seed);
  fuzz::Specification specification(fuzz::view(first, firstSize), choice);
  specification.insertSectionOf(fuzz::Specification(fuzz::view(second, secondSize), choice));
  return fuzz::write(specification, out, most);
}
