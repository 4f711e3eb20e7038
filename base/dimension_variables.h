#pragma once
// The dimension variables: one row for each, with its name, its type, its limits, its default, its group
// numbers, the drawing versions that have it and what specifications say of it. The declarations of the
// host's interface, which repeat name and type, are checked against it when they are compiled. Header,
// dimension style, override of a dimension, system variable and catalogue all take them from here.

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "base/drawing_version.h"
#include "base/lineweights.h"
#include "base/number_limits.h"

namespace base {

enum class DimType : std::uint8_t {
  kInteger,
  kLineWeight,  // an integer, one of the steps
  kCharacter,   // kept as the character's number
  kReal,
  kText,       // DIMPOST, DIMAPOST
  kTextStyle,  // a text style's name
  kArrow,      // an arrow block's name; "" is the closed filled arrow
  kLinetype,   // a linetype's name
};

struct DimGroups {
  int number = 0;  // in a dimension style and in overrides; 0: the variable lives in the header only
  int old = 0;     // in a style before handles took over (R14 and earlier); 0: the same number
  int header = 0;  // of its value in the header; 0: the one that its type has
};

// How conversion specifications have a variable.
struct DimOffer {
  // Of the value: not always the host's.
  enum class Type : std::uint8_t { kNotOffered, kAsInteger, kAsReal, kAsText } type = Type::kNotOffered;
  const wchar_t* meaning = L"";  // one Japanese sentence
};

struct DimVariableInfo {
  std::string_view name;
  DimType type;
  NumberLimits limits;  // of numbers and characters
  double defaultValue;  // of a drawing in inches with no template; names default to "" unless a style
  DimGroups groups;
  VersionRange versions = {};
  DimOffer offer = {};
  // In kDimVariables: how a variable is told from others. A program and a library each have a table.
  std::uint8_t row = 0;

