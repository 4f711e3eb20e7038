#include "embedded/dwg/files/coded_header.h"

#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/coded_compression.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/reed_solomon.h"

namespace cad::dwg {
namespace {

constexpr std::size_t kBlocks = 3;
constexpr std::uint64_t kFieldBytes = CodedHeader::kFields * 8;
// Of the decoded block: a CRC and a key that do not depend on what follows, the CRC and the size of the
// fields.
constexpr std::uint64_t kPackedCrcAt = 16, kPackedSizeAt = 24, kPackedAt = 32;

std::string fieldBytes(const std::array<std::uint64_t, CodedHeader::kFields>& fields) {
  std::string bytes;
  for (const std::uint64_t field : fields) appendRaw(bytes, field);
  return bytes;
}

std::uint64_t crcOf(std::string fields) {
  putRaw(fields, CodedHeader::kCrc * 8, std::uint64_t{0});
  return headerCrc64(fields);
}

}  // namespace

base::Result<CodedHeader> CodedHeader::read(std::string_view file) {
  if (!isWithin(kAt, kLength, file.size())) return refusal(file.size(), L"The file is cut off");
  CodedHeader header;
  header.block_ = part(file, kAt, kLength);
  header.decoded_ = ReedSolomon::ofSystemPages().decoded(header.block_, kBlocks);
  const auto size = rawAt<std::int32_t>(header.decoded_, kPackedSizeAt);
  const std::uint64_t length = size < 0 ? 0 - static_cast<std::int64_t>(size) : size;
  if (!isWithin(kPackedAt, length, header.decoded_.size())) {
    return refusal(kAt, L"The header block is damaged");
  }
  const std::string_view packed = part(header.decoded_, kPackedAt, length);
  if (headerCrc64(packed) != rawAt<std::uint64_t>(header.decoded_, kPackedCrcAt)) {
    return refusal(kAt, L"The checksum of the header block is wrong");
  }
  const auto fields = size < 0 ? std::string(packed) : decompressCoded(packed, kFieldBytes);
  if (!fields || fields->size() != kFieldBytes) return refusal(kAt, L"The header block is damaged");
  for (std::size_t i = 0; i < kFields; ++i) header.fields_[i] = rawAt<std::uint64_t>(*fields, i * 8);
  if (crcOf(*fields) != header[kCrc]) return refusal(kAt, L"The checksum of the header block is wrong");
  header.makePadding();
  return header;
}

std::string CodedHeader::written() const {
  std::string bytes = fieldBytes(fields_);
  putRaw(bytes, kCrc * 8, crcOf(bytes));
  std::string packed = compressCoded(bytes);
  const bool isPacked = packed.size() < bytes.size();
  if (!isPacked) packed = bytes;

  std::string content = decoded_.substr(0, kPackedCrcAt);
  appendRaw(content, headerCrc64(packed));
  const auto size = static_cast<std::int32_t>(packed.size());
  appendRaw(content, isPacked ? size : -size);
  content += decoded_.substr(kPackedSizeAt + 4, 4);
  content += packed;
  content.resize((content.size() + 7) / 8 * 8, '\0');
  std::string repeated;
  while (repeated.size() + content.size() <= decoded_.size()) repeated += content;
  repeated += decoded_.substr(repeated.size());

  const std::string coded = ReedSolomon::ofSystemPages().coded(repeated, {});
  return coded + block_.substr(coded.size());
}

std::uint64_t CodedHeader::seed(Field field) const {
  constexpr unsigned kBits[] = {59, 53, 47, 41, 35, 29, 23, 17, 11, 5};
  std::uint64_t result = 0;
  for (unsigned i = 0; i < std::size(kBits); ++i) result |= (fields_[field] >> kBits[i] & 1) << i;
  return result;
}

void CodedHeader::makePadding() {
  constexpr std::uint32_t kWords = 0x80, kFactor = 0x343FD, kTerm = 0x269EC3;
  const std::uint64_t seed = fields_[kRandomSeed];
  appendRaw(padding_, static_cast<std::uint32_t>(static_cast<std::uint32_t>(seed) * kFactor + kTerm));
  auto value = static_cast<std::uint32_t>(static_cast<std::uint32_t>(seed >> 32) * kFactor + kTerm);
  appendRaw(padding_, value);
  for (std::uint32_t i = 2; i < kWords; ++i) {
    value = (value >> 30 ^ value) * 0x6C078965 + i;
    appendRaw(padding_, value);
  }
}

}  // namespace cad::dwg
