#include "cli/reports/report_page.h"

#include "cli/reports/report_page_texts.h"

namespace kivcli {
namespace {

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

// Nothing in it ends the element that it stands in.
std::string asScriptData(std::string_view json) {
  std::string out;
  out.reserve(json.size());
  for (const char c : json) {
    if (c == '<')
      out += "\\u003c";
    else
      out += c;
  }
  return out;
}

}  // namespace

std::string reportPage(const PageHead& head, std::string_view data) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"" + escaped(head.language) +
      "\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src data:; "
      "style-src 'unsafe-inline'; script-src 'unsafe-inline'\">\n"
      "<meta name=\"viewport\" content=\"width=device-width\">\n"
      "<link rel=\"icon\" href=\"data:,\">\n<title>" +
      escaped(head.title) + "</title>\n<style>";
  page.append(kStyle).append("</style>\n</head>\n<body>\n<h1>" + escaped(head.title) + "</h1>\n<dl>");
  for (const auto& [name, value] : head.facts)
    page += "<dt>" + escaped(name) + "</dt><dd>" + escaped(value) + "</dd>";
  page += "</dl>\n";
  for (const std::string& remark : head.remarks) page += "<p class=\"remark\">" + escaped(remark) + "</p>\n";
  page +=
      "<div class=\"totals\" id=\"totals\"></div>\n<nav id=\"places\"></nav>\n"
      "<section id=\"s-problems\"><h2></h2><table id=\"problems\"></table></section>\n"
      "<section id=\"s-drawings\"><h2></h2><div class=\"tools\"><input id=\"name\" type=\"search\">"
      "<select id=\"state\"></select><span class=\"count\" id=\"shown\"></span></div>\n"
      "<table id=\"drawings\"></table></section>\n"
      "<section id=\"s-settings\"><h2></h2><table id=\"settings\"></table></section>\n"
      "<script type=\"application/json\" id=\"data\">";
  page += asScriptData(data);
  page.append("</script>\n<script>").append(kScript).append("</script>\n</body>\n</html>\n");
  return page;
}

}  // namespace kivcli
