#include "spec/cvt_format.h"

#include <algorithm>
#include <utility>

#include "base/files.h"
#include "base/fold.h"
#include "base/text_files.h"
#include "spec/cvt_parser.h"
#include "spec/cvt_reader.h"
#include "spec/cvt_writer.h"

namespace kiv {
namespace {

bool isSame(const std::vector<Item>& a, const std::vector<Item>& b) {
  return std::ranges::equal(a, b, [](const Item& left, const Item& right) {
    return left.kind == right.kind && left.inverted == right.inverted && left.variable == right.variable &&
           left.value == right.value;
  });
}

bool isSame(const Specification& a, const Specification& b) {
  if (a.remark != b.remark) return false;
  for (int number = 1; number <= kSectionCount; ++number) {
    const bool same =
        std::ranges::equal(a.settings(number), b.settings(number),
                           [](const Setting& left, const Setting& right) {
                             return isSame(left.conditions, right.conditions) &&
                                    isSame(left.results, right.results);
                           }) &&
        std::ranges::equal(a.entries(number), b.entries(number), {}, &Entry::fields, &Entry::fields);
    if (!same) return false;
  }
  return true;
}

bool staysSame(const Specification& specification) {
  return isSame(specification, specificationOf(parseCvt(base::encodeText(cvtText(specification)).bytes)));
}

void removeSettingsWithoutResults(Specification& specification) {
  for (int number = 1; number <= kSectionCount; ++number) {
    for (int at = static_cast<int>(specification.settings(number).size()); at-- > 0;) {
      if (specification.settings(number)[static_cast<std::size_t>(at)].results.empty())
        static_cast<void>(specification.remove(Node::of(number, at)));
    }
  }
}

bool isLost(const CvtDiagnostic& diagnostic) {
  return dropsText(diagnostic.problem) || diagnostic.problem == CvtProblem::kExtraFields;
}

// Warnings of what a line says that come to an end when what it is read as is written in its place.
bool isOfReading(CvtProblem problem) {
  return problem == CvtProblem::kReadAsOther || problem == CvtProblem::kInvertedResult ||
         problem == CvtProblem::kReadAsInverted || problem == CvtProblem::kOtherSign ||
         problem == CvtProblem::kImpossibleValue || problem == CvtProblem::kNotALayerColor;
}

bool isSaidAgain(const CvtDiagnostic& diagnostic, const CvtDiagnostics& others) {
  return std::ranges::any_of(others, [&](const CvtDiagnostic& other) {
    return other.problem == diagnostic.problem && base::equalFolded(other.detail, diagnostic.detail);
  });
}

// Lines whose mistake nobody would see any more.
void addHardened(const ParsedCvt& parsed, const Specification& specification, CvtDiagnostics& lost) {
  const CvtDiagnostics after = parseCvt(base::encodeText(cvtText(specification)).bytes).diagnostics;
  for (const CvtDiagnostic& diagnostic : parsed.diagnostics) {
    if (isOfReading(diagnostic.problem) && !isSaidAgain(diagnostic, after)) lost.push_back(diagnostic);
  }
  orderByLine(lost);
}

}  // namespace

base::Result<FormattedCvt> formatCvtFile(const std::filesystem::path& file, bool drop) {
  const auto content = base::readFile(file);
  if (!content.ok()) return content.failure();
  const ParsedCvt parsed = parseCvt(content.value());
  if (const std::wstring reason = parsed.unusableReason(); !reason.empty()) {
    return base::Failure{base::pathText(file), reason};
  }
  FormattedCvt formatted;
  formatted.specification = specificationOf(parsed);
  std::ranges::copy_if(parsed.diagnostics, std::back_inserter(formatted.lost), isLost);
  addHardened(parsed, formatted.specification, formatted.lost);
  if (!staysSame(formatted.specification)) {
    const auto changesNothing = [](const CvtDiagnostic& d) { return d.problem == CvtProblem::kNoResults; };
    std::ranges::copy_if(parsed.diagnostics, std::back_inserter(formatted.lost), changesNothing);
    orderByLine(formatted.lost);
    Specification rest = formatted.specification;
    removeSettingsWithoutResults(rest);
    if (!staysSame(rest)) {
      return base::Failure{base::pathText(file),
                           L"read again after saving, this file would not say the same"};
    }
    if (drop) formatted.specification = std::move(rest);
  }
  const std::wstring text = cvtText(formatted.specification);
  formatted.isInForm = content.value() == base::encodeText(text).bytes;
  return formatted;
}

}  // namespace kiv
