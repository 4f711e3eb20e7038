#pragma once
// A wide string value of the host interface.

#include <string>
#include <string_view>

#include "AdAChar.h"

class AcString {
 public:
  AcString() = default;
  AcString(const ACHAR* text)
      : text_(text ? text : L"") {}  // NOLINT: implicit as everywhere in this interface
  explicit AcString(ACHAR character) : text_(1, character) {}
  AcString(const ACHAR* text, unsigned length) : text_(text, length) {}

  AcString& operator=(const ACHAR* text) {
    text_ = text ? text : L"";
    return *this;
  }
  AcString& assign(const ACHAR* text) { return *this = text; }
  AcString& assign(const AcString& other) { return *this = other; }
  AcString& setEmpty() {
    text_.clear();
    return *this;
  }

  // The characters, terminated by a zero; valid until the string changes.
  operator const ACHAR*() const { return text_.c_str(); }  // NOLINT
  const ACHAR* kACharPtr() const { return text_.c_str(); }
  const ACHAR* kszPtr() const { return text_.c_str(); }
  const ACHAR* kwszPtr() const { return text_.c_str(); }
  const ACHAR* constPtr() const { return text_.c_str(); }

  bool isEmpty() const { return text_.empty(); }
  unsigned length() const { return static_cast<unsigned>(text_.size()); }
  unsigned tcharLength() const { return length(); }
  ACHAR getAt(int index) const { return text_[static_cast<std::size_t>(index)]; }

  // Negative, 0, positive as the strings order; the second ignores case. A null text counts as empty.
  int compare(const ACHAR* other) const;
  int compareNoCase(const ACHAR* other) const;
  bool equals(const ACHAR* other) const { return compare(other) == 0; }
  int find(const ACHAR* other) const;  // position of the first occurrence, -1 when absent
  int find(ACHAR character) const;
  int findRev(ACHAR character) const;

  AcString left(int count) const { return mid(0, count); }
  AcString right(int count) const;
  AcString mid(int start, int count = -1) const;  // -1: to the end; both are cut to the string

  AcString& append(const ACHAR* other) {
    if (other) text_ += other;
    return *this;
  }
  AcString& operator+=(const ACHAR* other) { return append(other); }
  AcString& operator+=(ACHAR character) {
    text_ += character;
    return *this;
  }
  AcString& makeUpper();
  AcString& makeLower();
  AcString& trim();  // blanks and tabs at both ends
  AcString& format(const ACHAR* pattern, ...);

  bool operator==(const AcString& other) const { return text_ == other.text_; }
  bool operator==(const ACHAR* other) const { return equals(other); }
  bool operator!=(const AcString& other) const { return text_ != other.text_; }
  bool operator!=(const ACHAR* other) const { return !equals(other); }
  bool operator<(const AcString& other) const { return text_ < other.text_; }

 private:
  std::wstring text_;
};

inline AcString operator+(AcString left, const ACHAR* right) {
  left += right;
  return left;
}
