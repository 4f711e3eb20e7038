#pragma once
// The records of a DWG file: its objects as they stand there, and the changed states over them.

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/storage.h"
#include "embedded/dwg/entity_head.h"
#include "embedded/dwg/entity_values.h"
#include "embedded/dwg/fields/field_finder.h"
#include "embedded/dwg/fields/object_fields.h"
#include "embedded/dwg/files/dwg_file.h"
#include "embedded/dwg/state_store.h"

namespace cad::dwg {

struct PropertyField;

// An entity of the file that held together when it was read, with a colour that is nothing but its number.
inline constexpr std::uint8_t kPlainEntity = Record::kOfStorage;

// Which records the file's objects became.
struct FileRecords {
  std::vector<RecordId> byPlace;  // of each of DwgFile::places(); kNoRecord: of none
  bool textsEndWithZero = false;
  RecordId header = kNoRecord;  // the variables of the header, a record of the kind kFrame
  std::unordered_map<Handle, RecordId> blockOfEntry;              // the BLOCK of a block's table entry
  std::unordered_map<Handle, Handle> entryOfBlock, beginOfEntry;  // by handles
  std::unordered_map<Handle, std::uint32_t> indexOfEntry;         // in its table
  std::unordered_map<Table, RecordId> control;
  std::unordered_map<Handle, std::string> names;  // of the blocks' table entries, as firstName() gives them
};

struct NewObject {
  ObjectKind kind = ObjectKind::kOther;
  Handle handle = 0;
  FieldChanges values;
};

// What an added object becomes in the drawing.
struct NewRecord {
  RecordKind kind = RecordKind::kOther;
  Table table = Table::kNone;
  RecordId owner = kNoRecord;
  RecordId implied = kNoRecord;  // see RecordStorage::add()
  SignatureId signature = 0;     // of an entity, where it is known
};

class DwgStorage final : public RecordStorage {
 public:
  DwgStorage(std::unique_ptr<DwgFile> file, std::vector<FileClass> classes);
  void setRecords(FileRecords records) {
    firstNames_ = std::move(records.names);
    records_ = std::move(records);
  }
  void setDamage(DamagedObjects damage) { file_->setDamage(std::move(damage)); }

  // --- Objects -------------------------------------------------------------------------------------------
  Version version() const { return file_->version(); }
  const DwgFile& file() const { return *file_; }
  const std::vector<FileClass>& classes() const { return classes_; }
  // The present bytes of the record's object, of the header's record its section; empty for implied records.
  ObjectBytes object(const Record& record) const;
  // The same without an owner: in the file, or in the buffer.
  ObjectBytes object(const Record& record, std::string& buffer) const;
  ObjectType typeOf(const Record& record) const;
  base::Result<ObjectFrame> frame(const Record& record) const;
  // What the record's object refers to, whatever its class.
  std::vector<Handle> references(const Record& record) const;
  // The fields of the record's object, none when its frame does not hold together. Valid until the next call
  // of the same function.
  const Fields& fields(const Record& record) const;
  const Fields& commonFields(const Record& record) const;
  struct Entity {
    ObjectFrame frame;
    EntityHead head;
    EntityValues values;  // set since, and not yet among the bits
    void read(const ObjectBytes& bytes, Version version, const std::vector<FileClass>& classes);
    // As findOwnField(); null: the object is damaged before it. The field asked for last is known at once.
    const FoundField* field(std::string_view name) const;

