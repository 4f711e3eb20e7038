#include "embedded/dwg/files/page_frames.h"

#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/page_compression.h"
#include "embedded/dwg/files/paged_header.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

constexpr std::uint32_t kPageType = 0x4163043B, kPageMask = 0x4164536B;
constexpr std::uint32_t kCompression = 2;
// Far more than the maps of any file have.
constexpr std::size_t kLargestMap = std::size_t{1} << 28;

enum PageField : std::uint64_t {
  kType = 0,
  kSectionType = 4,
  kDataSize = 8,
  kPageSize = 12,
  kStart = 16,
  kHeaderChecksum = 24,
  kDataChecksum = 28
};
enum SystemField : std::uint64_t {
  kContentSize = 4,
  kCompressedSize = 8,
  kSystemCompression = 12,
  kSystemChecksum = 16
};

std::string maskedHeader(std::string_view header, std::uint64_t at) {
  std::string result(header);
  for (std::uint64_t i = 0; i < kPageHeader; i += 4) {
    putRaw(result, i, rawAt<std::uint32_t>(header, i) ^ kPageMask ^ static_cast<std::uint32_t>(at));
  }
  return result;
}

std::uint32_t headerChecksum(std::string header) {
  const auto data = rawAt<std::uint32_t>(header, kDataChecksum);
  putRaw(header, kHeaderChecksum, std::uint32_t{0});
  return pageChecksum(data, header);
}

std::uint32_t systemChecksum(std::string header, std::string_view data) {
  putRaw(header, kSystemChecksum, std::uint32_t{0});
  return pageChecksum(pageChecksum(0, header), data);
}

std::wstring nameOf(SystemPage type) { return type == SystemPage::kPageMap ? L"page map" : L"section map"; }

}  // namespace

std::uint64_t filledSize(std::uint64_t bytes) { return (bytes + 31) / 32 * 32; }

void fillUp(std::string& page, std::uint64_t size) {
  if (size > page.size()) page += randomBytes(static_cast<std::size_t>(size) - page.size());
}

base::Result<std::string> readSystemPage(std::string_view file, std::uint64_t at, SystemPage type) {
  const std::wstring name = nameOf(type);
  if (!isWithin(at, kSystemHeader, file.size())) return refusal(file.size(), L"The " + name + L" is cut off");
  const std::string header(part(file, at, kSystemHeader));
  const auto size = rawAt<std::uint32_t>(header, kCompressedSize);
  if (rawAt<std::uint32_t>(header, kType) != static_cast<std::uint32_t>(type)) {
    return refusal(at, L"The " + name + L" is not here");
  }
  if (!isWithin(at + kSystemHeader, size, file.size()))
    return refusal(file.size(), L"The " + name + L" is cut off");
  const std::string_view data = part(file, at + kSystemHeader, size);
  if (systemChecksum(header, data) != rawAt<std::uint32_t>(header, kSystemChecksum)) {
    return refusal(at, L"The checksum of the " + name + L" is wrong");
  }
  const std::size_t contentSize = rawAt<std::uint32_t>(header, kContentSize);
  std::optional<std::string> content;
  if (rawAt<std::uint32_t>(header, kSystemCompression) == kCompression && contentSize <= kLargestMap) {
    content = decompressPage(data, contentSize);
  }
  if (!content || content->size() != contentSize) return refusal(at, L"The " + name + L" is damaged");
  return std::move(*content);
}

std::string writeSystemPage(std::string_view content, SystemPage type) {
  const std::string data = compressPage(content);
  std::string page(kSystemHeader, '\0');
  putRaw(page, kType, static_cast<std::uint32_t>(type));
  putRaw(page, kSystemCompression, kCompression);
  std::string end = page;  // a second header, without sizes and checksum
  putRaw(page, kContentSize, static_cast<std::uint32_t>(content.size()));
  putRaw(page, kCompressedSize, static_cast<std::uint32_t>(data.size()));
  putRaw(page, kSystemChecksum, systemChecksum(page, data));
  return page + data + end;
}

base::Result<std::string_view> readPage(std::string_view file, const Page& page, const PagedSection& section,
                                        const SectionPage& inSection) {
  const std::wstring name(section.name.begin(), section.name.end());
  if (!isWithin(page.at, kPageHeader, file.size())) return refusal(file.size(), name + L" is cut off");
  const std::string header = maskedHeader(part(file, page.at, kPageHeader), page.at);
  if (rawAt<std::uint32_t>(header, kType) != kPageType ||
      rawAt<std::uint32_t>(header, kHeaderChecksum) != headerChecksum(header)) {
    return refusal(page.at, L"A page of " + name + L" is damaged");
  }
  const auto size = rawAt<std::uint32_t>(header, kDataSize);
  if (rawAt<std::uint32_t>(header, kSectionType) != section.type || size != inSection.dataSize ||
      rawAt<std::uint32_t>(header, kStart) != inSection.start) {
    return refusal(page.at, L"The page is another than the section map tells of " + name);
  }
  if (!isWithin(page.at + kPageHeader, size, file.size()) || size + kPageHeader > page.size) {
    return refusal(page.at, name + L" is cut off");
  }
  const std::string_view data = part(file, page.at + kPageHeader, size);
  if (pageChecksum(0, data) != rawAt<std::uint32_t>(header, kDataChecksum)) {
    return refusal(page.at, L"The checksum of " + name + L" is wrong");
  }
  return data;
}

std::string writePage(std::string_view data, std::uint64_t at, std::uint32_t type, std::uint64_t start) {
  const std::uint64_t size = filledSize(kPageHeader + data.size());
  std::string header(kPageHeader, '\0');
  putRaw(header, kType, kPageType);
  putRaw(header, kSectionType, type);
  putRaw(header, kDataSize, static_cast<std::uint32_t>(data.size()));
  putRaw(header, kPageSize, static_cast<std::uint32_t>(size));
  putRaw(header, kStart, static_cast<std::uint32_t>(start));
  putRaw(header, kDataChecksum, pageChecksum(0, data));
  putRaw(header, kHeaderChecksum, headerChecksum(header));
  std::string page = maskedHeader(header, at);
  page += data;
  fillUp(page, size);
  return page;
}

bool isPage(std::string_view file, const Page& page) {
  if (page.size < kPageHeader || !isWithin(page.at, kPageHeader, file.size())) return false;
  return rawAt<std::uint32_t>(maskedHeader(part(file, page.at, kPageHeader), page.at), kType) == kPageType;
}

std::string movedPage(std::string_view bytes, std::uint64_t from, std::uint64_t to) {
  std::string page = maskedHeader(maskedHeader(bytes.substr(0, kPageHeader), from), to);
  page += bytes.substr(kPageHeader);
  return page;
}

}  // namespace cad::dwg
