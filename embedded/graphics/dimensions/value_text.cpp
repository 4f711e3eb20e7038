#include "embedded/graphics/dimensions/value_text.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "embedded/graphics/dimensions/angle_text.h"
#include "embedded/graphics/dimensions/figure.h"
#include "embedded/graphics/dimensions/length_text.h"

namespace cad {
namespace {

using Kind = DimensionGeometry::Kind;

constexpr wchar_t kDiameter = 0x2205;
constexpr std::wstring_view kPlusMinus = L"\\U+00B1";
constexpr std::wstring_view kValue = L"<>", kAlternate = L"[]";

// What stands before and behind a value, and below the dimension line; \P parts them like \X.
struct Affixes {
  std::wstring_view before, behind, below;  // `below` with its \X
  bool replacesSign = false;                // the R or the diameter sign of a radius
};

// `text` with `mark` in place of the value; without it the text stands behind. A period is none.
Affixes affixesOf(std::wstring_view text, std::wstring_view mark) {
  Affixes affixes;
  if (text == L".") return affixes;
  const std::size_t at = text.find(mark);
  affixes.replacesSign = at != std::wstring_view::npos;
  if (affixes.replacesSign) {
    affixes.before = text.substr(0, at);
    text.remove_prefix(at + mark.size());
  }
  const std::size_t line = std::min(text.find(L"\\X"), text.find(L"\\P"));
  affixes.behind = text.substr(0, line);
  if (line != std::wstring_view::npos) affixes.below = text.substr(line);
  return affixes;
}

// A stack's parts are divided by these characters where no backslash stands before them.
std::wstring escapedForStack(std::wstring_view text) {
  std::wstring escaped;
  for (const wchar_t c : text) {
    if (c == L'/' || c == L'#' || c == L'^') escaped += L'\\';
    escaped += c;
  }
  return escaped;
}

void replaceAll(std::wstring& text, std::wstring_view mark, const std::function<std::wstring()>& value) {
  for (std::size_t at = text.find(mark); at != std::wstring::npos; at = text.find(mark, at)) {
    const std::wstring put = value();
    text.replace(at, mark.size(), put);
    at += put.size();
  }
}

double roundedTo(double value, double step) {
  return step > 0 ? std::floor(value / step + 0.5 + 1e-9) * step : value;
}

// The units of alternate dimensions, and of all dimensions before R2000: two numbers say how fractions look.
struct UnitWithFraction {
  LengthUnit unit;
  bool stacked;
};
UnitWithFraction unitOf(std::int64_t number) {
  switch (number) {
    case 6:
      return {LengthUnit::kArchitectural, false};
    case 7:
      return {LengthUnit::kFractional, false};
    case 8:
      return {LengthUnit::kDesktop, true};
    default:
      return {number >= 1 && number <= 5 ? static_cast<LengthUnit>(number) : LengthUnit::kDecimal, true};
  }
}

class Writer {
 public:
  Writer(Kind kind, double measured, const DimVariables& variables, const ValuePlace& place)
      : kind_(kind), measured_(measured), vars_(variables), place_(place) {}

  // With [] in a person's text the alternate units stand there and nowhere else.
  std::wstring text(std::wstring_view contents) const {
    std::wstring text;
    if (contents.empty() || contents == kValue) {
      text = wholeValue();
    } else {
      text = contents;
      const bool placed = text.find(kAlternate) != std::wstring::npos;
      if (placed)
        replaceAll(text, kAlternate, [&] { return isAngular(kind_) ? std::wstring() : alternate(); });
      replaceAll(text, kValue, [&] { return placed ? primary().append(affixes().below) : wholeValue(); });
    }
    const std::int64_t level = vars_.integer(dimRow("DIMTOLJ"));
    return level == 0 ? text : L"\\A" + std::to_wstring(level) + L';' + text;
  }

 private:
  bool on(const DimVariableInfo& variable) const { return vars_.integer(variable) != 0; }
  int places(const DimVariableInfo& variable) const {
    return static_cast<int>(std::clamp<std::int64_t>(vars_.integer(variable), 0, 8));
  }

