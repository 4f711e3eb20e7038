#include "spec/cvt_diagnostics.h"

#include <algorithm>
#include <iterator>

#include "spec/text_search_list.h"

namespace kiv {
namespace {

enum class Effect { kWarns, kDrops };

struct Row {
  CvtProblem problem;
  Effect effect;
  const wchar_t* reason;  // "%" stands for the detail
};

constexpr Row kRows[] = {
    {CvtProblem::kUnknownKey, Effect::kDrops, L"unknown key \"%\"; the line is dropped"},
    {CvtProblem::kNoKey, Effect::kDrops,
     L"not of the form [key] = value or [key] <> value; the line is dropped"},
    {CvtProblem::kWrongFieldCount, Effect::kDrops, L"wrong number of fields (%); no layer is created"},
    {CvtProblem::kLineTooLong, Effect::kWarns, L"longer than 255 characters; read as several lines"},
    {CvtProblem::kOutsideSections, Effect::kDrops, L"text outside any section is ignored"},
    {CvtProblem::kSectionNotEnded, Effect::kWarns,
     L"section \"%\" has no ---End---; the lines of the sections behind it count as its own"},
    {CvtProblem::kSectionRepeated, Effect::kDrops, L"second occurrence of section \"%\" is ignored"},
    {CvtProblem::kBadBytes, Effect::kWarns, L"bytes that are not text of %"},
    {CvtProblem::kAfterEmptyLine, Effect::kDrops,
     L"an empty line ended the list before this line; the entry is lost"},
    {CvtProblem::kNoEndOfFile, Effect::kWarns, L"no [EOF]; the file may be cut off"},
    {CvtProblem::kNoEffect, Effect::kWarns, L"key \"%\" has no effect in this section"},
    {CvtProblem::kAmbiguousValue, Effect::kWarns,
     L"the value \"%\" holds one of < > , and may not be kept as it is"},
    {CvtProblem::kNoSetting, Effect::kDrops,
     L"no setting to which this result could belong; the line is dropped"},
    {CvtProblem::kMatchesEverything, Effect::kWarns,
     L"no condition of this setting counts, so it applies to everything in its section"},
    {CvtProblem::kUnknownSection, Effect::kDrops, L"unknown section \"%\" is ignored"},
    {CvtProblem::kNotText, Effect::kDrops, L"this is not a conversion specification in code page 932"},
    {CvtProblem::kUnknownVariable, Effect::kWarns, L"unknown dimension variable \"%\"; it sets nothing"},
    {CvtProblem::kExtraFields, Effect::kWarns, L"extra fields; only the first % are read"},
    {CvtProblem::kNotAResult, Effect::kDrops, L"key \"%\" cannot be a result; the line is dropped"},
    {CvtProblem::kNothingInCommon, Effect::kWarns,
     L"no object has both this and an earlier value of \"%\", so the setting selects nothing; block "
     L"references, and what their definitions hold with block scope 1 or 2, take the values as alternatives"},
    {CvtProblem::kNotALayerColor, Effect::kWarns,
     L"\"%\" is no colour of a layer; a layer has a number from 1 to 255"},
    {CvtProblem::kCaseLost, Effect::kWarns, L"lines are read in upper case; drawings get \"%\""},
    {CvtProblem::kReadAsInverted, Effect::kWarns, L"the <> in the value makes this an inverted condition"},
    {CvtProblem::kInvertedResult, Effect::kWarns, L"a result cannot be inverted; it is read as = \"%\""},
    {CvtProblem::kTextListMissing, Effect::kWarns,
     L"the text search list \"%\" cannot be opened in the folder of this file; the setting applies to "
     L"nothing"},
    {CvtProblem::kTextListUnusable, Effect::kWarns,
     L"\"%\" is no text search list; the setting applies to nothing"},
    {CvtProblem::kTextListCut, Effect::kWarns, L"the text search list \"%\" is too long; only its first "},
    {CvtProblem::kReadAsOther, Effect::kWarns, L"the value is read as \"%\""},
    {CvtProblem::kImpossibleValue, Effect::kWarns,
     L"nothing can have the value \"%\"; a condition matches nothing, a result is refused"},
    {CvtProblem::kNoName, Effect::kWarns, L"the value is empty; nothing has an empty name"},
    {CvtProblem::kOtherSign, Effect::kWarns, L"\"%\" is read as "},
    {CvtProblem::kBraceInLine, Effect::kWarns,
     L"a brace that does not stand on a line of its own opens and closes nothing"},
    {CvtProblem::kStrayBrace, Effect::kDrops,
     L"this brace has no counterpart; conditions come first, then results between { and }"},
    {CvtProblem::kBraceNotClosed, Effect::kWarns,
     L"no } ends these results; all lines up to the next } or the end of the section count as results of the "
     L"same setting"},
    {CvtProblem::kNoResults, Effect::kWarns, L"the setting has no results, so it changes nothing"},
    {CvtProblem::kMixedWildcard, Effect::kWarns,
     L"a setting with conditions applies to what meets them; \"%\" stands where there are none"},
    {CvtProblem::kMissingFields, Effect::kWarns, L"a field is missing or empty; the line does nothing"},
    {CvtProblem::kTextListEmpty, Effect::kWarns,
     L"the text search list \"%\" holds no text; nothing is found by it"},
    {CvtProblem::kFileInUtf8, Effect::kWarns,
     L"the file is in UTF-8 and is read so; the dialog, and `kivcvt fmt`, save it in code page 932"},
    {CvtProblem::kTextListInUtf8, Effect::kWarns,
     L"the text search list \"%\" is in UTF-8 and is read so; the dialog saves it in code page 932"},
    {CvtProblem::kOverwritten, Effect::kWarns,
     L"this value never stays; line % writes another one to all that this setting applies to"},
    {CvtProblem::kNameNotProvided, Effect::kWarns,
     L"no list of this file brings \"%\", and it is missing in "},
    {CvtProblem::kNameNotUsed, Effect::kWarns, L"no drawing that was given has anything named \"%\""},
    {CvtProblem::kLayerNotNamed, Effect::kWarns,
     L"a setting of layers without a condition on 画層 cannot be saved; 画層 = * stands for all"},
    {CvtProblem::kAlreadyThere, Effect::kWarns,
     L"line % makes or loads what is named so; this line changes nothing"},
};

constexpr std::size_t placeOf(CvtProblem problem) { return static_cast<std::size_t>(problem) - 1; }

constexpr bool hasEveryRowAtItsPlace() {
  for (std::size_t place = 0; place < std::size(kRows); ++place)
    if (placeOf(kRows[place].problem) != place) return false;
  return std::size(kRows) == placeOf(kLastCvtProblem) + 1;
}
static_assert(hasEveryRowAtItsPlace());

// What a sentence says behind its detail.
std::wstring endOfReason(const CvtDiagnostic& diagnostic) {
  const std::wstring& detail = diagnostic.detail;
  if (diagnostic.problem == CvtProblem::kOtherSign) return detail.ends_with(L"<>") ? L"<>" : L"=";
  if (diagnostic.problem == CvtProblem::kTextListCut)
    return std::to_wstring(kTextSearchListCapacity) + L" texts are used";
  const bool looksLikeOther = diagnostic.problem == CvtProblem::kNotText && !detail.empty();
  return looksLikeOther ? L" (it looks like " + detail + L")" : diagnostic.rest;
}

}  // namespace

std::wstring diagnosticReason(const CvtDiagnostic& diagnostic) {
  std::wstring reason = kRows[placeOf(diagnostic.problem)].reason;
  const std::size_t at = reason.find(L'%');
  if (at != reason.npos) reason.replace(at, 1, diagnostic.detail);
  return reason + endOfReason(diagnostic);
}

bool dropsText(CvtProblem problem) { return kRows[placeOf(problem)].effect == Effect::kDrops; }

void orderByLine(CvtDiagnostics& diagnostics) {
  const auto place = [](const CvtDiagnostic& d) { return d.line == 0 ? 1 << 30 : d.line; };
  std::stable_sort(diagnostics.begin(), diagnostics.end(),
                   [&](const CvtDiagnostic& a, const CvtDiagnostic& b) { return place(a) < place(b); });
}

}  // namespace kiv
