#include "spec/cvt_diagnostics.h"

#include "spec/text_search_list.h"

namespace kiv {
namespace {

// What holds settings together.
std::wstring structure(CvtProblem problem, const std::wstring& quoted) {
  switch (problem) {
    case CvtProblem::kBraceInLine:
      return L"a brace that does not stand on a line of its own opens and closes nothing";
    case CvtProblem::kStrayBrace:
      return L"this brace has no counterpart; conditions come first, then results between { and }";
    case CvtProblem::kBraceNotClosed:
      return L"no } ends these results; all lines up to the next } or the end of the section count as "
             L"results of the same setting";
    case CvtProblem::kNoResults:
      return L"the setting has no results, so it changes nothing";
    case CvtProblem::kMixedWildcard:
      return L"a setting with conditions applies to what meets them; " + quoted +
             L" stands where there are none";
    default:
      return {};
  }
}

// Lines that are understood.
std::wstring doubt(CvtProblem problem, const std::wstring& quoted) {
  switch (problem) {
    case CvtProblem::kNothingInCommon:
      return L"no object has both this and an earlier value of " + quoted +
             L", so the setting selects nothing; block references, and what their definitions hold with "
             L"block scope 1 or 2, take the values as alternatives";
    case CvtProblem::kNotALayerColor:
      return quoted + L" is no colour of a layer; a layer has a number from 1 to 255";
    case CvtProblem::kCaseLost:
      return L"lines are read in upper case; drawings get " + quoted;
    case CvtProblem::kReadAsOther:
      return L"the value is read as " + quoted;
    case CvtProblem::kImpossibleValue:
      return L"nothing can have the value " + quoted + L"; a condition matches nothing, a result is refused";
    case CvtProblem::kNoName:
      return L"the value is empty; nothing has an empty name";
    case CvtProblem::kOtherSign:
      return quoted + L" is read as " + (quoted.ends_with(L"<>\"") ? L"<>" : L"=");
    case CvtProblem::kReadAsInverted:
      return L"the <> in the value makes this an inverted condition";
    case CvtProblem::kInvertedResult:
      return L"a result cannot be inverted; it is read as = " + quoted;
    case CvtProblem::kTextListMissing:
      return L"the text search list " + quoted +
             L" cannot be opened in the folder of this file; the setting applies to nothing";
    case CvtProblem::kTextListUnusable:
      return quoted + L" is no text search list; the setting applies to nothing";
    case CvtProblem::kTextListCut:
      return L"the text search list " + quoted + L" is too long; only its first " +
             std::to_wstring(kTextSearchListCapacity) + L" texts are used";
    default:
      return structure(problem, quoted);
  }
}

}  // namespace

std::wstring diagnosticReason(const CvtDiagnostic& diagnostic) {
  const std::wstring quoted = L"\"" + diagnostic.detail + L"\"";
  switch (diagnostic.problem) {
    case CvtProblem::kUnknownKey:
      return L"unknown key " + quoted + L"; the line is dropped";
    case CvtProblem::kNoKey:
      return L"not of the form [key] = value or [key] <> value; the line is dropped";
    case CvtProblem::kWrongFieldCount:
      return L"wrong number of fields (" + diagnostic.detail + L"); no layer is created";
    case CvtProblem::kLineTooLong:
      return L"longer than 255 characters; read as several lines";
    case CvtProblem::kOutsideSections:
      return L"text outside any section is ignored";
    case CvtProblem::kSectionNotEnded:
      return L"section " + quoted +
             L" has no ---End---; the lines of the sections behind it count as its own";
    case CvtProblem::kSectionRepeated:
      return L"second occurrence of section " + quoted + L" is ignored";
    case CvtProblem::kBadBytes:
      return L"bytes that are not text of code page 932";
    case CvtProblem::kAfterEmptyLine:
      return L"an empty line ended the list before this line; the entry is lost";
    case CvtProblem::kNoEndOfFile:
      return L"no [EOF]; the file may be cut off";
    case CvtProblem::kNoEffect:
      return L"key " + quoted + L" has no effect in this section";
    case CvtProblem::kAmbiguousValue:
      return L"the value " + quoted + L" holds one of < > , and may not be kept as it is";
    case CvtProblem::kNoSetting:
      return L"no setting to which this result could belong; the line is dropped";
    case CvtProblem::kMatchesEverything:
      return L"no condition of this setting counts, so it applies to everything in its section";
    case CvtProblem::kUnknownSection:
      return L"unknown section " + quoted + L" is ignored";
    case CvtProblem::kNotText:
      return L"this is not a conversion specification in code page 932" +
             (diagnostic.detail.empty() ? std::wstring() : L" (it looks like " + diagnostic.detail + L")");
    case CvtProblem::kUnknownVariable:
      return L"unknown dimension variable " + quoted + L"; it sets nothing";
    case CvtProblem::kExtraOrMissingFields:
      return L"extra or missing fields (" + diagnostic.detail + L" in all)";
    case CvtProblem::kNotAResult:
      return L"key " + quoted + L" cannot be a result; the line is dropped";
    default:
      return doubt(diagnostic.problem, quoted);
  }
}

bool dropsText(CvtProblem problem) {
  switch (problem) {
    case CvtProblem::kUnknownKey:
    case CvtProblem::kNoKey:
    case CvtProblem::kWrongFieldCount:
    case CvtProblem::kOutsideSections:
    case CvtProblem::kSectionRepeated:
    case CvtProblem::kAfterEmptyLine:
    case CvtProblem::kNoSetting:
    case CvtProblem::kUnknownSection:
    case CvtProblem::kNotText:
    case CvtProblem::kNotAResult:
    case CvtProblem::kStrayBrace:
      return true;
    default:
      return false;
  }
}

}  // namespace kiv
