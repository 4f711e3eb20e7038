#include "spec/cvt_parser.h"

#include <algorithm>

#include "base/files.h"
#include "spec/cvt_lines.h"
#include "spec/cvt_overwritten.h"
#include "spec/cvt_section_pass.h"
#include "spec/text_search_list.h"

namespace kiv {
namespace {

// Finds what no pass looks at: text between the sections, sections of other names, repetitions.
class OutlineCheck {
 public:
  OutlineCheck(const std::vector<CvtLine>& lines, CvtDiagnostics& diagnostics)
      : lines_(lines), diagnostics_(diagnostics) {}

  void run() {
    size_t at = 0;
    for (; at < lines_.size() && lines_[at].folded != kEndOfFile; ++at) {
      const CvtLine& line = lines_[at];
      if (line.text.empty()) continue;
      if (inside_) {
        inside_ = line.folded != kFoldedEndOfSection;
      } else if (line.folded == kRemarkHeader) {
        takeRemark(++at);
      } else {
        takeOutside(line);
      }
    }
    if (at >= lines_.size()) {
      diagnostics_.push_back({CvtProblem::kNoEndOfFile, 0, {}, {}});
      return;
    }
    for (++at; at < lines_.size(); ++at) {
      if (!lines_[at].text.empty()) report(CvtProblem::kOutsideSections, lines_[at]);
    }
  }

 private:
  // The first one that says something is kept.
  void takeRemark(size_t at) {
    if (at >= lines_.size() || lines_[at].text.empty()) return;
    if (hasRemark_) report(CvtProblem::kOutsideSections, lines_[at]);
    hasRemark_ = true;
  }

  void takeOutside(const CvtLine& line) {
    for (const SectionInfo& info : sections()) {
      if (line.folded != info.header) continue;
      bool& seen = seen_[static_cast<size_t>(info.number - 1)];
      if (seen) report(CvtProblem::kSectionRepeated, line, info.name);
      seen = true;
      inside_ = true;
      return;
    }
    const bool header = line.text.front() == L'[' && line.text.back() == L']';
    if (!header) {
      report(CvtProblem::kOutsideSections, line);
      return;
    }
    report(CvtProblem::kUnknownSection, line, line.text.substr(1, line.text.size() - 2));
    inside_ = true;
  }

  void report(CvtProblem problem, const CvtLine& line, std::wstring detail = {}) {
    diagnostics_.push_back({problem, line.number, line.text, std::move(detail)});
  }

  const std::vector<CvtLine>& lines_;
  CvtDiagnostics& diagnostics_;
  std::array<bool, kSectionCount> seen_{};
  bool inside_ = false;
  bool hasRemark_ = false;
};

std::vector<CvtProblem> problemsOf(const std::filesystem::path& folder, const std::wstring& textList) {
  const auto loaded = loadTextSearchList(folder, textList);
  if (!loaded.ok()) {
    const bool isForeign = loaded.failure().kind == base::FailureKind::kForeignContent;
    return {isForeign ? CvtProblem::kTextListUnusable : CvtProblem::kTextListMissing};
  }
  std::vector<CvtProblem> problems;
  if (loaded.value().isUtf8) problems.push_back(CvtProblem::kTextListInUtf8);
  if (loaded.value().texts.empty()) problems.push_back(CvtProblem::kTextListEmpty);
  if (loaded.value().isCut) problems.push_back(CvtProblem::kTextListCut);
  return problems;
}

void checkTextList(const std::filesystem::path& folder, const CvtTextList& list, ParsedCvt& parsed) {
  for (const CvtProblem problem : problemsOf(folder, list.name)) {
    parsed.diagnostics.push_back({problem, list.line, list.text, list.name});
    if (problem == CvtProblem::kTextListMissing || problem == CvtProblem::kTextListUnusable)
      parsed.unreadableTextLists.insert(list.name);
  }
}

}  // namespace

int ParsedCvt::linesExamined() const {
  int count = 0;
  for (const CvtSection& section : sections) count += section.linesExamined;
  return count;
}

int ParsedCvt::changes() const {
  int count = 0;
  for (const SectionInfo& info : kiv::sections()) {
    const CvtSection& section = sections[static_cast<size_t>(info.number - 1)];
    const auto hasEffectHere = [&](const Item& result) { return hasEffect(result.kind, info.number, true); };
    const auto appliesToNothing = [&](const Item& condition) {
      return condition.kind == kTextListKind && hasEffect(condition.kind, info.number, false) &&
             unreadableTextLists.contains(condition.value);
    };
    count += section.changingEntries;
    for (const Setting& setting : section.settings) {
      count += std::ranges::any_of(setting.results, hasEffectHere) &&
                       std::ranges::none_of(setting.conditions, appliesToNothing)
                   ? 1
                   : 0;
    }
  }
  return count;
}

bool ParsedCvt::hasKnownSection() const {
  return std::any_of(sections.begin(), sections.end(),
                     [](const CvtSection& section) { return section.found; });
}

std::wstring ParsedCvt::unusableReason() const {
  if (hasKnownSection()) return {};
  for (const CvtDiagnostic& diagnostic : diagnostics) {
    if (diagnostic.problem == CvtProblem::kNotText) return diagnosticReason(diagnostic);
  }
  return L"this is not a conversion specification";
}

ParsedCvt parseCvt(std::string_view bytes) {
  ParsedCvt parsed;
  const std::vector<CvtLine> lines = cvtLines(bytes, parsed.diagnostics);
  for (const SectionInfo& info : sections()) {
    CvtSectionPass pass(info.number, lines, parsed.remark, parsed.diagnostics);
    parsed.sections[static_cast<size_t>(info.number - 1)] = pass.run();
  }
  if (!parsed.hasKnownSection()) {
    // One sentence about the file says more than one about each of its lines.
    parsed.diagnostics = {{CvtProblem::kNotText, 0, {}, otherEncoding(bytes)}};
    return parsed;
  }
  OutlineCheck(lines, parsed.diagnostics).run();
  orderByLine(parsed.diagnostics);
  return parsed;
}

base::Result<ParsedCvt> parseCvtFile(const std::filesystem::path& file) {
  const auto content = base::readFile(file);
  if (!content.ok()) return content.failure();
  return parseCvt(content.value());
}

base::Result<ParsedCvt> checkCvtFile(const std::filesystem::path& file) {
  auto parsed = parseCvtFile(file);
  if (!parsed.ok()) return parsed;
  for (const CvtSection& section : parsed.value().sections) {
    for (const CvtTextList& list : section.textLists) checkTextList(file.parent_path(), list, parsed.value());
  }
  findOverwritten(parsed.value());
  orderByLine(parsed.value().diagnostics);
  return parsed;
}

}  // namespace kiv
