#include "embedded/drawing/wildcard.h"

#include <algorithm>

#include "base/fold.h"

namespace cad {
namespace {

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// Kana and ideographs are letters to the host as they are to its users; everything from the first
// accented letter on counts, save the symbol blocks.
bool isLetter(wchar_t c) {
  if ((c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z')) return true;
  if (c < 0xC0 || c == 0xD7 || c == 0xF7) return false;
  if (c >= 0x2000 && c <= 0x2FFF) return false;  // punctuation, arrows, box drawing
  if (c >= 0x3000 && c <= 0x3004) return false;  // ideographic space and punctuation
  if (c >= 0x3008 && c <= 0x3020) return false;  // brackets
  if (c >= 0xFF00 && c <= 0xFF20) return false;  // full-width digits and punctuation
  if (c >= 0xFF3B && c <= 0xFF40) return false;
  return !(c >= 0xFF5B && c <= 0xFF65);
}

}  // namespace

Wildcard::Wildcard(std::wstring_view pattern, bool ignoreCase) : ignoreCase_(ignoreCase) {
  alternatives_.emplace_back();
  bool atStart = true;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    Alternative& current = alternatives_.back();
    const wchar_t c = pattern[i];
    if (c == L',') {
      alternatives_.emplace_back();
      atStart = true;
      continue;
    }
    if (c == L'~' && atStart) {
      current.negated = true;
      atStart = false;
      continue;
    }
    atStart = false;
    Piece piece;
    switch (c) {
      case L'#':
        piece.kind = Kind::kDigit;
        break;
      case L'@':
        piece.kind = Kind::kLetter;
        break;
      case L'.':
        piece.kind = Kind::kOther;
        break;
      case L'?':
        piece.kind = Kind::kAny;
        break;
      case L'*':
        piece.kind = Kind::kMany;
        break;
      case L'[':
        i = readSet(pattern, i, piece);
        break;
      case L'`':
        if (i + 1 < pattern.size()) ++i;
        piece.character = fold(pattern[i]);
        break;
      default:
        piece.character = fold(c);
        break;
    }
    const bool repeatedStar =
        piece.kind == Kind::kMany && !current.pieces.empty() && current.pieces.back().kind == Kind::kMany;
    if (!repeatedStar) current.pieces.push_back(std::move(piece));
  }
}

// Returns the position of the closing bracket; without one the opening bracket stands for itself.
std::size_t Wildcard::readSet(std::wstring_view pattern, std::size_t at, Piece& piece) const {
  std::size_t i = at + 1;
  piece.kind = Kind::kSet;
  if (i < pattern.size() && pattern[i] == L'~') {
    piece.kind = Kind::kNotSet;
    ++i;
  }
  const auto character = [&](std::size_t& position) {
    if (pattern[position] == L'`' && position + 1 < pattern.size()) ++position;
    return pattern[position];
  };
  const std::size_t begin = i;
  for (; i < pattern.size() && (pattern[i] != L']' || i == begin); ++i) {
    const wchar_t first = character(i);
    wchar_t last = first;
    if (i + 2 < pattern.size() && pattern[i + 1] == L'-' && pattern[i + 2] != L']') {
      i += 2;
      last = character(i);
    }
    piece.ranges.push_back({std::min(first, last), std::max(first, last)});
  }
  if (i < pattern.size()) return i;
  piece = Piece{Kind::kLiteral, L'[', {}};
  return at;
}

wchar_t Wildcard::fold(wchar_t c) const { return ignoreCase_ ? base::upper(c) : c; }

bool Wildcard::accepts(const Piece& piece, wchar_t c) const {
  const auto inRanges = [&] {
    return std::any_of(piece.ranges.begin(), piece.ranges.end(), [&](const Range& range) {
      if (c >= range.first && c <= range.last) return true;
      if (!ignoreCase_) return false;
      // A range such as [A-z] is meant by its own letters: fold the text, then the ends.
      const wchar_t up = base::upper(c);
      return up >= base::upper(range.first) && up <= base::upper(range.last);
    });
  };
  switch (piece.kind) {
    case Kind::kLiteral:
      return piece.character == fold(c);
    case Kind::kDigit:
      return isDigit(c);
    case Kind::kLetter:
      return isLetter(c);
    case Kind::kOther:
      return !isDigit(c) && !isLetter(c);
    case Kind::kSet:
      return inRanges();
    case Kind::kNotSet:
      return !inRanges();
    default:
      return true;
  }
}

// Only the newest star is ever reconsidered: what an earlier one took cannot help a later one.
bool Wildcard::matches(const Alternative& alternative, std::wstring_view text) const {
  const std::vector<Piece>& pieces = alternative.pieces;
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t piece = 0, at = 0, star = kNone, starAt = 0;
  while (at < text.size()) {
    if (piece < pieces.size() && pieces[piece].kind == Kind::kMany) {
      star = piece++;
      starAt = at;
    } else if (piece < pieces.size() && accepts(pieces[piece], text[at])) {
      ++piece;
      ++at;
    } else if (star != kNone) {
      piece = star + 1;
      at = ++starAt;
    } else {
      return false;
    }
  }
  while (piece < pieces.size() && pieces[piece].kind == Kind::kMany) ++piece;
  return piece == pieces.size();
}

bool Wildcard::matches(std::wstring_view text) const {
  return std::any_of(alternatives_.begin(), alternatives_.end(), [&](const Alternative& alternative) {
    return matches(alternative, text) != alternative.negated;
  });
}

}  // namespace cad
