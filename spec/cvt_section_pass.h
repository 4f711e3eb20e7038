#pragma once
// One of the ten passes over a specification file: the lines of one section.

#include <string>

#include "spec/cvt_lines.h"
#include "spec/cvt_parser.h"

namespace kiv {

class CvtSectionPass {
 public:
  // Everything handed in must outlive the pass. `remark` is shared by the passes: the first that meets one
  // in front of its section keeps it.
  CvtSectionPass(int section, const std::vector<CvtLine>& lines, std::wstring& remark,
                 CvtDiagnostics& diagnostics);

  CvtSection run();

 private:
  enum class Next { kGoOn, kEnd };

  size_t findHeader();
  Next takeLine(const CvtLine& line);
  void takeRuleLine(const CvtLine& line);
  void openResults(const CvtLine& line);
  void closeResults(const CvtLine& line);
  void takeItem(const CvtLine& line);
  bool takeCondition(const CvtLine& line);
  bool takeResult(const CvtLine& line);
  bool readItem(const CvtLine& line, bool asResult, Item& item);
  void endSetting();
  void checkSetting(const Setting& setting);
  void takeListLine(const CvtLine& line);
  void takeLayer(const CvtLine& line);
  bool checkVariable(const CvtLine& line, size_t fieldsKept);
  void checkValue(const CvtLine& line, int kind, const std::wstring& variable, const std::wstring& value);
  void addEntry(const CvtLine& line, std::vector<std::wstring> fields);
  void reportLostEntries(size_t from);
  void report(CvtProblem problem, const CvtLine& line, std::wstring detail = {});

  const SectionInfo& info_;
  const std::vector<CvtLine>& lines_;
  std::wstring& remark_;
  CvtDiagnostics& diagnostics_;
  CvtSection section_;
  bool hasCurrent_ = false;          // the last of section_.settings is being read
  bool anyItem_ = false;             // in the whole pass
  bool wildcard_ = false;            // the current setting says itself that it applies to everything
  const CvtLine* opened_ = nullptr;  // the line that opened the current setting
  const CvtLine* brace_ = nullptr;   // the { whose } has not come yet
};

}  // namespace kiv
