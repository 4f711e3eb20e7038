#include "embedded/dwg/files/paged_header.h"

#include "embedded/dwg/bits/crc.h"

namespace cad::dwg {
namespace {

constexpr std::string_view kName("AcFssFcAJMB\0", 12);

std::string combined(std::string_view bytes) {
  std::string result = randomBytes(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    result[i] = static_cast<char>(static_cast<std::uint8_t>(result[i]) ^ static_cast<std::uint8_t>(bytes[i]));
  }
  return result;
}

}  // namespace

std::string randomBytes(std::size_t count) {
  std::string bytes(count, '\0');
  std::uint32_t state = 1;
  for (char& byte : bytes) {
    state = state * 0x343FD + 0x269EC3;
    byte = static_cast<char>(state >> 16);
  }
  return bytes;
}

std::uint32_t PagedHeader::crc() const {
  std::string bytes = bytes_;
  putRaw(bytes, kCrc, std::uint32_t{0});
  return crc32(0, bytes);
}

base::Result<PagedHeader> PagedHeader::read(std::string_view file) {
  if (file.size() < kPagesAt) return refusal(file.size(), L"The file is cut off");
  PagedHeader header;
  header.bytes_ = combined(part(file, kAt, kLength));
  if (!header.bytes_.starts_with(kName)) return refusal(kAt, L"The header block is damaged");
  if (header.get<std::uint32_t>(kCrc) != header.crc()) {
    return refusal(kAt, L"The checksum of the header block is wrong");
  }
  return header;
}

std::string PagedHeader::written() const { return combined(bytes_); }

void PagedHeader::setPages(const Pages& pages) {
  put(kLastId, pages.lastId);
  put(kLastEnd, pages.end - kPagesAt);
  put(kSecondHeaderAt, pages.secondHeaderAt);
  put(kPageCount, pages.count);
  put(kPageMapAt, pages.mapAt - kPagesAt);
  put(kPageArraySize, pages.largestId);
  put(kCrc, crc());
}

}  // namespace cad::dwg
