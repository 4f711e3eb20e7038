#pragma once
// Values of records as a person reads them.

#include <string>

#include "embedded/drawing/drawing.h"

namespace cad {

// With at most 12 digits: what counts as equal reads alike.
std::wstring shortNumberText(double number);
bool nearlyEqual(double a, double b);  // to nine digits

std::wstring lineWeightText(std::int64_t hundredths);
std::wstring transparencyText(std::int64_t stored);  // as Property::kTransparency
std::wstring variableText(const Variable& value);
// "(1, 2)"; the third coordinate where it is not 0.
std::wstring pointText(const Point& point);

// A record that does not say it has the property's default. Empty: records of its type do not have it.
std::wstring propertyText(const Drawing& drawing, RecordId id, Property property);
// What it has where nothing is said.
std::wstring defaultText(const Drawing& drawing, RecordId id, Property property);

// Of a linetype: lengths of dashes, gaps and dots, with texts and shapes in brackets.
std::wstring patternText(const Drawing& drawing, RecordId linetype);

}  // namespace cad
