// Entities, symbol tables and linetypes by names and result buffers.

#include <algorithm>
#include <iterator>

#include "acdb.h"
#include "acdbads.h"
#include "base/files.h"
#include "base/fold.h"
#include "embedded/drawing/names.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"
#include "embedded/editor/result_buffer.h"
#include "embedded/objects/database_access.h"
#include "embedded/support/linetype_file.h"

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
  id.setNull();
  if (name == nullptr || ads_name_nil(name) || name[1] == -1) return Acad::eInvalidAdsName;
  AcDbObjectId wanted;
  wanted.setFromOldId(name[0]);
  if (!wanted.isValid()) return Acad::eInvalidAdsName;
  id = wanted;
  return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
  ads_name_clear(name);
  if (id.isNull()) return Acad::eNullObjectId;
  name[0] = id.asOldId();
  return Acad::eOk;
}

int acdbEntLast(ads_name result) {
  const cad::Document* document = cad::hostState().documents.current();
  if (document == nullptr || result == nullptr) return RTERROR;
  ads_name_clear(result);
  const cad::RecordId last = cad::drawingOf(*document->database()).lastEntity();
  if (last == cad::kNoRecord) return RTERROR;
  result[0] = cad::idOf(*document->database(), last).asOldId();
  return RTNORM;
}

int acdbEntDel(const ads_name entity) {
  AcDbObjectId id;
  cad::Document* document = cad::hostState().documents.current();
  if (document == nullptr || acdbGetObjectId(id, entity) != Acad::eOk ||
      id.database() != document->database() || cad::needsLock(*document->database()))
    return RTERROR;
  cad::Drawing& drawing = document->drawing();
  const cad::RecordId record = cad::recordOf(id);
  if (record == cad::kNoRecord || drawing.record(record).kind != cad::RecordKind::kEntity) return RTERROR;
  const cad::NameId layer = drawing.name(record, cad::Property::kLayer);
  if (layer != cad::kNoName && drawing.isLayerLocked(layer)) return RTERROR;
  return drawing.setErased(record, !drawing.record(record).erased()).ok() ? RTNORM : RTERROR;
}

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

namespace {

using cad::support::LinetypeLoading;

Acad::ErrorStatus statusOf(LinetypeLoading result) {
  switch (result) {
    case LinetypeLoading::kLoaded:
      return Acad::eOk;
    case LinetypeLoading::kNoFile:
      return Acad::eFileNotFound;
    case LinetypeLoading::kNotInFile:
      return Acad::eUndefinedLineType;
    case LinetypeLoading::kInDrawing:
      return Acad::eDuplicateRecordName;
    case LinetypeLoading::kNoTextStyle:
      return Acad::eKeyNotFound;
    case LinetypeLoading::kNotInThisVersion:
      return Acad::eNotApplicable;
    case LinetypeLoading::kBadDefinition:
      break;
  }
  return Acad::eInvalidInput;
}

// The caller tells what the status says; it does not say where a definition is wrong or which style it lacks.
bool isToldInPart(LinetypeLoading result) {
  return result == LinetypeLoading::kBadDefinition || result == LinetypeLoading::kNoTextStyle;
}

// A shape file that is not where its path says is looked for by its name.
std::filesystem::path findShapeFile(std::wstring_view name) {
  const std::filesystem::path found = cad::findFile(name);
  return found.empty() ? cad::findFile(base::pathText(base::pathFromText(name).filename())) : found;
}

}  // namespace

Acad::ErrorStatus acdbLoadLineTypeFile(const ACHAR* name, const ACHAR* file, AcDbDatabase* database) {
  if (name == nullptr || file == nullptr || *name == 0) return Acad::eInvalidInput;
  if (database == nullptr) return Acad::eNoDatabase;
  if (cad::needsLock(*database)) return Acad::eLockViolation;
  const std::filesystem::path found = cad::findFile(file);
  if (found.empty()) return Acad::eFileNotFound;
  const auto loaded = cad::support::loadLinetypes(cad::drawingOf(*database), name, found, findShapeFile);
  if (isToldInPart(loaded.result)) cad::remark(loaded.failure);
  for (const base::Failure& each : loaded.remarks) cad::remark(each);
  return statusOf(loaded.result);
}