  Affixes affixes() const {
    const Affixes affixes = affixesOf(vars_.text(dimRow("DIMPOST")), kValue);
    // A suffix for lengths is none for angles.
    return isAngular(kind_) && !affixes.replacesSign ? Affixes{} : affixes;
  }

  // The value, and the alternate one with the text below the line where there is such.
  std::wstring wholeValue() const {
    const std::wstring_view below = affixes().below;
    std::wstring text = primary();
    const bool twice = on(dimRow("DIMALT")) && !isAngular(kind_);
    if (below.size() > 2 || (twice && !below.empty())) text.append(below);
    if (!twice) return text;
    if (below.empty()) text += L' ';
    return text += alternate();
  }

  std::wstring primary() const {
    const Affixes affixes = this->affixes();
    std::wstring text(affixes.before);
    if (!affixes.replacesSign && kind_ == Kind::kRadial) text += L'R';
    if (!affixes.replacesSign && kind_ == Kind::kDiametric) text += kDiameter;
    if (isAngular(kind_))
      return text += toleranced(Amounts{inUnit(measured_, angleForm(false).unit), 1}, affixes.behind,
                                angleWriter(false), angleWriter(true));
    const LengthForm form = lengthForm();
    return text += toleranced(Amounts{roundedTo(length(), vars_.real(dimRow("DIMRND"))), 1}, affixes.behind,
                              lengthWriter(form),
                              lengthWriter(toleranceForm(form, places(dimRow("DIMTDEC")),
                                                         vars_.integer(dimRow("DIMTZIN")))));
  }

  std::wstring alternate() const {
    const Affixes affixes = affixesOf(vars_.text(dimRow("DIMAPOST")), kAlternate);
    const double factor = vars_.real(dimRow("DIMALTF"));
    LengthForm form = lengthForm();
    const UnitWithFraction unit = unitOf(vars_.integer(dimRow("DIMALTU")));
    form.unit = unit.unit;
    setFraction(form, unit.stacked);
    setZeros(form, vars_.integer(dimRow("DIMALTZ")));
    form.decimals.places = places(dimRow("DIMALTD"));
    const double value = roundedTo(length() * factor, vars_.real(dimRow("DIMALTRND")));
    std::wstring text = L"[" + std::wstring(affixes.before);
    text += toleranced(
        Amounts{value, factor}, affixes.behind, lengthWriter(form),
        lengthWriter(toleranceForm(form, places(dimRow("DIMALTTD")), vars_.integer(dimRow("DIMALTTZ")))));
    return text.append(affixes.below) += L']';
  }

  // --- Tolerances ---

  struct Amounts {
    double value = 0;
    double factor = 1;  // of the tolerances
  };
  using WriteNumber = std::function<std::wstring(double)>;

  // The value with its tolerances, or its limits; the suffix stands behind each number.
  std::wstring toleranced(const Amounts& amounts, std::wstring_view suffix, const WriteNumber& write,
                          const WriteNumber& writeTolerance) const {
    const auto with = [&](std::wstring number) { return number.append(suffix); };
    const double upper = vars_.real(dimRow("DIMTP")) * amounts.factor;
    const double lower = vars_.real(dimRow("DIMTM")) * amounts.factor;
    const double height = vars_.real(dimRow("DIMTFAC"));
    if (on(dimRow("DIMLIM"))) {
      return scaledText(height,
                        stack(with(write(amounts.value + upper)), with(write(amounts.value - lower))));
    }
    std::wstring text = with(write(amounts.value));
    if (!on(dimRow("DIMTOL"))) return text;
    if (upper == lower)
      return text += scaledText(height, std::wstring(kPlusMinus) + with(writeTolerance(std::abs(upper))));
    const auto deviation = [&](double by) {
      const wchar_t sign = by > 0 ? L'+' : by < 0 ? L'-' : L' ';
      return sign + with(writeTolerance(std::abs(by)));
    };
    return text += scaledText(height, stack(deviation(upper), deviation(-lower)));
  }

  static std::wstring stack(std::wstring_view upper, std::wstring_view lower) {
    return L"\\S" + escapedForStack(upper) + L'^' + escapedForStack(lower) + L';';
  }

  // --- Numbers ---

