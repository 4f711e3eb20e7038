#include "spec/dimension_catalogue.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/fold.h"

namespace kiv {
namespace {

struct Row {
  std::string_view name;
  const wchar_t* description;
};

// In the order in which they are offered.
constexpr Row kRows[] = {
    {"DIMADEC", L"角度寸法に表示される精度の位置の数をコントロールします。"},
    {"DIMALT", L"寸法値に変換単位による値を併記するかどうかをコントロールします。"},
    {"DIMALTD", L"変換単位で表示する値の小数点以下の桁数をコントロールします。"},
    {"DIMALTF", L"変換単位の乗数をコントロールします。"},
    {"DIMALTRND", L"変換単位で表示する値の丸めをコントロールします。"},
    {"DIMALTTD", L"変換単位で表示する許容差の小数点以下の桁数をコントロールします。"},
    {"DIMALTTZ", L"変換単位で表示する許容差のゼロの省略をコントロールします。"},
    {"DIMALTU", L"変換単位の単位形式を設定します。"},
    {"DIMALTZ", L"変換単位で表示する値のゼロの省略をコントロールします。"},
    {"DIMAPOST", L"変換単位で表示する値の前後に付ける文字列を指定します。"},
    {"DIMASO", L"寸法オブジェクトの自動調整機能をコントロールします。"},
    {"DIMASZ", L"寸法線および引出線で使用する矢印のサイズをコントロールします。"},
    {"DIMATFIT", L"補助線の間に収まらないときの寸法値と矢印の配置をコントロールします。"},
    {"DIMAUNIT", L"角度寸法の単位形式を設定します。"},
    {"DIMAZIN", L"角度寸法のゼロの省略をコントロールします。"},
    {"DIMBLK", L"寸法線または引出線の両端に表示する矢印ブロックを設定します。"},
    {"DIMBLK1", L"寸法線の 1 番目の端に表示する矢印ブロックを設定します。"},
    {"DIMBLK2", L"寸法線の 2 番目の端に表示する矢印ブロックを設定します。"},
    {"DIMCEN", L"円と円弧の中心に作図する中心マークと中心線をコントロールします。"},
    {"DIMCLRD", L"寸法線、矢印、引出線の色を設定します。"},
    {"DIMCLRE", L"寸法補助線の色を設定します。"},
    {"DIMCLRT", L"寸法値の色を設定します。"},
    {"DIMDEC", L"基本単位で表示する寸法値の小数点以下の桁数をコントロールします。"},
    {"DIMDLE", L"斜線を矢印の代わりに使うときに寸法線が補助線を超える長さを設定します。"},
    {"DIMDLI", L"並列寸法の寸法線の間隔をコントロールします。"},
    {"DIMDSEP", L"単位形式が十進表記の寸法を作成するときに使用する1文字の小数点区切りを指定します。"},
    {"DIMEXE", L"寸法補助線が寸法線を超えて延びる長さを指定します。"},
    {"DIMEXO", L"寸法補助線と計測点の間のすきまを指定します。"},
    {"DIMFRAC", L"分数で表示する寸法値の形式を設定します。"},
    {"DIMGAP", L"寸法値の周囲に空ける寸法線とのすきまを設定します。"},
    {"DIMJUST", L"寸法線に沿った寸法値の位置をコントロールします。"},
    {"DIMLDRBLK", L"引出線の矢印タイプを指定します。"},
    {"DIMLFAC", L"長さ寸法の計測値に掛ける尺度を設定します。"},
    {"DIMLIM", L"許容限界を既定の寸法値として表示するかどうかをコントロールします。"},
    {"DIMLUNIT", L"角度寸法以外の寸法の単位形式を設定します。"},
    {"DIMLWD", L"寸法線の線の太さを設定します。"},
    {"DIMLWE", L"寸法補助線の線の太さを設定します。"},
    {"DIMPOST", L"寸法値の前後に付ける文字列を指定します。"},
    {"DIMRND", L"寸法値を丸める単位を設定します。"},
    {"DIMSAH", L"寸法線の両端に別々の矢印ブロックを使うかどうかをコントロールします。"},
    {"DIMSCALE",
     L"尺度 (サイズ、距離、または間隔を指定するための寸法記入用変数のすべてに対して適用される) "
     L"を設定します。"},
    {"DIMSD1", L"1 番目の寸法線と矢印を省略するかどうかをコントロールします。"},
    {"DIMSD2", L"2 番目の寸法線と矢印を省略するかどうかをコントロールします。"},
    {"DIMSE1", L"1 番目の寸法補助線を省略するかどうかをコントロールします。"},
    {"DIMSE2", L"2 番目の寸法補助線を省略するかどうかをコントロールします。"},
    {"DIMSHO", L"ドラッグ機能動作中の寸法オブジェクトの再定義をコントロールします。"},
    {"DIMSOXD", L"補助線の内側に余地がないときに矢印を省略するかどうかをコントロールします。"},
    {"DIMTAD", L"寸法線に対する寸法値の垂直方向の位置をコントロールします。"},
    {"DIMTDEC", L"許容差の小数点以下の桁数をコントロールします。"},
    {"DIMTFAC", L"寸法値に対する分数と許容差の文字高さの比率を指定します。"},
    {"DIMTIH", L"補助線の内側にある寸法値を水平に表示するかどうかをコントロールします。"},
    {"DIMTIX", L"寸法値を常に補助線の内側に表示するかどうかをコントロールします。"},
    {"DIMTM", L"寸法値の下の許容差を設定します。"},
    {"DIMTMOVE", L"寸法値を移動したときの寸法線と引出線の扱いをコントロールします。"},
    {"DIMTOFL", L"寸法値が外側にあるときに補助線の間に寸法線を作図するかどうかをコントロールします。"},
    {"DIMTOH", L"補助線の外側にある寸法値を水平に表示するかどうかをコントロールします。"},
    {"DIMTOL", L"寸法値に許容差を付けるかどうかをコントロールします。"},
    {"DIMTOLJ", L"寸法値に対する許容差の垂直方向の位置合わせを設定します。"},
    {"DIMTP", L"寸法値の上の許容差を設定します。"},
    {"DIMTSZ", L"矢印の代わりに作図する斜線のサイズを指定します。"},
    {"DIMTVP", L"寸法線の上下における寸法値の垂直方向の位置をコントロールします。"},
    {"DIMTXSTY", L"寸法値の文字スタイルを指定します。"},
    {"DIMTXT", L"寸法値の高さを指定します (ただし、現在の文字スタイルの高さが固定でない場合)。"},
    {"DIMTZIN", L"許容差のゼロの省略をコントロールします。"},
    {"DIMUPT", L"寸法値の位置をカーソルで指定するかどうかをコントロールします。"},
    {"DIMZIN", L"基本単位で表示する寸法値のゼロの省略をコントロールします。"},
};
static_assert(std::ranges::count_if(base::kDimVariables, &base::DimVariableInfo::isOffered) ==
              std::ssize(kRows));

constexpr auto kCatalogue = [] {
  std::array<DimensionVariable, std::size(kRows)> variables;
  auto variable = variables.begin();
  for (const Row& row : kRows) {
    variable->info = base::findDimVariable(row.name);
    variable->description = row.description;
    std::ranges::copy(row.name, variable->name);
    ++variable;
  }
  return variables;
}();
static_assert(std::ranges::all_of(kRows, [](const Row& row) {
  return std::ranges::any_of(base::kDimVariables, [&row](const base::DimVariableInfo& info) {
    return info.name == row.name && info.isOffered();
  });
}));

}  // namespace

std::span<const DimensionVariable> dimensionCatalogue() { return kCatalogue; }

const DimensionVariable& dimensionCatalogueRow(int row) { return kCatalogue[static_cast<std::size_t>(row)]; }

int findDimensionVariable(std::wstring_view name) {
  const auto found = std::ranges::find_if(
      kCatalogue, [&](const DimensionVariable& row) { return base::equalFolded(row.name, name); });
  return found == kCatalogue.end() ? -1 : static_cast<int>(found - kCatalogue.begin());
}

}  // namespace kiv
