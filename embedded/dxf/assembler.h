#pragma once
// Turns the stream of a file's groups into records.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drawing/drawing.h"
#include "embedded/dxf/dialect.h"
#include "embedded/dxf/file_frame.h"
#include "embedded/dxf/largest_handle.h"
#include "embedded/dxf/signature_cache.h"
#include "embedded/dxf/signature_reader.h"

namespace cad::dxf {

class Assembler {
 public:
  // `size`: the length of the file.
  Assembler(const Dialect& dialect, std::size_t size) : dialect_(dialect) {
    constexpr std::size_t kShortRecord = 128;  // what is reserved and not used costs no memory
    loaded_.records.reserve(size / kShortRecord);
  }

  // A group of this code, other than the file's last, is of no concern here.
  bool passesOver(int code) const {
    return code != 0 && entity_ && !SignatureReader::heeds(code) && !handles_.awaits(code);
  }
  // `offset`: where the group begins in the file. False: the file is at its end, or failed() says why not.
  bool group(int code, std::string_view value, std::uint64_t offset) {
    if (code == 0) return begin(value, offset);
    handles_.group(code, value);
    if (entity_) {
      reader_.group(code, value);
    } else if (code == 2 && !named_) {
      named_ = true;
      name(value);
    } else if (code == kLayerName) {
      layerNames_ = true;
    }
    return true;
  }
  // Bytes before the first record are a record of their own, and so are those behind the last group of a file
  // without EOF. `end`: where these begin; `size`: the length of the file.
  void finish(std::uint64_t end, std::uint64_t size);
  bool sawEnd() const { return sawEnd_; }
  // The last record so far ends a section, and the entities have been there.
  bool isWholeWithoutEnd() const;
  const wchar_t* failure() const { return failure_; }  // null: none
  LoadedRecords take() { return std::move(loaded_); }
  const std::vector<RecordId>& blocks() const { return blocks_; }  // definitions
  const FileFrame& frame() const { return frame_; }

 private:
  enum class Place : std::uint8_t { kOutside, kHeader, kTables, kBlocks, kEntities, kObjects, kUnknown };

  bool begin(std::string_view type, std::uint64_t offset);
  bool close(std::uint64_t end);
  void name(std::string_view value);
  void classify(std::string_view type);
  void classifyFrame(std::string_view type);
  void classifyBlock(std::string_view type);
  void classifyEntity(std::string_view type);
  void classifyTable(std::string_view type);
  bool isSubRecord(std::string_view type);

  const Dialect& dialect_;
  LoadedRecords loaded_;
  FileFrame frame_;
  SignatureReader reader_;
  Record record_;
  bool open_ = false, entity_ = false, named_ = true, layerNames_ = false, sawEnd_ = false;
  bool sectionEnded_ = false;
  Place place_ = Place::kOutside;
  Table table_ = Table::kNone;  // whose head came last, until it ends
  RecordId block_ = kNoRecord, main_ = kNoRecord;
  std::vector<RecordId> blocks_;
  bool mainIsInsert_ = false;
  std::string upperType_;
  std::string_view plainType_;  // of the last entity when such entities have no parts: most follow their like
  SignatureCache signatures_;
  LargestHandle handles_;
  const wchar_t* failure_ = nullptr;
};

}  // namespace cad::dxf
