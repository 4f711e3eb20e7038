#pragma once
// What the reader of specification files has to say about a file: lines that it drops, and lines that
// probably do not do what their author meant. Collected and returned, never printed here.

#include <string>
#include <vector>

namespace kiv {

// The numbers are shown to users; they are never reused.
enum class CvtProblem {
  kUnknownKey = 1,          // neither an item key nor a dimension variable: the line adds nothing
  kNoKey = 2,               // no "]", or neither "=" nor "<>" after it: the line adds nothing
  kWrongFieldCount = 3,     // a layer to create with neither three nor nine fields: no entry
  kLineTooLong = 4,         // more than 255 characters: read as several lines
  kOutsideSections = 5,     // text before, between or behind the sections
  kSectionNotEnded = 6,     // no end marker
  kSectionRepeated = 7,     // a second occurrence of a section is ignored
  kBadBytes = 8,            // bytes that are not text of the file's code page
  kAfterEmptyLine = 9,      // an empty line ended the list; this entry is lost
  kNoEndOfFile = 10,        // no [EOF]
  kNoEffect = 11,           // the item is kept, but its kind does nothing in this section
  kAmbiguousValue = 12,     // the value holds "<", ">" or ","
  kNoSetting = 13,          // a result that belongs to no setting: the line adds nothing
  kMatchesEverything = 14,  // no condition of the setting counts: it applies to everything
  kUnknownSection = 15,     // a section of another name is ignored with its lines
  kNotText = 16,            // the file looks like UTF-8 or UTF-16, or is not a specification at all
  kUnknownVariable = 17,    // a list line that names no known dimension variable: kept, but it sets nothing
  kExtraFields = 18,        // a list line of more fields than are read
  kNotAResult = 19,         // a kind that is a condition only: the line adds nothing
  kNothingInCommon = 20,    // two conditions that no selected object meets together
  kNotALayerColor = 21,     // a colour that layers cannot have
  kCaseLost = 22,           // drawings get a text or a new name in upper case
  kReadAsInverted = 23,     // "=", but "<>" in the value inverts the condition
  kInvertedResult = 24,     // "<>" in a result: read as "="
  kTextListMissing = 25,    // a text search list is not beside the file, or cannot be opened
  kTextListUnusable = 26,   // a file of that name is no text search list
  kTextListCut = 27,        // a text search list of more texts than a conversion keeps
  kReadAsOther = 28,        // the value is read as another than is written
  kImpossibleValue = 29,    // nothing has such a value
  kNoName = 30,             // an empty name
  kOtherSign = 31,          // more than the sign stands between key and value
  kBraceInLine = 32,        // a brace in a line of a setting is part of it
  kStrayBrace = 33,         // a brace that neither ends results nor begins those of a setting
  kBraceNotClosed = 34,     // the results go on up to the next brace or the end of the section
  kNoResults = 35,          // a setting that changes nothing
  kMixedWildcard = 36,      // [***] in a setting that has conditions
  kMissingFields = 37,      // a list line of too few fields, or with an empty one: kept, but it does nothing
  kTextListEmpty = 38,      // a text search list without a text
  kFileInUtf8 = 39,         // the file is read as UTF-8
  kTextListInUtf8 = 40,     // a text search list is read as UTF-8
  kOverwritten = 41,        // what a result writes never stays
  kNameNotProvided = 42,    // a result's name that some drawing lacks and no list of the file brings
  kNameNotUsed = 43,        // a condition's name that no drawing has
  kLayerNotNamed = 44,      // a layer setting without the condition that the dialog wants
  kAlreadyThere = 45,       // a list line for what an earlier one makes or loads
};
inline constexpr CvtProblem kLastCvtProblem = CvtProblem::kAlreadyThere;

struct CvtDiagnostic {
  CvtProblem problem;
  int line = 0;         // 1-based line of the file; 0: the whole file
  std::wstring text;    // the line as it stands in the file, trimmed; may be empty
  std::wstring detail;  // the key, section or characters that it is about; may be empty
  std::wstring rest{};  // what the sentence says behind that; mostly empty
};

// One English sentence without the line number.
std::wstring diagnosticReason(const CvtDiagnostic& diagnostic);

// True when the line adds nothing to the specification; false for mere warnings.
bool dropsText(CvtProblem problem);

using CvtDiagnostics = std::vector<CvtDiagnostic>;

// Those of the whole file last.
void orderByLine(CvtDiagnostics& diagnostics);

}  // namespace kiv
