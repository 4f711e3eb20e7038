#include "embedded/dxf/assembler.h"

#include <algorithm>
#include <array>
#include <utility>

namespace cad::dxf {
namespace {

constexpr std::uint64_t kLongestRecord = 0xFFFFFF00;  // offsets within a record are 32 bits
constexpr std::size_t kMostRecords = 0xFFFFFF00;

Table tableOf(std::string_view type) {
  static constexpr std::pair<std::string_view, Table> kTypes[] = {
      {"LAYER", Table::kLayer},       {"LTYPE", Table::kLinetype}, {"STYLE", Table::kTextStyle},
      {"DIMSTYLE", Table::kDimStyle}, {"APPID", Table::kAppId},    {"VIEW", Table::kView},
      {"UCS", Table::kUcs},           {"VPORT", Table::kViewport}, {"BLOCK_RECORD", Table::kBlockRecord}};
  for (const auto& [name, table] : kTypes) {
    if (equalNoCase(name, type)) return table;
  }
  return Table::kNone;
}

void setOnce(RecordId& slot, RecordId id) {
  if (slot == kNoRecord) slot = id;
}

}  // namespace

constexpr Assembler::DullCodes Assembler::kDull = dullInEntities(true);
constexpr Assembler::DullCodes Assembler::kDullBehindHandle = dullInEntities(false);

bool Assembler::begin(std::string_view value, std::uint64_t offset) {
  std::string_view type = trimmed(value);
  if (open_ && place_ == Place::kEntities && plainTypes_.holds(type)) return beginPlain(type, offset);
  if (std::ranges::any_of(type, [](char c) { return c != asciiUpper(c); })) {
    upperType_.assign(type);
    for (char& c : upperType_) c = asciiUpper(c);
    type = upperType_;
  }
  if (!open_ && loaded_.records.empty() && type != "SECTION" && type != "EOF") {
    failure_ = L"This is neither a DXF nor a DWG drawing: it does not begin with a section";
    return false;
  }
  if (!open_ && offset > 0) {
    record_ = Record{};
    open_ = true;
  }
  if (open_ && !close(offset)) return false;
  record_ = Record{};
  record_.offset = offset;
  open_ = named_ = true;
  entity_ = layerNames_ = false;
  classify(type);
  beginGroups();
  sawEnd_ = type == "EOF";
  sectionEnded_ = type == "ENDSEC";
  return !sawEnd_;
}

bool Assembler::beginPlain(std::string_view type, std::uint64_t offset) {
  if (!close(offset)) return false;
  record_ = Record{};
  record_.offset = offset;
  record_.owner = LoadedRecords::kInModelSpace;
  record_.kind = RecordKind::kEntity;
  entity_ = named_ = true;
  layerNames_ = false;
  main_ = kNoRecord;
  reader_.begin(type);
  beginGroups();
  return true;
}

bool Assembler::close(std::uint64_t end) {
  if (end - record_.offset > kLongestRecord || loaded_.records.size() >= kMostRecords) {
    failure_ = L"The record is longer than 4 gigabytes, or there are too many records";
    return false;
  }
  record_.length = static_cast<std::uint32_t>(end - record_.offset);
  if (entity_) {
    SignatureId& signature = signatures_.find(reader_.fields());
    if (signature == 0) signature = loaded_.signatures.intern(reader_.finish(loaded_.names, dialect_));
    record_.signature = signature;
    layerNames_ = reader_.namesLayers();
    if (reader_.straying()) record_.flags |= kStraying;
    const bool ownedByModelSpace =
        record_.kind == RecordKind::kEntity && record_.owner == LoadedRecords::kInModelSpace;
    if (ownedByModelSpace && reader_.inPaperSpace(dialect_)) record_.owner = LoadedRecords::kInPaperSpace;
  }
  if (layerNames_) record_.flags |= Record::kMarked;
  loaded_.records.push_back(record_);
  return true;
}

void Assembler::finish(std::uint64_t end, std::uint64_t size) {
  if (open_) close(sawEnd_ ? size : end);
  open_ = false;
  handles_.tell(frame_);
  if (sawEnd_) return;
  // Where EOF would stand, new sections are placed before what is there instead, if only no bytes.
  record_ = Record{};
  record_.offset = end;
  record_.length = static_cast<std::uint32_t>(std::min(size - end, kLongestRecord));
  record_.kind = RecordKind::kFrame;
  frame_.endOfFile = static_cast<RecordId>(loaded_.records.size());
  loaded_.records.push_back(record_);
}

bool Assembler::isWholeWithoutEnd() const {
  return sectionEnded_ && frame_.sectionEnd[index(Section::kEntities)] != kNoRecord;
}

void Assembler::classify(std::string_view type) {
  if (type == "SECTION" || type == "ENDSEC" || type == "EOF") return classifyFrame(type);
  switch (place_) {
    case Place::kTables:
      return classifyTable(type);
    case Place::kBlocks:
      return classifyBlock(type);
    case Place::kEntities:
      record_.owner = LoadedRecords::kInModelSpace;
      return classifyEntity(type);
    case Place::kObjects:
      record_.kind = RecordKind::kObject;
      return;
    default:
      return;
  }
}

void Assembler::classifyFrame(std::string_view type) {
  static constexpr std::pair<Place, Section> kSections[] = {{Place::kHeader, Section::kHeader},
                                                            {Place::kTables, Section::kTables},
                                                            {Place::kBlocks, Section::kBlocks},
                                                            {Place::kEntities, Section::kEntities},
                                                            {Place::kObjects, Section::kObjects}};
  const auto id = static_cast<RecordId>(loaded_.records.size());
  record_.kind = RecordKind::kFrame;
  main_ = block_ = kNoRecord;
  if (type == "SECTION") {
    named_ = false;
  } else if (type == "EOF") {
    frame_.endOfFile = id;
  } else {
    for (const auto& [place, section] : kSections) {
      if (place == place_) setOnce(frame_.sectionEnd[index(section)], id);
    }
  }
  place_ = Place::kOutside;
}

void Assembler::name(std::string_view value) {
  static constexpr std::pair<std::string_view, Place> kNames[] = {{"HEADER", Place::kHeader},
                                                                  {"TABLES", Place::kTables},
                                                                  {"BLOCKS", Place::kBlocks},
                                                                  {"ENTITIES", Place::kEntities},
                                                                  {"OBJECTS", Place::kObjects}};
  value = trimmed(value);
  const auto id = static_cast<RecordId>(loaded_.records.size());
  if (record_.kind == RecordKind::kTable) {
    const Table table = tableOf(value);
    record_.table = table_ = table;
    if (table != Table::kNone) setOnce(frame_.tableHead[index(table)], id);
    return;
  }
  place_ = Place::kUnknown;
  for (std::size_t i = 0; i < std::size(kNames); ++i) {
    if (!equalNoCase(kNames[i].first, value)) continue;
    place_ = kNames[i].second;
    setOnce(frame_.sectionBegin[i], id);
  }
}

void Assembler::classifyTable(std::string_view type) {
  if (type == "TABLE" || type == "ENDTAB") {
    const bool begins = type == "TABLE";
    record_.kind = begins ? RecordKind::kTable : RecordKind::kFrame;
    named_ = !begins;
    if (!begins && table_ != Table::kNone) {
      setOnce(frame_.tableEnd[index(table_)], static_cast<RecordId>(loaded_.records.size()));
    }
    table_ = Table::kNone;
    return;
  }
  record_.table = tableOf(type);
  if (record_.table != Table::kNone) record_.kind = RecordKind::kTableRecord;
}

void Assembler::classifyBlock(std::string_view type) {
  if (type == "BLOCK") {
    block_ = static_cast<RecordId>(loaded_.records.size());
    main_ = kNoRecord;
    blocks_.push_back(block_);
    record_.kind = RecordKind::kBlockBegin;
    record_.table = Table::kBlock;
  } else if (type == "ENDBLK" && block_ != kNoRecord) {
    record_.kind = RecordKind::kBlockEnd;
    record_.owner = block_;
    block_ = main_ = kNoRecord;
  } else if (block_ != kNoRecord) {
    record_.owner = block_;
    return classifyEntity(type);
  } else {
    return;
  }
  entity_ = true;
  reader_.begin(type == "BLOCK" ? "BLOCK" : "ENDBLK");
}

bool Assembler::isSubRecord(std::string_view type) {
  return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

void Assembler::classifyEntity(std::string_view type) {
  entity_ = true;
  if (isSubRecord(type)) {
    record_.kind = RecordKind::kSubEntity;
    const bool fits = main_ != kNoRecord && (type == "SEQEND" || mainIsInsert_ == (type == "ATTRIB"));
    record_.owner = fits ? main_ : kNoRecord;
    if (type == "SEQEND" || !fits) main_ = kNoRecord;
  } else {
    record_.kind = RecordKind::kEntity;
    mainIsInsert_ = type == "INSERT";
    main_ = mainIsInsert_ || type == "POLYLINE" ? static_cast<RecordId>(loaded_.records.size()) : kNoRecord;
    if (main_ == kNoRecord && type.data() != upperType_.data()) plainTypes_.note(type);
  }
  reader_.begin(type.data() == upperType_.data() ? loaded_.names.stored(loaded_.names.intern(type)) : type);
}

}  // namespace cad::dxf