   private:
    mutable std::string_view lastName_;
    mutable std::optional<FoundField> lastField_;
  };
  // Null when the record is none, or does not hold together. Valid until the next call.
  const Entity* entity(const Record& record) const;
  RecordId recordOf(Handle handle) const;     // kNoRecord: of no object here
  RecordId blockOf(Handle entry) const;       // the BLOCK of a block's table entry; kNoRecord: it has none
  Handle entryOf(const Record& block) const;  // 0: a BLOCK without one
  // An object of the file, or one that was added, as it was then; absent: there is none. Only its bytes are
  // to be asked for.
  std::optional<Record> firstState(Handle handle) const;
  // The name that a table's record had then; empty: it has none.
  const std::string& firstName(Handle handle) const;
  // As it is stored; empty: it has none. `entry`: the block's table entry.
  std::string blockName(Handle entry) const;
  // --- New objects -----------------------------------------------------------------------------------------
  // A free handle. The header's next free one follows when the drawing is written.
  Handle takeHandle();
  // Builds the object, which is found by its handle from then on; enterKept() must follow, in the same order.
  base::Status keep(const NewObject& object);
  void forgetKept();  // what is not to enter after all
  RecordId enterKept(Drawing& drawing, Handle handle, const NewRecord& made);
  base::Result<RecordId> enter(Drawing& drawing, const NewObject& object, const NewRecord& made);
  // At the end of the table's list.
  base::Status enlist(Drawing& drawing, Table table, Handle entry);
  // Which BLOCK a block's entry is of: its handle before both enter, its record once it has.
  void announce(Handle entry, Handle begin);
  void pair(Handle entry, RecordId block) { records_.blockOfEntry[entry] = block; }
  // Puts the record into the state with these fields changed; nothing of it is what a selection asks for.
  base::Status change(Drawing& drawing, RecordId id, const FieldChanges& changes);

  RecordId headerRecord() const { return records_.header; }
  RecordId control(Table table) const;  // kNoRecord: the file has none
  // The field that holds a text of the drawing, the value of extended data that does, which has no closing
  // zero in any file; and back as a person reads it.
  Value fieldText(std::string_view stored) const;
  Value extendedText(std::string_view stored) const;
  std::wstring text(const Value& value) const;
  std::uint16_t codePageNumber() const { return file_->codePageNumber(); }  // with texts of extended data

