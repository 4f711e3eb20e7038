#include "embedded/graphics/dimensions/value_text.h"

#include <gtest/gtest.h>

#include <numbers>

#include "base/codepage.h"
#include "tests/embedded/graphics/dimensions/settings.h"

namespace cad {
namespace {

using Kind = DimensionGeometry::Kind;
constexpr Kind kLength = Kind::kRotated, kAngle = Kind::kAngular;

struct Row {
  double measured;
  const char* settings;  // over the defaults and DIMTOLJ=0: no prefix stands in the way
  const wchar_t* text;
  Kind kind = kLength;
  const wchar_t* contents = L"";
  ValuePlace place = {};
};

template <std::size_t Count>
void expectTexts(const Row (&rows)[Count]) {
  for (const Row& row : rows) {
    const double measured = row.kind == kAngle ? row.measured * std::numbers::pi / 180 : row.measured;
    DimVariables variables;
    take(variables, "DIMTOLJ=0");
    take(variables, row.settings);
    const std::wstring text = dimensionText(row.kind, measured, row.contents, variables, row.place);
    EXPECT_EQ(base::toUtf8(text), base::toUtf8(row.text)) << row.settings;
  }
}

TEST(ValueText, NumbersByUnitPlacesZerosAndRounding) {
  expectTexts({
      {46.7154, "DIMDEC=2 DIMDSEP=44 DIMZIN=8", L"46,72"},
      {11.4, "DIMDEC=2 DIMDSEP=44 DIMZIN=8", L"11,4"},
      {11.4, "DIMDEC=2 DIMDSEP=0 DIMZIN=8", L"11.4"},
      {11.4, "DIMDEC=2 DIMDSEP=55296 DIMZIN=8", L"11.4"},
      {7.07106781, "", L"7.0711"},
      {100, "DIMDEC=2 DIMZIN=3", L"100.00"},
      {0.5, "DIMZIN=4", L".5000"},
      {0.5, "DIMZIN=12", L".5"},
      {0, "DIMZIN=12", L"0"},
      {2.5, "DIMDEC=0", L"3"},
      {0.3 - 0.1 - 0.15, "DIMDEC=1", L"0.1"},  // a half that was computed
      {9.99996, "", L"10.0000"},
      {1e18, "DIMDEC=1", L"1000000000000000000.0"},
      {10.13, "DIMRND=0.25 DIMDEC=2", L"10.25"},
      {2, "DIMLFAC=25.4 DIMDEC=1", L"50.8"},
      {2, "DIMLFAC=-25.4 DIMDEC=1", L"2.0"},
      {2, "DIMLFAC=-25.4 DIMDEC=1", L"50.8", kLength, L"", {.inPaperSpace = true}},
      {46.7154, "DIMLUNIT=1 DIMDEC=2", L"4.67E+01"},
      {1234567.5, "DIMLUNIT=6 DIMDEC=1", L"1,234,567.5"},
      {999.96, "DIMLUNIT=6 DIMDEC=1", L"1,000.0"},
  });
}

TEST(ValueText, FeetInchesAndFractions) {
  expectTexts({
      {48.3636, "DIMLUNIT=4 DIMDEC=2 DIMFRAC=1", L"4'-0{\\H1x;\\S1#4;}\""},
      {12.75, "DIMLUNIT=4 DIMDEC=2 DIMFRAC=2", L"1'-0 3/4\""},
      {0.25, "DIMLUNIT=4 DIMDEC=2 DIMFRAC=2", L"1/4\""},
      {0.25, "DIMLUNIT=4 DIMDEC=2 DIMFRAC=2 DIMZIN=1", L"0'-0 1/4\""},
      {12, "DIMLUNIT=4", L"1'"},
      {12, "DIMLUNIT=4 DIMZIN=1", L"1'-0\""},
      {12, "DIMLUNIT=4 DIMZIN=2", L"1'"},
      {6, "DIMLUNIT=4 DIMZIN=2", L"0'-6\""},
      {6, "DIMLUNIT=4 DIMZIN=3", L"6\""},
      {0, "DIMLUNIT=4", L"0\""},
      {11.99, "DIMLUNIT=4 DIMDEC=2", L"1'"},
      {15.5, "DIMLUNIT=3 DIMDEC=2", L"1'-3.50\""},
      {11.999, "DIMLUNIT=3 DIMDEC=2", L"1'"},
      {2.5, "DIMLUNIT=5 DIMDEC=3 DIMTFAC=0.7 DIMPOST=\"", L"2{\\H0.7x;\\S1/2;}\""},
      {0.5, "DIMLUNIT=5 DIMDEC=3", L"{\\H1x;\\S1/2;}"},
      // Before R2000.
      {48.25, "DIMUNIT=4 DIMDEC=2", L"4'-0{\\H1x;\\S1/4;}\"", kLength, L"", {.version = base::Version::kR14}},
      {48.25, "DIMUNIT=6 DIMDEC=2", L"4'-0 1/4\"", kLength, L"", {.version = base::Version::kR14}},
  });
}

TEST(ValueText, Angles) {
  expectTexts({
      {94.3, "", L"94\\U+00B0", kAngle},
      {94.3, "DIMADEC=-1 DIMDEC=2", L"94.30\\U+00B0", kAngle},
      {94.3, "DIMDEC=2", L"94.30\\U+00B0", kAngle, L"", {.version = base::Version::kR14}},
      {0.5, "DIMADEC=2 DIMAZIN=3 DIMDSEP=44", L",5\\U+00B0", kAngle},
      {45, "DIMAUNIT=2 DIMADEC=1", L"50.0g", kAngle},
      {90, "DIMAUNIT=3 DIMADEC=4", L"1.5708r", kAngle},
      {37.2583333, "DIMAUNIT=1", L"37\\U+00B0", kAngle},
      {37.26, "DIMAUNIT=1 DIMADEC=2", L"37\\U+00B016'", kAngle},
      {37.2583333, "DIMAUNIT=1 DIMADEC=4", L"37\\U+00B015'30\"", kAngle},
      {37.9999999, "DIMAUNIT=1 DIMADEC=5", L"38\\U+00B00'0.0\"", kAngle},
      {0.25, "DIMAUNIT=1 DIMADEC=4 DIMAZIN=3", L"15'", kAngle},
      {60, "DIMTOL=1 DIMTP=0.5 DIMTM=0.5 DIMTDEC=1", L"60\\U+00B0{\\H1x;\\U+00B10.5\\U+00B0}", kAngle},
      {60, "DIMPOST=mm DIMALT=1", L"60\\U+00B0", kAngle},
      {60, "DIMPOST=(<>)", L"(60\\U+00B0)", kAngle},
  });
}

TEST(ValueText, SignsPrefixesAndAPersonsText) {
  expectTexts({
      {11.4, "DIMDEC=1", L"R11.4", Kind::kRadial},
      {11.4, "DIMDEC=1", L"∅11.4", Kind::kDiametric},
      {11.4, "DIMDEC=1 DIMPOST=<>mm", L"11.4mm", Kind::kRadial},
      {11.4, "DIMDEC=1 DIMPOST=mm", L"R11.4mm", Kind::kRadial},
      {5, "DIMDEC=0 DIMTOLJ=1", L"\\A1;5"},
      {5, "DIMDEC=0 DIMTOLJ=2", L"\\A2;D.L.O.", kLength, L"D.L.O."},
      {5, "DIMDEC=0", L"5 typ.", kLength, L"<> typ."},
      {5, "DIMDEC=0", L"5", kLength, L"<>"},
      {5, "DIMDEC=0 DIMTOLJ=1", L"", kLength, L" "},
      {5, "DIMDEC=0", L"5\\Xmin.", kLength, L"<>\\Xmin."},
      {5, "DIMDEC=0 DIMPOST=\\X", L"5"},
      {5, "DIMDEC=0 DIMPOST=<>mm\\Xmin.", L"5mm\\Xmin."},
      {5, "DIMDEC=0 DIMPOST=.", L"5"},
  });
}

TEST(ValueText, AlternateUnits) {
  expectTexts({
      {2, "DIMDEC=1 DIMALT=1", L"2.0 [50.80]"},
      {2, "DIMDEC=1 DIMALT=1 DIMALTD=1 DIMAPOST=mm DIMALTZ=8", L"2.0 [50.8mm]"},
      {2, "DIMDEC=1 DIMALT=1 DIMAPOST=([]) DIMALTRND=5 DIMALTD=0", L"2.0 [(50)]"},
      {2, "DIMDEC=1 DIMALT=1 DIMPOST=\\X", L"2.0\\X[50.80]"},
      {2, "DIMDEC=1 DIMALT=1 DIMALTU=6 DIMALTF=0.625", L"2.0 [1 1/4\"]"},
      {2, "DIMDEC=1 DIMALT=1 DIMALTU=4 DIMALTF=0.625", L"2.0 [1{\\H1x;\\S1/4;}\"]"},
      {2, "DIMDEC=1", L"2.0 or [50.80]", kLength, L"<> or []"},
      {2, "DIMDEC=1 DIMALT=1", L"2.0 or [50.80]", kLength, L"<> or []"},
      {2, "DIMDEC=1 DIMALT=1", L"2.0 [50.80] typ.", kLength, L"<> typ."},
      {2, "DIMDEC=1 DIMALT=1 DIMTOL=1 DIMTP=0.1 DIMTDEC=1 DIMALTTD=2 DIMALTTZ=8",
       L"2.0{\\H1x;\\S+0.1^ 0.0;} [50.80{\\H1x;\\S+2.54^ 0;}]"},
  });
}

TEST(ValueText, TolerancesAndLimits) {
  expectTexts({
      {10, "DIMDEC=1 DIMTOL=1 DIMTP=0.02 DIMTM=0.02 DIMTDEC=2 DIMTFAC=0.7", L"10.0{\\H0.7x;\\U+00B10.02}"},
      {10, "DIMDEC=1 DIMTOL=1 DIMTP=0.04 DIMTM=0.01 DIMTDEC=2 DIMTFAC=0.7", L"10.0{\\H0.7x;\\S+0.04^-0.01;}"},
      {10, "DIMDEC=1 DIMTOL=1 DIMTP=-0.01 DIMTM=0.04 DIMTZIN=8", L"10.0{\\H1x;\\S-0.01^-0.04;}"},
      {10, "DIMDEC=1 DIMTOL=1 DIMTP=0 DIMTM=-0.1 DIMTZIN=8", L"10.0{\\H1x;\\S 0^+0.1;}"},
      {10, "DIMDEC=1 DIMTOL=1 DIMTP=0.1 DIMTM=0.2 DIMTDEC=1 DIMPOST=mm", L"10.0mm{\\H1x;\\S+0.1mm^-0.2mm;}"},
      {10, "DIMDEC=2 DIMLIM=1 DIMTOL=1 DIMTP=0.04 DIMTM=0.01 DIMTFAC=0.5", L"{\\H0.5x;\\S10.04^9.99;}"},
      {10, "DIMDEC=2 DIMLIM=1 DIMTP=0.04", L"R{\\H1x;\\S10.04^10.00;}", Kind::kRadial},
      {10, "DIMLUNIT=5 DIMDEC=2 DIMTOL=1 DIMTP=0.5 DIMTM=0.25", L"10{\\H1x;\\S+1\\/2^-1\\/4;}"},
  });
}

}  // namespace
}  // namespace cad
