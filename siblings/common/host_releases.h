#pragma once
// Calls that the host's releases declare differently, one function for each: the sources that use them are
// the same for every release.

#include <tuple>
#include <type_traits>

#include "AcString.h"
#include "dbsymtb.h"

namespace kiv {

// Older releases do not say whether they took the linetype; then it shows in the layer.
template <class Layer>
Acad::ErrorStatus setLayerLinetype(Layer& layer, AcDbObjectId linetype) {
  if constexpr (std::is_void_v<decltype(layer.setLinetypeObjectId(linetype))>) {
    layer.setLinetypeObjectId(linetype);
    return layer.linetypeObjectId() == linetype ? Acad::eOk : Acad::eInvalidInput;
  } else {
    return layer.setLinetypeObjectId(linetype);
  }
}

namespace detail {

constexpr int kDefaultCharset = 1;

template <class Style, class Flag>
Acad::ErrorStatus setTypeface(Style& style, const ACHAR* typeface,
                              Acad::ErrorStatus (Style::*)(const ACHAR*, Flag, Flag, int, int)) {
  return style.setFont(typeface, false, false, kDefaultCharset, 0);
}

// Newer releases name the character set, the pitch and the family by enumerations of the same values.
template <class Style, class Flag, class Charset, class Pitch, class Family, class... Rest>
Acad::ErrorStatus setTypeface(Style& style, const ACHAR* typeface,
                              Acad::ErrorStatus (Style::*)(const ACHAR*, Flag, Flag, Charset, Pitch, Family,
                                                           Rest...)) {
  return style.setFont(typeface, false, false, static_cast<Charset>(kDefaultCharset), static_cast<Pitch>(0),
                       static_cast<Family>(0));
}

}  // namespace detail

// A TrueType typeface, neither bold nor italic, of the system's character set.
template <class Style>
Acad::ErrorStatus setTypeface(Style& style, const ACHAR* typeface) {
  return detail::setTypeface(style, typeface, &Style::setFont);
}

namespace detail {

// The numbers, by their types in this release, are of no interest.
template <class Style, class... Numbers>
AcString typefaceOf(const Style& style,
                    Acad::ErrorStatus (Style::*font)(AcString&, bool&, bool&, Numbers&...) const) {
  AcString typeface;
  bool bold = false, italic = false;
  std::tuple<Numbers...> numbers;
  const auto read = [&](Numbers&... each) { return (style.*font)(typeface, bold, italic, each...); };
  return std::apply(read, numbers) == Acad::eOk ? typeface : AcString();
}

}  // namespace detail

// The TrueType typeface; empty: the style has a font file only.
template <class Style>
AcString typefaceOf(const Style& style) {
  return detail::typefaceOf(style, &Style::font);
}

}  // namespace kiv
