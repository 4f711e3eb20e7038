#include "spec/dimension_catalogue.h"

#include <algorithm>
#include <iterator>

#include "base/fold.h"

namespace kiv {
namespace {

using enum DimensionVariable::Type;

constexpr DimensionVariable kCatalogue[] = {
    {kInteger, L"DIMADEC", L"角度寸法に表示される精度の位置の数をコントロールします。"},
    {kInteger, L"DIMALT", L"寸法値に変換単位による値を併記するかどうかをコントロールします。"},
    {kInteger, L"DIMALTD", L"変換単位で表示する値の小数点以下の桁数をコントロールします。"},
    {kInteger, L"DIMALTF", L"変換単位の乗数をコントロールします。"},
    {kInteger, L"DIMALTRND", L"変換単位で表示する値の丸めをコントロールします。"},
    {kInteger, L"DIMALTTD", L"変換単位で表示する許容差の小数点以下の桁数をコントロールします。"},
    {kInteger, L"DIMALTTZ", L"変換単位で表示する許容差のゼロの省略をコントロールします。"},
    {kInteger, L"DIMALTU", L"変換単位の単位形式を設定します。"},
    {kInteger, L"DIMALTZ", L"変換単位で表示する値のゼロの省略をコントロールします。"},
    {kText, L"DIMAPOST", L"変換単位で表示する値の前後に付ける文字列を指定します。"},
    {kInteger, L"DIMASO", L"寸法オブジェクトの自動調整機能をコントロールします。"},
    {kReal, L"DIMASZ", L"寸法線および引出線で使用する矢印のサイズをコントロールします。"},
    {kInteger, L"DIMATFIT", L"補助線の間に収まらないときの寸法値と矢印の配置をコントロールします。"},
    {kInteger, L"DIMAUNIT", L"角度寸法の単位形式を設定します。"},
    {kInteger, L"DIMAZIN", L"角度寸法のゼロの省略をコントロールします。"},
    {kText, L"DIMBLK", L"寸法線または引出線の両端に表示する矢印ブロックを設定します。"},
    {kText, L"DIMBLK1", L"寸法線の 1 番目の端に表示する矢印ブロックを設定します。"},
    {kText, L"DIMBLK2", L"寸法線の 2 番目の端に表示する矢印ブロックを設定します。"},
    {kReal, L"DIMCEN", L"円と円弧の中心に作図する中心マークと中心線をコントロールします。"},
    {kInteger, L"DIMCLRD", L"寸法線、矢印、引出線の色を設定します。"},
    {kInteger, L"DIMCLRE", L"寸法補助線の色を設定します。"},
    {kInteger, L"DIMCLRT", L"寸法値の色を設定します。"},
    {kInteger, L"DIMDEC", L"基本単位で表示する寸法値の小数点以下の桁数をコントロールします。"},
    {kReal, L"DIMDLE", L"斜線を矢印の代わりに使うときに寸法線が補助線を超える長さを設定します。"},
    {kReal, L"DIMDLI", L"並列寸法の寸法線の間隔をコントロールします。"},
    {kText, L"DIMDSEP", L"単位形式が十進表記の寸法を作成するときに使用する1文字の小数点区切りを指定します。"},
    {kReal, L"DIMEXE", L"寸法補助線が寸法線を超えて延びる長さを指定します。"},
    {kReal, L"DIMEXO", L"寸法補助線と計測点の間のすきまを指定します。"},
    {kInteger, L"DIMFRAC", L"分数で表示する寸法値の形式を設定します。"},
    {kReal, L"DIMGAP", L"寸法値の周囲に空ける寸法線とのすきまを設定します。"},
    {kInteger, L"DIMJUST", L"寸法線に沿った寸法値の位置をコントロールします。"},
    {kText, L"DIMLDRBLK", L"引出線の矢印タイプを指定します。"},
    {kReal, L"DIMLFAC", L"長さ寸法の計測値に掛ける尺度を設定します。"},
    {kInteger, L"DIMLIM", L"許容限界を既定の寸法値として表示するかどうかをコントロールします。"},
    {kInteger, L"DIMLUNIT", L"角度寸法以外の寸法の単位形式を設定します。"},
    {kInteger, L"DIMLWD", L"寸法線の線の太さを設定します。"},
    {kInteger, L"DIMLWE", L"寸法補助線の線の太さを設定します。"},
    {kText, L"DIMPOST", L"寸法値の前後に付ける文字列を指定します。"},
    {kReal, L"DIMRND", L"寸法値を丸める単位を設定します。"},
    {kInteger, L"DIMSAH", L"寸法線の両端に別々の矢印ブロックを使うかどうかをコントロールします。"},
    {kReal, L"DIMSCALE",
     L"尺度 (サイズ、距離、または間隔を指定するための寸法記入用変数のすべてに対して適用される) "
     L"を設定します。"},
    {kInteger, L"DIMSD1", L"1 番目の寸法線を省略するかどうかをコントロールします。"},
    {kInteger, L"DIMSD2", L"2 番目の寸法線を省略するかどうかをコントロールします。"},
    {kInteger, L"DIMSE1", L"1 番目の寸法補助線を省略するかどうかをコントロールします。"},
    {kInteger, L"DIMSE2", L"2 番目の寸法補助線を省略するかどうかをコントロールします。"},
    {kReal, L"DIMSHO", L"ドラッグ機能動作中の寸法オブジェクトの再定義をコントロールします。"},
    {kInteger, L"DIMSOXD", L"補助線の外側の寸法線を省略するかどうかをコントロールします。"},
    {kInteger, L"DIMTAD", L"寸法線に対する寸法値の垂直方向の位置をコントロールします。"},
    {kInteger, L"DIMTDEC", L"許容差の小数点以下の桁数をコントロールします。"},
    {kReal, L"DIMTFAC", L"寸法値に対する分数と許容差の文字高さの比率を指定します。"},
    {kInteger, L"DIMTIH", L"補助線の内側にある寸法値を水平に表示するかどうかをコントロールします。"},
    {kInteger, L"DIMTIX", L"寸法値を常に補助線の内側に表示するかどうかをコントロールします。"},
    {kReal, L"DIMTM", L"寸法値の下の許容差を設定します。"},
    {kInteger, L"DIMTMOVE", L"寸法値を移動したときの寸法線と引出線の扱いをコントロールします。"},
    {kInteger, L"DIMTOFL",
     L"寸法値が外側にあるときに補助線の間に寸法線を作図するかどうかをコントロールします。"},
    {kInteger, L"DIMTOH", L"補助線の外側にある寸法値を水平に表示するかどうかをコントロールします。"},
    {kInteger, L"DIMTOL", L"寸法値に許容差を付けるかどうかをコントロールします。"},
    {kInteger, L"DIMTOLJ", L"寸法値に対する許容差の垂直方向の位置合わせを設定します。"},
    {kReal, L"DIMTP", L"寸法値の上の許容差を設定します。"},
    {kReal, L"DIMTSZ", L"矢印の代わりに作図する斜線のサイズを指定します。"},
    {kReal, L"DIMTVP", L"寸法線の上下における寸法値の垂直方向の位置をコントロールします。"},
    {kText, L"DIMTXSTY", L"寸法値の文字スタイルを指定します。"},
    {kReal, L"DIMTXT", L"寸法値の高さを指定します (ただし、現在の文字スタイルの高さが固定でない場合)。"},
    {kInteger, L"DIMTZIN", L"許容差のゼロの省略をコントロールします。"},
    {kInteger, L"DIMUPT", L"寸法値の位置をカーソルで指定するかどうかをコントロールします。"},
    {kInteger, L"DIMZIN", L"基本単位で表示する寸法値のゼロの省略をコントロールします。"},
};
static_assert(std::size(kCatalogue) == 66);

}  // namespace

std::span<const DimensionVariable> dimensionCatalogue() { return kCatalogue; }

int findDimensionVariable(std::wstring_view name) {
  const auto found =
      std::find_if(std::begin(kCatalogue), std::end(kCatalogue),
                   [&](const DimensionVariable& row) { return base::equalFolded(row.name, name); });
  return found == std::end(kCatalogue) ? -1 : static_cast<int>(found - std::begin(kCatalogue));
}

bool isArrowVariable(std::wstring_view name) {
  return base::startsWithFolded(name, L"DIMBLK") || base::equalFolded(name, L"DIMLDRBLK");
}

bool namesRecord(std::wstring_view name) {
  return isArrowVariable(name) || base::equalFolded(name, L"DIMTXSTY");
}

bool isDrawnTextVariable(std::wstring_view name) {
  return base::equalFolded(name, L"DIMPOST") || base::equalFolded(name, L"DIMAPOST") ||
         base::equalFolded(name, L"DIMDSEP");
}

const wchar_t* typeText(DimensionVariable::Type type) {
  return type == kInteger ? L"整数" : type == kReal ? L"実数" : L"文字";
}

}  // namespace kiv
