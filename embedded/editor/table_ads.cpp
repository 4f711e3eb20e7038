#include <algorithm>
#include <iterator>

#include "acdbads.h"
#include "base/fold.h"
#include "embedded/drawing/record_names.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/result_buffer.h"

namespace cad {
namespace {

struct TableName {
  const wchar_t* name;
  Table table;
};
constexpr TableName kTables[] = {
    {L"LAYER", Table::kLayer}, {L"LTYPE", Table::kLinetype},    {L"STYLE", Table::kTextStyle},
    {L"BLOCK", Table::kBlock}, {L"DIMSTYLE", Table::kDimStyle}, {L"APPID", Table::kAppId},
    {L"VIEW", Table::kView},   {L"UCS", Table::kUcs},           {L"VPORT", Table::kViewport},
};

class RecordList {
 public:
  RecordList(const Drawing& drawing, RecordId record) : drawing_(drawing), record_(record) {}

  void text(int code, Property property) {
    if (const auto value = drawing_.text(record_, property)) chain_.text(code, *value);
  }
  void name(int code, Property property, const wchar_t* otherwise) {
    const NameId value = drawing_.name(record_, property);
    chain_.text(code, value == kNoName ? otherwise : drawing_.names().text(value).c_str());
  }
  void real(int code, Property property, double otherwise) {
    chain_.real(code, drawing_.real(record_, property).value_or(otherwise));
  }
  void integer(int code, Property property, std::int64_t otherwise) {
    chain_.integer(code, static_cast<int>(drawing_.integer(record_, property).value_or(otherwise)));
  }
  ResultChain& chain() { return chain_; }

 private:
  const Drawing& drawing_;
  RecordId record_;
  ResultChain chain_;
};

resbuf* listOf(const Drawing& drawing, const TableName& table, RecordId record) {
  RecordList list(drawing, record);
  list.chain().text(0, table.name);
  list.text(2, Property::kName);
  list.integer(70, Property::kStandardFlags, 0);
  switch (table.table) {
    case Table::kLayer:
      list.integer(62, Property::kLayerColor, 7);
      list.name(6, Property::kLayerLinetype, L"Continuous");
      break;
    case Table::kLinetype:
      list.text(3, Property::kDescription);
      break;
    case Table::kTextStyle:
      list.real(40, Property::kFixedHeight, 0);
      list.real(41, Property::kStyleWidthFactor, 1);
      list.real(50, Property::kStyleOblique, 0);
      list.text(3, Property::kFontFile);
      list.text(4, Property::kBigFontFile);
      break;
    default:
      break;
  }
  return list.chain().release();
}

const TableName* findTable(const ACHAR* table) {
  if (table == nullptr) return nullptr;
  const auto found = std::find_if(std::begin(kTables), std::end(kTables),
                                  [&](const TableName& each) { return base::equalFolded(each.name, table); });
  return found == std::end(kTables) ? nullptr : found;
}

}  // namespace
}  // namespace cad

resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int) {
  cad::Document* document = cad::hostState().documents.current();
  const cad::TableName* found = cad::findTable(table);
  if (document == nullptr || found == nullptr || name == nullptr) return nullptr;
  const cad::RecordId record = document->drawing().find(found->table, name);
  return record == cad::kNoRecord ? nullptr : cad::listOf(document->drawing(), *found, record);
}

resbuf* acdbTblNext(const ACHAR* table, int rewind) {
  static std::size_t positions[std::size(cad::kTables)] = {};
  cad::Document* document = cad::hostState().documents.current();
  const cad::TableName* found = cad::findTable(table);
  if (document == nullptr || found == nullptr) return nullptr;
  std::size_t& position = positions[found - cad::kTables];
  if (rewind != 0) position = 0;
  const std::vector<cad::RecordId>& records = document->drawing().tableRecords(found->table);
  return position < records.size() ? cad::listOf(document->drawing(), *found, records[position++]) : nullptr;
}

int acdbSNValid(const ACHAR* name, int pipeTest) {
  return name != nullptr && cad::isRecordName(name, pipeTest != 0) ? RTNORM : RTERROR;
}