  // --- RecordStorage ---------------------------------------------------------------------------------------
  std::wstring_view format() const override { return L"DWG"; }
  const DrawingFacts& facts() const override { return file_->facts(); }
  std::string_view typeName(const Record& record) const override;
  std::optional<Handle> handle(const Record& record) const override;
  StoredValue property(const Record& record, Property property) const override;
  EntityLooks looks(const Record& entity) const override;
  bool differInCommonOnly(const Record& before, const Record& now) const override;
  bool holdsSame(const Record& record, const RecordStorage& other, const Record& others) const override;
  std::vector<std::wstring> otherData(const Record& record, const OtherParts& parts) const override;
  bool canHold(const Record& record, Property property) const override;
  Geometry readGeometry(const Drawing& drawing, RecordId entity) const override;
  base::Result<EditId> setProperty(Drawing& drawing, const Record& record, Property property,
                                   const StoredValue& value) override;
  base::Status renameLayer(Drawing& drawing, RecordId layer, std::wstring_view newName) override;
  Signature readSignature(Drawing& drawing, const Record& record) const override;
  base::Status checkUnchanged() const override { return file_->source().checkUnchanged(); }
  base::Status save(const std::filesystem::path& target, std::span<const Record> records) const override;
  base::Result<RecordId> add(Drawing& drawing, Table table, std::wstring_view name,
                             RecordId implied) override;
  void takeBack(RecordId record) override;
  base::Result<EditId> setDashes(const Drawing& drawing, const Record& linetype,
                                 std::span<const Dash> dashes) override;
  std::vector<Dash> dashes(const Drawing& drawing, RecordId linetype) const override;
  base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name, const BlockHead& head,
                                     std::span<const Shape> shapes) override;
  std::unique_ptr<BlockCopy> copierFrom(Drawing& drawing, const Drawing& source) override;
  Point basePoint(const Drawing& drawing, RecordId block) const override;
  std::vector<Layout> layouts(const Drawing& drawing) const override;
  base::Result<RecordId> addEntity(Drawing& drawing, RecordId block, std::string_view type,
                                   const Geometry& geometry) override;
  base::Status addEntities(Drawing& drawing, RecordId block, std::span<const BlockEntity> entities) override;
  base::Result<EditId> setLastVertex(const Record& leader, const Point& at) override;
  EditId setTextMiddle(const Record& dimension, const Point& at) override;
  base::Result<RecordId> addInsert(Drawing& drawing, RecordId space, const NewInsert& insert) override;
  std::optional<Variable> dimVariable(const Drawing& drawing, RecordId id,
                                      const DimVariableInfo& variable) const override;
  std::vector<DimValue> dimVariables(const Drawing& drawing, const Record& record) const override;
  base::Status setDimVariable(Drawing& drawing, RecordId id, const DimVariableInfo& variable,
                              const Variable& value) override;
  base::Status removeDimOverride(Drawing& drawing, RecordId id, const DimVariableInfo& variable) override;
  std::optional<Variable> headerVariable(const Drawing& drawing, std::string_view name) const override;
  std::vector<HeaderValue> headerVariables(const Drawing& drawing) const override;
  base::Status setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) override;

 private:
  struct AddedObject {
    Handle handle = 0;
    EditId first = kNoEdit;
    RecordId record = kNoRecord;
    ObjectKind kind = ObjectKind::kOther;
  };
  // Which state of which record was read last.
  struct LookedAt {
    std::uint64_t offset = 0;
    EditId edits = kNoEdit;
    std::uint8_t flags = 0;
    bool operator==(const LookedAt&) const = default;
  };
  struct Look {
    LookedAt at;
    std::shared_ptr<const std::string> owner;  // of the bytes
    std::optional<Fields> fields;
  };
  struct EntityLook {
    LookedAt at;
    bool isRead = false;
    std::string buffer;
    ObjectBytes bytes;
    Entity entity;
  };
  // The record's state with these fields changed; its own when nothing is different.
  base::Result<EditId> changed(const Record& record, const FieldChanges& changes);
  // With these values, which are not all its own; nullopt: they do not fit, and are to be changed as fields.
  std::optional<base::Result<EditId>> changed(const Record& record, EntityValues values);
  const Entity* entity(const Record& record, const ValueState& state) const;
  bool fits(const Record& record, EntityValues& values) const;  // finds the place of a height
  // Its bits are the file's, and what is set of it besides its height fits without looking at them.
  bool isPlain(const Record& record) const;
  bool isSame(const Drawing& drawing, const Record& record, const PropertyField& place,
              const StoredValue& value) const;
  std::optional<Value> firstAngle(const Record& record, const PropertyField& place,
                                  const StoredValue& wanted) const;
  EditId stateBehind(const Record& record, const WrittenObject& now);
  void forgetNewest();
  base::Result<FileChanges> fileChanges(std::span<const Record> records) const;
  bool namesAgree(const Record& record, const DwgStorage& other) const;
  const Fields& headerFields(const Drawing& drawing) const;
  StoredValue ofEntry(const Record& block, Property property) const;
  static LookedAt lookedAt(const Record& record);
  const Fields& look(Look& look, const Record& record, Fields (*read)(const ObjectFrame&)) const;
  ObjectBytes original(const Record& record) const;
  ObjectBytes kept(EditId state, std::string_view original) const;

  std::unique_ptr<DwgFile> file_;
  std::vector<FileClass> classes_;
  FileRecords records_;
  StateStore states_;
  std::vector<AddedObject> added_;  // never shortened: records that were taken back lead there, too
  std::vector<std::size_t> live_;   // those that are in the drawing, oldest first
  std::unordered_map<Handle, std::size_t> addedByHandle_;
  Handle nextHandle_ = 0;  // 0: not yet known
  mutable Look look_, commonLook_, headerLook_;
  mutable EntityLook entityLook_;
  mutable std::unordered_map<Handle, std::string> firstNames_;
};

}  // namespace cad::dwg
