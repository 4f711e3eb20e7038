#include "embedded/support/font_files.h"

#include <string>

#include "base/fold.h"

namespace cad::support {
namespace {

struct FontFile {
  const wchar_t* typeface;
  const wchar_t* file;
};

constexpr FontFile kFontFiles[] = {
    {L"Arial", L"arial.ttf"},
    {L"Arial Black", L"ariblk.ttf"},
    {L"Arial Narrow", L"arialn.ttf"},
    {L"Arial Unicode MS", L"arialuni.ttf"},
    {L"Calibri", L"calibri.ttf"},
    {L"Cambria", L"cambria.ttc"},
    {L"Century", L"century.ttf"},
    {L"Century Gothic", L"gothic.ttf"},
    {L"Comic Sans MS", L"comic.ttf"},
    {L"Consolas", L"consola.ttf"},
    {L"Courier New", L"cour.ttf"},
    {L"Georgia", L"georgia.ttf"},
    {L"Impact", L"impact.ttf"},
    {L"Lucida Console", L"lucon.ttf"},
    {L"Microsoft Sans Serif", L"micross.ttf"},
    {L"Segoe UI", L"segoeui.ttf"},
    {L"Symbol", L"symbol.ttf"},
    {L"Tahoma", L"tahoma.ttf"},
    {L"Times New Roman", L"times.ttf"},
    {L"Trebuchet MS", L"trebuc.ttf"},
    {L"Verdana", L"verdana.ttf"},
    {L"Wingdings", L"wingding.ttf"},

    {L"MS Gothic", L"msgothic.ttc"},
    {L"MS ゴシック", L"msgothic.ttc"},
    {L"MS PGothic", L"msgothic.ttc"},
    {L"MS Pゴシック", L"msgothic.ttc"},
    {L"MS UI Gothic", L"msgothic.ttc"},
    {L"MS Mincho", L"msmincho.ttc"},
    {L"MS 明朝", L"msmincho.ttc"},
    {L"MS PMincho", L"msmincho.ttc"},
    {L"MS P明朝", L"msmincho.ttc"},
    {L"Meiryo", L"meiryo.ttc"},
    {L"メイリオ", L"meiryo.ttc"},
    {L"Meiryo UI", L"meiryo.ttc"},
    {L"Yu Gothic", L"YuGothR.ttc"},
    {L"游ゴシック", L"YuGothR.ttc"},
    {L"Yu Gothic UI", L"YuGothR.ttc"},
    {L"Yu Gothic Medium", L"YuGothM.ttc"},
    {L"游ゴシック Medium", L"YuGothM.ttc"},
    {L"Yu Gothic Light", L"YuGothL.ttc"},
    {L"游ゴシック Light", L"YuGothL.ttc"},
    {L"Yu Mincho", L"yumin.ttf"},
    {L"游明朝", L"yumin.ttf"},
    {L"BIZ UDGothic", L"BIZ-UDGothicR.ttc"},
    {L"BIZ UDゴシック", L"BIZ-UDGothicR.ttc"},
    {L"BIZ UDPGothic", L"BIZ-UDGothicR.ttc"},
    {L"BIZ UDPゴシック", L"BIZ-UDGothicR.ttc"},
    {L"BIZ UDMincho", L"BIZ-UDMinchoM.ttc"},
    {L"BIZ UD明朝", L"BIZ-UDMinchoM.ttc"},
    {L"HGｺﾞｼｯｸE", L"HGRGE.TTC"},
    {L"HGｺﾞｼｯｸM", L"HGRGM.TTC"},
    {L"HG丸ｺﾞｼｯｸM-PRO", L"HGRSMP.TTF"},
    {L"HG教科書体", L"HGRKK.TTC"},
    {L"HG行書体", L"HGRGY.TTC"},
    {L"HG創英角ｺﾞｼｯｸUB", L"HGRSGU.TTC"},
    {L"HG創英角ﾎﾟｯﾌﾟ体", L"HGRPP1.TTC"},
    {L"HG明朝B", L"HGRMB.TTC"},
    {L"HG明朝E", L"HGRME.TTC"},

    {L"SimSun", L"simsun.ttc"},
    {L"SimHei", L"simhei.ttf"},
    {L"Microsoft YaHei", L"msyh.ttc"},
    {L"Malgun Gothic", L"malgun.ttf"},
};

struct StyledFiles {
  const wchar_t *regular, *bold, *italic, *both;
};

constexpr StyledFiles kStyledFiles[] = {
    {L"arial.ttf", L"arialbd.ttf", L"ariali.ttf", L"arialbi.ttf"},
    {L"arialn.ttf", L"arialnb.ttf", L"arialni.ttf", L"arialnbi.ttf"},
    {L"calibri.ttf", L"calibrib.ttf", L"calibrii.ttf", L"calibriz.ttf"},
    {L"cambria.ttc", L"cambriab.ttf", L"cambriai.ttf", L"cambriaz.ttf"},
    {L"consola.ttf", L"consolab.ttf", L"consolai.ttf", L"consolaz.ttf"},
    {L"cour.ttf", L"courbd.ttf", L"couri.ttf", L"courbi.ttf"},
    {L"georgia.ttf", L"georgiab.ttf", L"georgiai.ttf", L"georgiaz.ttf"},
    {L"segoeui.ttf", L"segoeuib.ttf", L"segoeuii.ttf", L"segoeuiz.ttf"},
    {L"tahoma.ttf", L"tahomabd.ttf", L"tahoma.ttf", L"tahomabd.ttf"},
    {L"times.ttf", L"timesbd.ttf", L"timesi.ttf", L"timesbi.ttf"},
    {L"trebuc.ttf", L"trebucbd.ttf", L"trebucit.ttf", L"trebucbi.ttf"},
    {L"verdana.ttf", L"verdanab.ttf", L"verdanai.ttf", L"verdanaz.ttf"},
    {L"meiryo.ttc", L"meiryob.ttc", L"meiryo.ttc", L"meiryob.ttc"},
    {L"YuGothR.ttc", L"YuGothB.ttc", L"YuGothR.ttc", L"YuGothB.ttc"},
    {L"BIZ-UDGothicR.ttc", L"BIZ-UDGothicB.ttc", L"BIZ-UDGothicR.ttc", L"BIZ-UDGothicB.ttc"},
};

// Full-width letters, digits and blanks count as their narrow forms: "ＭＳ ゴシック" is "MS ゴシック".
std::wstring folded(std::wstring_view typeface) {
  constexpr wchar_t kFirstWide = 0xFF01, kLastWide = 0xFF5E, kWideBlank = 0x3000;
  std::wstring narrow;
  for (const wchar_t c : typeface) {
    const bool wide = c >= kFirstWide && c <= kLastWide;
    narrow += wide ? static_cast<wchar_t>(c - kFirstWide + L'!') : c == kWideBlank ? L' ' : c;
  }
  std::wstring_view name = base::trim(narrow);
  if (!name.empty() && name.front() == L'@') name.remove_prefix(1);
  return base::upper(name);
}

}  // namespace

std::wstring_view fontFileOf(std::wstring_view typeface) {
  const std::wstring wanted = folded(typeface);
  for (const FontFile& each : kFontFiles)
    if (base::upper(each.typeface) == wanted) return each.file;
  return {};
}

std::wstring styledFontFile(std::wstring_view regular, bool bold, bool italic) {
  for (const StyledFiles& each : kStyledFiles) {
    if (!base::equalFolded(each.regular, regular)) continue;
    if (bold && italic) return each.both;
    return bold ? each.bold : italic ? each.italic : each.regular;
  }
  return std::wstring(regular);
}

}  // namespace cad::support