  double length() const {
    const double factor = vars_.real(dimRow("DIMLFAC"));
    if (factor > 0) return measured_ * factor;
    return place_.inPaperSpace && factor < 0 ? measured_ * -factor : measured_;
  }

  bool isOld() const { return place_.version < base::Version::kR2000; }

  LengthForm lengthForm() const {
    LengthForm form;
    const std::int64_t fraction = vars_.integer(dimRow("DIMFRAC"));
    if (isOld()) {
      const UnitWithFraction unit = unitOf(vars_.integer(dimRow("DIMUNIT")));
      form.unit = unit.unit;
      setFraction(form, unit.stacked);
    } else {
      const std::int64_t unit = vars_.integer(dimRow("DIMLUNIT"));
      form.unit = unit >= 1 && unit <= 6 ? static_cast<LengthUnit>(unit) : LengthUnit::kDecimal;
      setFraction(form, fraction != 2);
    }
    form.fractionHeight = vars_.real(dimRow("DIMTFAC"));
    form.decimals.places = places(dimRow("DIMDEC"));
    form.decimals.separator = separator();
    setZeros(form, vars_.integer(dimRow("DIMZIN")));
    return form;
  }

  void setFraction(LengthForm& form, bool stacked) const {
    const bool diagonal = vars_.integer(dimRow("DIMFRAC")) == 1;
    form.fraction = diagonal ? FractionForm::kDiagonal : FractionForm::kHorizontal;
    if (!stacked) form.fraction = FractionForm::kNotStacked;
  }

  // 0 to 3 are of feet and inches; 4 and 8 are added to it.
  static void setZeros(LengthForm& form, std::int64_t zeros) {
    const std::int64_t feet = zeros & 3;
    form.zeroFeet = feet == 1 || feet == 2;
    form.zeroInches = feet == 1 || feet == 3;
    form.decimals.dropLeading = (zeros & 4) != 0;
    form.decimals.dropTrailing = (zeros & 8) != 0;
  }

  // A stack holds no other one: fractions of tolerances are never stacked.
  static LengthForm toleranceForm(LengthForm form, int places, std::int64_t zeros) {
    form.decimals.places = places;
    form.fraction = FractionForm::kNotStacked;
    setZeros(form, zeros);
    return form;
  }

  static WriteNumber lengthWriter(LengthForm form) {
    return [form](double value) { return lengthText(value, form); };
  }

  // Tolerances of angles are given in the unit that is shown.
  WriteNumber angleWriter(bool ofTolerance) const {
    return [form = angleForm(ofTolerance)](double value) { return angleText(value, form); };
  }

  AngleForm angleForm(bool ofTolerance) const {
    AngleForm form;
    form.unit = static_cast<AngleUnit>(std::clamp<std::int64_t>(vars_.integer(dimRow("DIMAUNIT")), 0, 3));
    const bool likeLengths = isOld() || vars_.integer(dimRow("DIMADEC")) < 0;
    form.decimals.places = places(likeLengths ? dimRow("DIMDEC") : dimRow("DIMADEC"));
    if (ofTolerance) form.decimals.places = places(dimRow("DIMTDEC"));
    form.decimals.separator = separator();
    const std::int64_t zeros = vars_.integer(dimRow("DIMAZIN"));
    form.decimals.dropLeading = (zeros & 1) != 0;
    form.decimals.dropTrailing = (zeros & 2) != 0;
    return form;
  }

  // A file may have any number there: what separates no digits counts as the default.
  wchar_t separator() const {
    const std::int64_t code = vars_.integer(dimRow("DIMDSEP"));
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool isHalf = code >= 0xD800 && code < 0xE000;  // of a surrogate pair
    const bool isDigit = code >= L'0' && code <= L'9';
    return isControl || isHalf || isDigit || code > 0xFFFF ? L'.' : static_cast<wchar_t>(code);
  }

  Kind kind_;
  double measured_;
  const DimVariables& vars_;
  ValuePlace place_;
};

}  // namespace

std::wstring dimensionText(Kind kind, double measured, std::wstring_view contents,
                           const DimVariables& variables, const ValuePlace& place) {
  if (contents == L" ") return {};
  return Writer(kind, measured, variables, place).text(contents);
}

}  // namespace cad
