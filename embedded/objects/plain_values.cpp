// The interface's plain values: colours, texts and the names of statuses.

#include <cmath>
#include <cstdarg>
#include <cwchar>
#include <vector>

#include "AcString.h"
#include "acadstrc.h"
#include "base/fold.h"
#include "dbcolor.h"

namespace {

int sign(int order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }

std::wstring_view viewOf(const ACHAR* text) { return text ? std::wstring_view(text) : std::wstring_view(); }

int positionOf(std::size_t found) { return found == std::wstring::npos ? -1 : static_cast<int>(found); }

}  // namespace

// --- Colours -----------------------------------------------------------------------------------------------

Adesk::UInt16 AcCmEntityColor::colorIndex() const {
  switch (method_) {
    case kByLayer:
      return kACIbyLayer;
    case kByBlock:
      return kACIbyBlock;
    case kByACI:
      return index_;
    default:
      return kACInone;
  }
}

Acad::ErrorStatus AcCmEntityColor::setColorIndex(Adesk::UInt16 index) {
  if (index > kACIbyLayer) return Acad::eInvalidInput;
  *this = AcCmEntityColor();
  method_ = index == kACIbyLayer ? kByLayer : index == kACIbyBlock ? kByBlock : kByACI;
  if (method_ == kByACI) index_ = static_cast<Adesk::UInt8>(index);
  return Acad::eOk;
}

Acad::ErrorStatus AcCmEntityColor::setColorMethod(ColorMethod method) {
  if (method != kByLayer && method != kByBlock && method != kByColor && method != kByACI && method != kNone)
    return Acad::eInvalidInput;
  method_ = method;
  return Acad::eOk;
}

Acad::ErrorStatus AcCmEntityColor::setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue) {
  *this = AcCmEntityColor();
  method_ = kByColor;
  red_ = red;
  green_ = green;
  blue_ = blue;
  return Acad::eOk;
}

void AcCmTransparency::setAlpha(Adesk::UInt8 alpha) {
  method_ = kByAlpha;
  alpha_ = alpha;
}

void AcCmTransparency::setAlphaPercent(double fraction) {
  if (!(fraction >= 0.0 && fraction <= 1.0)) {
    method_ = kErrorValue;
    return;
  }
  // The small addend keeps 0.2 * 255 and its like from falling below the whole number that they are.
  setAlpha(static_cast<Adesk::UInt8>(std::floor(fraction * 255.0 + 1e-9)));
}

// --- Texts -------------------------------------------------------------------------------------------------

int AcString::compare(const ACHAR* other) const { return sign(text_.compare(viewOf(other))); }

int AcString::compareNoCase(const ACHAR* other) const {
  return sign(base::upper(text_).compare(base::upper(viewOf(other))));
}

int AcString::find(const ACHAR* other) const { return positionOf(text_.find(viewOf(other))); }
int AcString::find(ACHAR character) const { return positionOf(text_.find(character)); }
int AcString::findRev(ACHAR character) const { return positionOf(text_.rfind(character)); }

AcString AcString::right(int count) const {
  const int size = static_cast<int>(text_.size());
  return count >= size ? *this : mid(count > 0 ? size - count : size);
}

AcString AcString::mid(int start, int count) const {
  AcString piece;
  const std::size_t from = start > 0 ? static_cast<std::size_t>(start) : 0;
  if (from >= text_.size() || count == 0) return piece;
  piece.text_ = text_.substr(from, count < 0 ? std::wstring::npos : static_cast<std::size_t>(count));
  return piece;
}

AcString& AcString::makeUpper() {
  text_ = base::upper(text_);
  return *this;
}

AcString& AcString::makeLower() {
  for (wchar_t& c : text_) {
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  }
  return *this;
}

AcString& AcString::trim() {
  text_ = std::wstring(base::trim(text_));
  return *this;
}

AcString& AcString::format(const ACHAR* pattern, ...) {
  constexpr std::size_t kLongest = 1 << 20;
  std::vector<wchar_t> buffer(256);
  for (;;) {
    va_list arguments;
    va_start(arguments, pattern);
    const int length = std::vswprintf(buffer.data(), buffer.size(), pattern, arguments);
    va_end(arguments);
    if (length >= 0) {
      text_.assign(buffer.data(), static_cast<std::size_t>(length));
      return *this;
    }
    if (buffer.size() >= kLongest) return setEmpty();
    buffer.resize(buffer.size() * 2);
  }
}

// --- Statuses ----------------------------------------------------------------------------------------------

const wchar_t* acadErrorStatusText(Acad::ErrorStatus status) {
  switch (status) {
#define STATUS_NAME(name) \
  case Acad::name:        \
    return L## #name;
    STATUS_NAME(eOk)
    STATUS_NAME(eNotApplicable)
    STATUS_NAME(eInvalidInput)
    STATUS_NAME(eNullObjectPointer)
    STATUS_NAME(eNullObjectId)
    STATUS_NAME(eUnknownHandle)
    STATUS_NAME(eKeyNotFound)
    STATUS_NAME(eInvalidIndex)
    STATUS_NAME(eAlreadyInDb)
    STATUS_NAME(eDeletedEntry)
    STATUS_NAME(eInvalidAdsName)
    STATUS_NAME(eInvalidKey)
    STATUS_NAME(eWrongObjectType)
    STATUS_NAME(eWrongDatabase)
    STATUS_NAME(eNoDatabase)
    STATUS_NAME(eUndefinedLineType)
    STATUS_NAME(eFilerError)
    STATUS_NAME(eFileNotFound)
    STATUS_NAME(eNotInDatabase)
    STATUS_NAME(eNotOpenForRead)
    STATUS_NAME(eNotOpenForWrite)
    STATUS_NAME(eNotThatKindOfClass)
    STATUS_NAME(eWasErased)
    STATUS_NAME(eWasOpenForRead)
    STATUS_NAME(eWasOpenForWrite)
    STATUS_NAME(eOnLockedLayer)
    STATUS_NAME(eAtMaxReaders)
    STATUS_NAME(eHadMultipleReaders)
    STATUS_NAME(eDuplicateRecordName)
    STATUS_NAME(eWasNotOpenForWrite)
    STATUS_NAME(eCannotBeErasedByCaller)
    STATUS_NAME(eLockViolation)
    STATUS_NAME(eInvalidLayer)
#undef STATUS_NAME
    default:
      return L"eOther";
  }
}
