#include "embedded/dwg/files/coded_pages.h"

#include <algorithm>

#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/coded_compression.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/reed_solomon.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t kCrcBlock = 8, kAlignment = 0x20, kSmallestMap = 0x400;
constexpr std::uint64_t kLargestMap = std::uint64_t{1} << 26;

std::uint64_t aligned(std::uint64_t size, std::uint64_t to) { return (size + to - 1) / to * to; }

}  // namespace

void fillWith(std::string& page, std::uint64_t size, std::string_view padding) {
  while (page.size() < size) page += padding.substr(0, static_cast<std::size_t>(size) - page.size());
}

base::Result<std::string> readCodedMap(std::string_view file, std::uint64_t at, const CodedMapFacts& facts,
                                       std::uint64_t seed, const std::wstring& name) {
  const ReedSolomon& code = ReedSolomon::ofSystemPages();
  const auto damaged = [&] { return refusal(at, L"The " + name + L" is damaged"); };
  if (facts.size > kLargestMap || facts.packedSize > facts.size) return damaged();
  const std::uint64_t blocks = code.blocks(static_cast<std::size_t>(aligned(facts.packedSize, kCrcBlock)));
  // The data are repeated: so many blocks there are in all, in which those of the first time are spread.
  const std::uint64_t repeats = std::max<std::uint64_t>(facts.repeats, 1);
  if (repeats > file.size()) return damaged();
  const std::uint64_t allBlocks =
      code.blocks(static_cast<std::size_t>(aligned(facts.packedSize, kCrcBlock) * repeats));
  if (allBlocks < blocks || !isWithin(at, allBlocks * ReedSolomon::kBlock, file.size())) {
    return refusal(file.size(), L"The " + name + L" is cut off");
  }
  const std::string decoded =
      code.decoded(part(file, at, allBlocks * ReedSolomon::kBlock), static_cast<std::size_t>(allBlocks));
  const std::string_view packed = part(decoded, 0, facts.packedSize);
  const auto wrong = [&] { return refusal(at, L"The checksum of the " + name + L" is wrong"); };
  if (pageCrc64(seed, packed) != facts.packedCrc) return wrong();
  if (facts.packedSize == facts.size) return std::string(packed);
  auto content = decompressCoded(packed, static_cast<std::size_t>(facts.size));
  if (!content) return damaged();
  if (pageCrc64(seed, *content) != facts.crc) return wrong();
  return std::move(*content);
}

std::uint64_t codedMapRoom(std::uint64_t size) {
  const auto twice = static_cast<std::size_t>(aligned(size, kCrcBlock) * 2);
  const std::uint64_t coded = ReedSolomon::ofSystemPages().blocks(twice) * ReedSolomon::kBlock;
  return std::max(aligned(coded, kAlignment), kSmallestMap);
}

std::string writeCodedMap(std::string_view content, std::uint64_t room, std::uint64_t seed,
                          std::string_view padding, CodedMapFacts& facts) {
  const ReedSolomon& code = ReedSolomon::ofSystemPages();
  std::string packed = compressCoded(content);
  if (packed.size() >= content.size()) packed = content;
  facts.size = content.size();
  facts.packedSize = packed.size();
  facts.crc = pageCrc64(seed, content);
  facts.packedCrc = pageCrc64(seed, packed);
  packed.resize(static_cast<std::size_t>(aligned(packed.size(), kCrcBlock)), '\0');
  facts.repeats = room / ReedSolomon::kBlock * code.data() / packed.size();
  std::string repeated;
  for (std::uint64_t i = 0; i < facts.repeats; ++i) repeated += packed;
  std::string page = code.coded(repeated, padding);
  fillWith(page, room, padding);
  return page;
}

base::Result<std::string> readCodedPage(std::string_view file, const CodedPage& page,
                                        const CodedSection& section, const CodedSectionPage& inSection,
                                        std::uint64_t seed) {
  const ReedSolomon& code = ReedSolomon::ofDataPages();
  const std::wstring name(section.name.begin(), section.name.end());
  const std::uint64_t packedSize = inSection.packedSize;
  if (packedSize > inSection.size || packedSize > page.size) return refusal(page.at, name + L" is damaged");
  std::string decoded;
  std::string_view packed = part(file, page.at, packedSize);
  if (section.coding == CodedSection::kInterleaved) {
    const std::size_t blocks = code.blocks(static_cast<std::size_t>(aligned(packedSize, kCrcBlock)));
    if (blocks * ReedSolomon::kBlock > page.size) return refusal(page.at, name + L" is cut off");
    decoded = code.decoded(part(file, page.at, page.size), blocks);
    packed = part(decoded, 0, packedSize);
  }
  const auto wrong = [&] { return refusal(page.at, L"The checksum of " + name + L" is wrong"); };
  if (pageCrc64(seed, packed) != inSection.crc) return wrong();
  std::optional<std::string> content(packed);
  if (packedSize < inSection.size)
    content = decompressCoded(packed, static_cast<std::size_t>(inSection.size));
  if (!content) return refusal(page.at, name + L" is damaged");
  if (dataChecksum(*content) != inSection.checksum) return wrong();
  return std::move(*content);
}

std::string writeCodedPage(std::string_view content, std::uint64_t coding, std::uint64_t seed,
                           std::string_view padding, CodedSectionPage& inSection) {
  const ReedSolomon& code = ReedSolomon::ofDataPages();
  const bool isInterleaved = coding == CodedSection::kInterleaved;
  std::string packed = isInterleaved ? compressCoded(content) : std::string(content);
  if (packed.size() >= content.size()) packed = content;
  inSection.size = content.size();
  inSection.packedSize = packed.size();
  inSection.room = std::max(inSection.room, aligned(content.size(), kAlignment));
  inSection.checksum = dataChecksum(content);
  inSection.crc = pageCrc64(seed, packed);
  packed.resize(static_cast<std::size_t>(aligned(packed.size(), kCrcBlock)), '\0');
  std::string page = isInterleaved ? code.coded(packed, padding) : packed + code.parity(packed, padding);
  // Content that is not interleaved can be changed in its page.
  const std::uint64_t room = isInterleaved
                                 ? page.size()
                                 : inSection.room + code.blocks(static_cast<std::size_t>(inSection.room)) *
                                                        (ReedSolomon::kBlock - code.data());
  fillWith(page, aligned(std::max<std::uint64_t>(page.size(), room), kAlignment), padding);
  return page;
}

}  // namespace cad::dwg
