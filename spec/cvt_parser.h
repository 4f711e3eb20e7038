#pragma once
// The grammar of specification files, shared by the editor's reader and the conversion run's reader.
//
// A file is gone through once per section, always from its first line, so sections may stand in any order
// and the first of each name counts. What a pass makes of a line does not depend on the other passes: the
// lines behind a section without end marker belong to that section and to their own as well.

#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "spec/cvt_diagnostics.h"
#include "spec/specification.h"

namespace kiv {

// A condition that names a text search list.
struct CvtTextList {
  std::wstring name;
  int line;
  std::wstring text;  // the line as it stands in the file, trimmed
};

struct CvtPlace {
  int line;
  std::wstring text;  // the line as it stands in the file, trimmed
};
// Where the items of a setting stand.
struct CvtSettingPlaces {
  std::vector<CvtPlace> conditions, results;
};

struct CvtSection {
  bool found = false;
  int linesExamined = 0;                        // between the header and the end
  std::vector<Setting> settings;                // of a rule section; names and colours as the editor has them
  std::vector<CvtSettingPlaces> settingPlaces;  // of the same settings
  // Of a list section; the fields in the order of the line, trimmed. 5: one field when the line has no
  // comma, else two. 7: three or nine, the colour as the editor has it
  // or empty. 8: file, linetype. 9: style, font
  // and, when there is one, big font. 10: one field.
  std::vector<std::vector<std::wstring>> entries;
  std::vector<CvtPlace> entryPlaces;   // of the same entries
  int changingEntries = 0;             // those that have what they need to do something
  std::vector<CvtTextList> textLists;  // that a conversion looks for beside the file
};

struct ParsedCvt {
  std::wstring remark;
  std::array<CvtSection, kSectionCount> sections;
  CvtDiagnostics diagnostics;                  // by line
  std::set<std::wstring> unreadableTextLists;  // known after checkCvtFile()

  int linesExamined() const;
  // Settings with a result that their section heeds, but for those that look for texts of a list that cannot
  // be read, and the entries that do something.
  int changes() const;
  bool hasKnownSection() const;
  // Empty when something of the file can be used; otherwise why not.
  std::wstring unusableReason() const;
};

ParsedCvt parseCvt(std::string_view bytes);

// Failures: those of reading a file.
base::Result<ParsedCvt> parseCvtFile(const std::filesystem::path& file);
// The same with warnings of the text search lists that the file names, and of values that never stay.
base::Result<ParsedCvt> checkCvtFile(const std::filesystem::path& file);

}  // namespace kiv
