#pragma once
// Turns the stream of a file's groups into records.

#include <array>
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

// The types of entities that were met, of those that have no parts. Hardly anything is asked about another
// entity of such a type.
class PlainTypes {
 public:
  bool holds(std::string_view type) const { return !type.empty() && met_[place(type)] == type; }
  void note(std::string_view type) {
    if (!type.empty()) met_[place(type)] = type;
  }

 private:
  static std::size_t place(std::string_view type) {
    return (type.size() + static_cast<unsigned char>(type.front()) * 3u +
            static_cast<unsigned char>(type[type.size() / 2])) %
           kPlaces;
  }
  static constexpr std::size_t kPlaces = 64;
  std::array<std::string_view, kPlaces> met_;
};

class Assembler {
 public:
  // `size`: the length of the file.
  Assembler(const Dialect& dialect, std::size_t size) : dialect_(dialect) {
    constexpr std::size_t kShortRecord = 128;  // what is reserved and not used costs no memory
    loaded_.records.reserve(size / kShortRecord);
  }

  // A group of this code, other than the file's last, is of no concern here.
  bool passesOver(int code) const {
    return static_cast<std::size_t>(code) < DullCodes().size() && (*dull_)[static_cast<std::size_t>(code)];
  }
  // `offset`: where the group begins in the file. False: the file is at its end, or failed() says why not.
  bool group(int code, std::string_view value, std::uint64_t offset) {
    if (code == 0) return begin(value, offset);
    handles_.group(code, value);
    if (entity_) {
      reader_.group(code, value);
      if (!handles_.awaits(kUsualHandle)) dull_ = &kDullBehindHandle;
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
  // The codes of groups that say nothing here: outside of entities none, and of their handles only the first
  // counts.
  using DullCodes = std::array<bool, 1000>;
  static constexpr DullCodes dullInEntities(bool awaitsHandle) {
    DullCodes dull{};
    for (std::size_t code = 1; code < dull.size(); ++code)
      dull[code] = !SignatureReader::heeds(static_cast<int>(code)) && !(awaitsHandle && code == kUsualHandle);
    return dull;
  }
  static constexpr DullCodes kNoneDull{};
  static const DullCodes kDull, kDullBehindHandle;
  const DullCodes* dull_ = &kNoneDull;
  void beginGroups() {
    handles_.begin(record_);
    dull_ = entity_ ? &kDull : &kNoneDull;
  }

  enum class Place : std::uint8_t { kOutside, kHeader, kTables, kBlocks, kEntities, kObjects, kUnknown };

  bool begin(std::string_view type, std::uint64_t offset);
  bool beginPlain(std::string_view type, std::uint64_t offset);
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
  PlainTypes plainTypes_;
  SignatureCache signatures_;
  LargestHandle handles_;
  const wchar_t* failure_ = nullptr;
};

}  // namespace cad::dxf
