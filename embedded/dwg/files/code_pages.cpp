#include "embedded/dwg/files/code_pages.h"

#include <iterator>

namespace cad::dwg {
namespace {

struct NamedPage {
  const char* name;
  base::CodePage page;
};

// In the order of their numbers.
constexpr NamedPage kPages[] = {
    {"UTF-8", 65001},     {"US-ASCII", 20127},  {"ISO8859-1", 28591}, {"ISO8859-2", 28592},
    {"ISO8859-3", 28593}, {"ISO8859-4", 28594}, {"ISO8859-5", 28595}, {"ISO8859-6", 28596},
    {"ISO8859-7", 28597}, {"ISO8859-8", 28598}, {"ISO8859-9", 28599}, {"DOS437", 437},
    {"DOS850", 850},      {"DOS852", 852},      {"DOS855", 855},      {"DOS857", 857},
    {"DOS860", 860},      {"DOS861", 861},      {"DOS863", 863},      {"DOS864", 864},
    {"DOS865", 865},      {"DOS869", 869},      {"DOS932", 932},      {"MAC-ROMAN", 10000},
    {"BIG5", 950},        {"KSC5601", 949},     {"JOHAB", 1361},      {"DOS866", 866},
    {"ANSI_1250", 1250},  {"ANSI_1251", 1251},  {"ANSI_1252", 1252},  {"GB2312", 936},
    {"ANSI_1253", 1253},  {"ANSI_1254", 1254},  {"ANSI_1255", 1255},  {"ANSI_1256", 1256},
    {"ANSI_1257", 1257},  {"ANSI_874", 874},    {"ANSI_932", 932},    {"ANSI_936", 936},
    {"ANSI_949", 949},    {"ANSI_950", 950},    {"ANSI_1361", 1361},  {"UTF-16", 1200},
    {"ANSI_1258", 1258},
};

}  // namespace

std::string codePageName(std::uint16_t number) {
  return number < std::size(kPages) ? kPages[number].name : std::to_string(number);
}

std::optional<base::CodePage> codePageOf(std::uint16_t number) {
  if (number >= std::size(kPages) || !base::isKnownCodePage(kPages[number].page)) return std::nullopt;
  return kPages[number].page;
}

}  // namespace cad::dwg
