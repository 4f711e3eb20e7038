#include "embedded/dwg/fields/object_frame.h"

#include <limits>

#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/fields/text_range.h"

namespace cad::dwg {
namespace {

// Places are 32 bits wide.
constexpr std::uint64_t kMostBytes = std::numeric_limits<std::uint32_t>::max() / 8;

std::uint32_t at(const BitReader& reader) { return static_cast<std::uint32_t>(reader.position()); }

void skipExtendedData(BitReader& reader) {
  while (const auto size = static_cast<std::uint16_t>(reader.bs())) {
    reader.h();
    reader.skip(std::uint64_t{size} * 8);
  }
}

// R13 and R14 tell where the handles begin behind the preview of entities.
std::uint64_t sizeInMiddle(BitReader reader, bool isEntity) {
  if (isEntity && reader.b()) reader.skip(std::uint64_t{reader.rl()} * 8);
  const std::uint32_t size = reader.rl();
  return reader.failed() ? 0 : size;
}

}  // namespace

const wchar_t* readFrame(ObjectFrame& frame, std::string_view data, std::uint64_t handleBits, Version version,
                         const std::vector<FileClass>& classes) {
  if (data.size() > kMostBytes) return L"it is too large";
  const std::uint64_t bits = std::uint64_t{data.size()} * 8;
  frame.data = data, frame.version = version;
  BitReader reader(data);
  frame.type = typeOf(static_cast<std::uint16_t>(reader.ot(version)), classes);
  frame.typeEnd = at(reader);
  std::uint64_t handles = handleBits <= bits ? bits - handleBits : 0;
  if (version >= Version::kR2000 && version < Version::kR2010) handles = reader.rl();
  frame.handleFieldBegin = at(reader);
  frame.handle = reader.h().value;
  frame.extendedBegin = at(reader);
  skipExtendedData(reader);
  frame.extendedEnd = at(reader);
  if (reader.failed()) return L"it ends within its extended data";
  if (version < Version::kR2000) handles = sizeInMiddle(reader, frame.type.isEntity);
  if (handles < frame.extendedEnd || handles > bits) return L"its size in bits points outside of it";
  frame.handleBegin = static_cast<std::uint32_t>(handles);
  // References are whole bytes long.
  frame.handleEnd = static_cast<std::uint32_t>(bits - (bits - handles) % 8);
  frame.dataEnd = frame.textBegin = frame.textEnd = frame.handleBegin;
  if (!hasWideTexts(version)) return nullptr;
  const TextRange texts = textRange(data, handles);
  if (!texts.valid || texts.dataEnd < frame.extendedEnd) return L"its texts have a wrong size";
  frame.dataEnd = texts.dataEnd, frame.textBegin = texts.begin, frame.textEnd = texts.end;
  frame.hasTexts = texts.present;
  return nullptr;
}

base::Result<ObjectFrame> readFrame(std::string_view data, std::uint64_t handleBits, Version version,
                                    const std::vector<FileClass>& classes) {
  ObjectFrame frame;
  const wchar_t* const wrong = readFrame(frame, data, handleBits, version, classes);
  if (wrong != nullptr) return base::Failure{{}, L"An object is damaged: " + std::wstring(wrong)};
  return frame;
}

}  // namespace cad::dwg