  constexpr bool isName() const { return type >= DimType::kTextStyle; }
  constexpr bool isInteger() const { return type <= DimType::kCharacter; }
  constexpr bool isOfHeaderOnly() const { return groups.number == 0; }
  constexpr bool existsIn(Version version) const { return versions.hold(version); }
};

namespace dim_table {

using enum DimType;
using enum DimOffer::Type;
using enum Version;

consteval DimVariableInfo row(std::string_view name, DimType type, const NumberLimits& limits,
                              double defaultValue, DimGroups groups, VersionRange versions,
                              DimOffer offer = {}) {
  return {name, type, limits, defaultValue, groups, versions, offer};
}

// The limits are those that the host's reference states for the variable or for the property of dimensions
// that overrides it.
inline constexpr double kMost = std::numeric_limits<double>::max(), kLeast = -kMost;
inline constexpr NumberLimits kNoNumber;   // names and texts
inline constexpr NumberLimits kAny;        // the reference gives the sign or the zero a meaning
inline constexpr NumberLimits kNotStated;  // it states none, and refuses no number
inline constexpr NumberLimits kFromZero{0, kMost};
inline constexpr NumberLimits kNotZero{kLeast, kMost, false};  // below 0: in paper space only
inline constexpr NumberLimits kAboveZero{std::numeric_limits<double>::denorm_min(),
                                         kMost};  // heights of texts
inline constexpr NumberLimits kOnOff{0, 1}, kPlaces{0, 8}, kColors{0, 256};
inline constexpr NumberLimits kZeros{0, 15};             // 0 to 3, with 4 and 8 added to it
inline constexpr NumberLimits kOneCharacter{1, 0x7FFF};  // files keep it in sixteen bits
inline constexpr NumberLimits kJogAngles{0.08726646259971647, 1.5707963267948966};  // 5 to 90 degrees

// name, type, limits, default, group numbers, first and last version, offer to specifications
inline constexpr DimVariableInfo kRows[] = {
    row("DIMPOST", kText, kNoNumber, 0, {3}, {}, {kAsText, L"寸法値の前後に付ける文字列を指定します。"}),
    row("DIMAPOST", kText, kNoNumber, 0, {4}, {},
        {kAsText, L"変換単位で表示する値の前後に付ける文字列を指定します。"}),
    row("DIMSCALE", kReal, kFromZero, 1, {40}, {},
        {kAsReal,
         L"尺度 (サイズ、距離、または間隔を指定するための寸法記入用変数のすべてに対して適用される) "
         L"を設定します。"}),
    row("DIMASZ", kReal, kFromZero, 0.18, {41}, {},
        {kAsReal, L"寸法線および引出線で使用する矢印のサイズをコントロールします。"}),
    row("DIMEXO", kReal, kFromZero, 0.0625, {42}, {},
        {kAsReal, L"寸法補助線と計測点の間のすきまを指定します。"}),
    row("DIMDLI", kReal, kNotStated, 0.38, {43}, {},
        {kAsReal, L"並列寸法の寸法線の間隔をコントロールします。"}),
    row("DIMEXE", kReal, kFromZero, 0.18, {44}, {},
        {kAsReal, L"寸法補助線が寸法線を超えて延びる長さを指定します。"}),
    row("DIMRND", kReal, kFromZero, 0, {45}, {}, {kAsReal, L"寸法値を丸める単位を設定します。"}),
    row("DIMDLE", kReal, kFromZero, 0, {46}, {},
        {kAsReal, L"斜線を矢印の代わりに使うときに寸法線が補助線を超える長さを設定します。"}),
    row("DIMTP", kReal, kAny, 0, {47}, {}, {kAsReal, L"寸法値の上の許容差を設定します。"}),
    row("DIMTM", kReal, kAny, 0, {48}, {}, {kAsReal, L"寸法値の下の許容差を設定します。"}),
    row("DIMFXL", kReal, kNotStated, 1, {49}, {kR2007}),
    row("DIMJOGANG", kReal, kJogAngles, 0.7853981633974483, {50}, {kR2007}),
    row("DIMTFILL", kInteger, {0, 2}, 0, {69}, {kR2007}),
    row("DIMTFILLCLR", kInteger, kColors, 0, {70}, {kR2007}),
    row("DIMTOL", kInteger, kOnOff, 0, {71}, {},
        {kAsInteger, L"寸法値に許容差を付けるかどうかをコントロールします。"}),
    row("DIMLIM", kInteger, kOnOff, 0, {72}, {},
        {kAsInteger, L"許容限界を既定の寸法値として表示するかどうかをコントロールします。"}),
    row("DIMTIH", kInteger, kOnOff, 1, {73}, {},
        {kAsInteger, L"補助線の内側にある寸法値を水平に表示するかどうかをコントロールします。"}),
    row("DIMTOH", kInteger, kOnOff, 1, {74}, {},
        {kAsInteger, L"補助線の外側にある寸法値を水平に表示するかどうかをコントロールします。"}),
    row("DIMSE1", kInteger, kOnOff, 0, {75}, {},
        {kAsInteger, L"1 番目の寸法補助線を省略するかどうかをコントロールします。"}),
    row("DIMSE2", kInteger, kOnOff, 0, {76}, {},
        {kAsInteger, L"2 番目の寸法補助線を省略するかどうかをコントロールします。"}),
    row("DIMTAD", kInteger, {0, 4}, 0, {77}, {},
        {kAsInteger, L"寸法線に対する寸法値の垂直方向の位置をコントロールします。"}),
    row("DIMZIN", kInteger, kZeros, 0, {78}, {},
        {kAsInteger, L"基本単位で表示する寸法値のゼロの省略をコントロールします。"}),
    row("DIMAZIN", kInteger, {0, 3}, 0, {79}, {kR2000},
        {kAsInteger, L"角度寸法のゼロの省略をコントロールします。"}),
    row("DIMARCSYM", kInteger, {0, 2}, 0, {90}, {kR2007}),
    row("DIMTXT", kReal, kAboveZero, 0.18, {140}, {},
        {kAsReal, L"寸法値の高さを指定します (ただし、現在の文字スタイルの高さが固定でない場合)。"}),
    row("DIMCEN", kReal, kAny, 0.09, {141}, {},
        {kAsReal, L"円と円弧の中心に作図する中心マークと中心線をコントロールします。"}),
    row("DIMTSZ", kReal, kFromZero, 0, {142}, {},
        {kAsReal, L"矢印の代わりに作図する斜線のサイズを指定します。"}),
    row("DIMALTF", kReal, kNotStated, 25.4, {143}, {}, {kAsInteger, L"変換単位の乗数をコントロールします。"}),
    row("DIMLFAC", kReal, kNotZero, 1, {144}, {}, {kAsReal, L"長さ寸法の計測値に掛ける尺度を設定します。"}),
    row("DIMTVP", kReal, kAny, 0, {145}, {},
        {kAsReal, L"寸法線の上下における寸法値の垂直方向の位置をコントロールします。"}),
    row("DIMTFAC", kReal, kAboveZero, 1, {146}, {},
        {kAsReal, L"寸法値に対する分数と許容差の文字高さの比率を指定します。"}),
    row("DIMGAP", kReal, kAny, 0.09, {147}, {},
        {kAsReal, L"寸法値の周囲に空ける寸法線とのすきまを設定します。"}),
    row("DIMALTRND", kReal, kFromZero, 0, {148}, {kR2000},
        {kAsInteger, L"変換単位で表示する値の丸めをコントロールします。"}),
    row("DIMALT", kInteger, kOnOff, 0, {170}, {},
        {kAsInteger, L"寸法値に変換単位による値を併記するかどうかをコントロールします。"}),
    row("DIMALTD", kInteger, kPlaces, 2, {171}, {},
        {kAsInteger, L"変換単位で表示する値の小数点以下の桁数をコントロールします。"}),
    row("DIMTOFL", kInteger, kOnOff, 0, {172}, {},
        {kAsInteger, L"寸法値が外側にあるときに補助線の間に寸法線を作図するかどうかをコントロールします。"}),
    row("DIMSAH", kInteger, kOnOff, 0, {173}, {},
        {kAsInteger, L"寸法線の両端に別々の矢印ブロックを使うかどうかをコントロールします。"}),
    row("DIMTIX", kInteger, kOnOff, 0, {174}, {},
        {kAsInteger, L"寸法値を常に補助線の内側に表示するかどうかをコントロールします。"}),
    row("DIMSOXD", kInteger, kOnOff, 0, {175}, {},
        {kAsInteger, L"補助線の外側の寸法線を省略するかどうかをコントロールします。"}),
    row("DIMCLRD", kInteger, kColors, 0, {176}, {}, {kAsInteger, L"寸法線、矢印、引出線の色を設定します。"}),
    row("DIMCLRE", kInteger, kColors, 0, {177}, {}, {kAsInteger, L"寸法補助線の色を設定します。"}),
    row("DIMCLRT", kInteger, kColors, 0, {178}, {}, {kAsInteger, L"寸法値の色を設定します。"}),
    row("DIMADEC", kInteger, {-1, 8}, 0, {179}, {kR2000},
        {kAsInteger, L"角度寸法に表示される精度の位置の数をコントロールします。"}),
    row("DIMUNIT", kInteger, {1, 8}, 2, {270}, {kR13, kR14}),
    row("DIMDEC", kInteger, kPlaces, 4, {271}, {kR13},
        {kAsInteger, L"基本単位で表示する寸法値の小数点以下の桁数をコントロールします。"}),
    row("DIMTDEC", kInteger, kPlaces, 4, {272}, {kR13},
        {kAsInteger, L"許容差の小数点以下の桁数をコントロールします。"}),
    row("DIMALTU", kInteger, {1, 8}, 2, {273}, {kR13}, {kAsInteger, L"変換単位の単位形式を設定します。"}),
    row("DIMALTTD", kInteger, kPlaces, 2, {274}, {kR13},
        {kAsInteger, L"変換単位で表示する許容差の小数点以下の桁数をコントロールします。"}),
    row("DIMAUNIT", kInteger, {0, 3}, 0, {275}, {kR13}, {kAsInteger, L"角度寸法の単位形式を設定します。"}),
    row("DIMFRAC", kInteger, {0, 2}, 0, {276}, {kR2000},
        {kAsInteger, L"分数で表示する寸法値の形式を設定します。"}),
    row("DIMLUNIT", kInteger, {1, 6}, 2, {277}, {kR2000},
        {kAsInteger, L"角度寸法以外の寸法の単位形式を設定します。"}),
    row("DIMDSEP", kCharacter, kOneCharacter, 46, {278}, {kR2000},
        {kAsText, L"単位形式が十進表記の寸法を作成するときに使用する1文字の小数点区切りを指定します。"}),
    row("DIMTMOVE", kInteger, {0, 2}, 0, {279}, {kR2000},
        {kAsInteger, L"寸法値を移動したときの寸法線と引出線の扱いをコントロールします。"}),
    row("DIMJUST", kInteger, {0, 4}, 0, {280}, {kR13},
        {kAsInteger, L"寸法線に沿った寸法値の位置をコントロールします。"}),
    row("DIMSD1", kInteger, kOnOff, 0, {281}, {kR13},
        {kAsInteger, L"1 番目の寸法線を省略するかどうかをコントロールします。"}),
    row("DIMSD2", kInteger, kOnOff, 0, {282}, {kR13},
        {kAsInteger, L"2 番目の寸法線を省略するかどうかをコントロールします。"}),
    row("DIMTOLJ", kInteger, {0, 2}, 1, {283}, {kR13},
        {kAsInteger, L"寸法値に対する許容差の垂直方向の位置合わせを設定します。"}),
    row("DIMTZIN", kInteger, kZeros, 0, {284}, {kR13},
        {kAsInteger, L"許容差のゼロの省略をコントロールします。"}),
    row("DIMALTZ", kInteger, kZeros, 0, {285}, {kR13},
        {kAsInteger, L"変換単位で表示する値のゼロの省略をコントロールします。"}),
    row("DIMALTTZ", kInteger, kZeros, 0, {286}, {kR13},
        {kAsInteger, L"変換単位で表示する許容差のゼロの省略をコントロールします。"}),
    row("DIMFIT", kInteger, {0, 5}, 3, {287}, {kR13, kR14}),
    row("DIMUPT", kInteger, kOnOff, 0, {288}, {kR13},
        {kAsInteger, L"寸法値の位置をカーソルで指定するかどうかをコントロールします。"}),
    row("DIMATFIT", kInteger, {0, 3}, 3, {289}, {kR2000},
        {kAsInteger, L"補助線の間に収まらないときの寸法値と矢印の配置をコントロールします。"}),
    row("DIMFXLON", kInteger, kOnOff, 0, {290}, {kR2007}),
    row("DIMTXTDIRECTION", kInteger, kOnOff, 0, {294}, {kR2010}),
    row("DIMTXSTY", kTextStyle, kNoNumber, 0, {340}, {kR13},
        {kAsText, L"寸法値の文字スタイルを指定します。"}),
    row("DIMLDRBLK", kArrow, kNoNumber, 0, {341}, {kR2000}, {kAsText, L"引出線の矢印タイプを指定します。"}),
    row("DIMBLK", kArrow, kNoNumber, 0, {342, 5}, {},
        {kAsText, L"寸法線または引出線の両端に表示する矢印ブロックを設定します。"}),
    row("DIMBLK1", kArrow, kNoNumber, 0, {343, 6}, {},
        {kAsText, L"寸法線の 1 番目の端に表示する矢印ブロックを設定します。"}),
    row("DIMBLK2", kArrow, kNoNumber, 0, {344, 7}, {},
        {kAsText, L"寸法線の 2 番目の端に表示する矢印ブロックを設定します。"}),
    row("DIMLTYPE", kLinetype, kNoNumber, 0, {345}, {kR2007}),
    row("DIMLTEX1", kLinetype, kNoNumber, 0, {346}, {kR2007}),
    row("DIMLTEX2", kLinetype, kNoNumber, 0, {347}, {kR2007}),
    row("DIMLWD", kLineWeight, kLineweightLimits, -2, {371}, {kR2000},
        {kAsInteger, L"寸法線の線の太さを設定します。"}),
    row("DIMLWE", kLineWeight, kLineweightLimits, -2, {372}, {kR2000},
        {kAsInteger, L"寸法補助線の線の太さを設定します。"}),
    row("DIMASO", kInteger, kOnOff, 1, {}, {},
        {kAsInteger, L"寸法オブジェクトの自動調整機能をコントロールします。"}),
    row("DIMSHO", kInteger, kOnOff, 1, {}, {},
        {kAsReal, L"ドラッグ機能動作中の寸法オブジェクトの再定義をコントロールします。"}),
    row("DIMASSOC", kInteger, {0, 2}, 2, {0, 0, 280}, {kR2004}),
};

}  // namespace dim_table

inline constexpr auto kDimVariables = [] {
  auto rows = std::to_array(dim_table::kRows);
  for (std::size_t row = 0; row < rows.size(); ++row) rows[row].row = static_cast<std::uint8_t>(row);
  return rows;
}();

// By name (upper-case, no dollar sign); null when there is no such variable.
constexpr const DimVariableInfo* findDimVariable(std::string_view name) {
  for (const DimVariableInfo& info : kDimVariables)
    if (info.name == name) return &info;
  return nullptr;
}

// The row of a variable that is known to exist; a misspelt name does not compile.
consteval const DimVariableInfo& dimRow(std::string_view name) {
  for (const DimVariableInfo& info : kDimVariables)
    if (info.name == name) return info;
  throw "no such dimension variable";
}

}  // namespace base
