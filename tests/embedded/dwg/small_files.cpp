#include "tests/embedded/dwg/small_files.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/fields/header_fields.h"
#include "embedded/dwg/fields/text_range.h"
#include "embedded/dwg/files/coded_compression.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/reed_solomon.h"
#include "embedded/dwg/files/second_header.h"
#include "embedded/dwg/files/sentinels.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t kPageSize = 0x400;

std::string u32(std::uint64_t value) {
  std::string bytes;
  appendRaw(bytes, static_cast<std::uint32_t>(value));
  return bytes;
}

std::string u64(std::uint64_t value) {
  std::string bytes;
  appendRaw(bytes, value);
  return bytes;
}

std::string withCrc(std::string bytes) {
  appendRaw(bytes, crc16(kCrcStart, bytes));
  return bytes;
}

std::string bigEndian(std::size_t value) { return {static_cast<char>(value >> 8), static_cast<char>(value)}; }

std::string framed(const SmallDrawing& drawing, std::string_view begin, const std::string& content,
                   std::string_view end) {
  const std::string high = drawing.version >= Version::kR2010 ? u32(0) : std::string();
  const std::string sized = drawing.spoilt(u32(content.size()) + high + content);
  return std::string(begin) + withCrc(sized) + std::string(end);
}

// The objects behind `base` bytes, and the places for the map.
std::string objectBytes(const SmallDrawing& drawing, std::uint64_t base, std::vector<ObjectPlace>& places) {
  std::string bytes;
  for (const SmallObject& object : drawing.objects) {
    places.push_back({object.handle, base + bytes.size()});
    BitWriter size;
    size.ms(static_cast<std::uint32_t>(object.data.size()));
    if (drawing.version >= Version::kR2010) size.umc(object.handleBits);
    bytes += withCrc(size.take() + object.data);
  }
  return drawing.spoilt(bytes);
}

// In one page, which they must fit.
std::string mapBytes(const SmallDrawing& drawing, const std::vector<ObjectPlace>& places) {
  const std::string content = drawing.spoilt(mapPairs(places));
  const std::string page = bigEndian(content.size() + 2) + content;
  const std::string end = bigEndian(2);
  return page + bigEndian(crc16(kCrcStart, page)) + end + bigEndian(crc16(kCrcStart, end));
}

std::string beginning(const SmallDrawing& drawing) {
  std::string bytes(base::versionCode(drawing.version));
  bytes.resize(0x15, '\0');
  bytes[0x0B] = 15;
  bytes[0x13] = 38;  // ANSI_932
  return bytes;
}

std::string auxHeader(const SmallDrawing& drawing) {
  std::string bytes(drawing.version >= Version::kR2018 ? 129 : 123, '\0');
  putRaw(bytes, drawing.version >= Version::kR2018 ? 85 : 79,
         static_cast<std::uint32_t>(drawing.objects.back().handle + 1));
  return bytes;
}

std::string freeSpace(const SmallDrawing& drawing) {
  std::string bytes(drawing.version >= Version::kR2010 ? 89 : 53, '\0');
  putRaw(bytes, drawing.version >= Version::kR2010 ? 8 : 4,
         static_cast<std::uint32_t>(drawing.objects.size()));
  return bytes;
}

// A thumbnail with one picture, which stands at `at` in the file when the thumbnail does.
std::string thumbnail(std::uint64_t at) {
  const std::string picture = "picture";
  std::string bytes(kThumbnailBegin);
  bytes += u32(17);
  bytes += '\1';
  bytes += '\2';
  bytes += u32(at + bytes.size() + 8) + u32(picture.size());
  return bytes + picture;
}

std::string secondHeader(const SmallDrawing& drawing, std::uint64_t at,
                         const std::vector<std::pair<std::uint64_t, std::uint64_t>>& sections) {
  const Handle nextHandle = drawing.objects.back().handle + 1;
  BitWriter bits;
  bits.rl(0);
  bits.bl(static_cast<std::int32_t>(at));
  for (int i = 0; i < 13; ++i) bits.rc('v');
  bits.bs(-1), bits.rs(38), bits.bs(static_cast<std::int16_t>(sections.size()));
  for (std::size_t i = 0; i < sections.size(); ++i) {
    bits.rc(static_cast<std::uint8_t>(i));
    bits.bl(static_cast<std::int32_t>(sections[i].first));
    bits.bl(static_cast<std::int32_t>(sections[i].second));
  }
  bits.bs(2);
  bits.rc(2), bits.rc(0), bits.rc(static_cast<std::uint8_t>(nextHandle >> 8));
  bits.rc(static_cast<std::uint8_t>(nextHandle));
  bits.rc(1), bits.rc(1), bits.rc(7);
  std::string bytes = bits.take();
  const std::string tail = drawing.version == Version::kR13 ? "" : "87654321";
  putRaw(bytes, 0, static_cast<std::uint32_t>(bytes.size() + 2 + tail.size()));
  return std::string(SecondHeader::kBegin) + withCrc(drawing.spoilt(bytes)) + tail + "the second's end";
}

struct Section {
  std::string name, content;
  bool isPlain = false;
};

std::vector<Section> sectionsOf(const SmallDrawing& drawing, std::uint64_t previewAt) {
  std::vector<ObjectPlace> places;
  std::string objects = objectBytes(drawing, 4, places);
  return {{"AcDb:Preview", thumbnail(previewAt), true},
          {"AcDb:AcDbObjects", u32(0x0DCA) + objects},
          {"AcDb:ObjFreeSpace", freeSpace(drawing)},
          {"AcDb:Handles", mapBytes(drawing, places)},
          {"AcDb:Classes", framed(drawing, kClassesBegin, drawing.classes, kClassesEnd)},
          {"AcDb:AuxHeader", auxHeader(drawing)},
          {"AcDb:Header", framed(drawing, kHeaderBegin, drawing.header, kHeaderEnd)}};
}

// Literal bytes only, as the pages of R2004 have them.
std::string literalsOnly(const std::string& bytes) {
  std::string result(1, '\0');
  std::size_t count = bytes.size() - 18;
  for (; count > 0xFF; count -= 0xFF) result += '\0';
  result += static_cast<char>(count);
  return result + bytes + std::string("\x11\0\0", 3);
}

// As a page of R2007 holds it.
std::string packedCoded(const std::string& content) {
  std::string packed = compressCoded(content);
  return packed.size() < content.size() ? packed : content;
}

std::string combined(std::string bytes) {
  std::uint32_t state = 1;
  for (char& byte : bytes) {
    state = state * 0x343FD + 0x269EC3;
    byte = static_cast<char>(byte ^ static_cast<char>(state >> 16));
  }
  return bytes;
}

std::string page2004(const std::string& data, std::uint64_t at, std::size_t type, std::uint64_t start) {
  const std::size_t size = (data.size() + 32 + 31) / 32 * 32;
  std::string header = u32(0x4163043B) + u32(type) + u32(data.size()) + u32(size) + u32(start) + u32(0) +
                       u32(0) + u32(pageChecksum(0, data));
  putRaw(header, 24, pageChecksum(pageChecksum(0, data), header));
  for (std::size_t i = 0; i < 32; i += 4) {
    putRaw(header, i, rawAt<std::uint32_t>(header, i) ^ static_cast<std::uint32_t>(0x4164536B ^ at));
  }
  std::string page = header + data;
  page.resize(size, '\0');
  return page;
}

std::string systemPage2004(const SmallDrawing& drawing, const std::string& original, std::uint32_t type) {
  const std::string content = drawing.spoilt(original), data = drawing.spoilt(literalsOnly(content));
  std::string page = u32(type) + u32(content.size()) + u32(data.size()) + u32(2) + u32(0);
  putRaw(page, 16, pageChecksum(pageChecksum(0, page), data));
  page += data;
  page.resize((page.size() + 31) / 32 * 32, '\0');
  return page;
}

std::string utf16(const std::string& name) {
  std::string bytes;
  for (const char c : name) bytes += c, bytes += '\0';
  return name.empty() ? bytes : bytes + std::string(2, '\0');
}

}  // namespace

std::string headerSection(Version version, const FieldChanges& variables) {
  constexpr std::uint32_t kAmple = 4000;  // bytes of each stream
  BitWriter seed;
  if (hasWideTexts(version)) seed.rl(32 + 8 * kAmple);
  const std::string zeros((hasWideTexts(version) ? 2 : 1) * kAmple, '\0');
  seed.copy(zeros, 0, zeros.size() * 8);
  const auto header = rewriteHeader(seed.take(), version, variables);
  if (!header.ok()) throw std::logic_error("the header of a drawing cannot be made");
  return header.value();
}

std::string classSection(Version version, const std::vector<FileClass>& classes) {
  constexpr std::uint16_t kEntityClass = 0x1F2;
  BitWriter data, texts;
  const auto text = [&](const std::string& ascii) {
    hasWideTexts(version) ? texts.tu(std::u16string(ascii.begin(), ascii.end())) : data.tv(ascii);
  };
  if (version >= Version::kR2004)
    data.bs(static_cast<std::int16_t>(classes.back().number)), data.rc(0), data.rc(0), data.b(true);
  for (const FileClass& each : classes) {
    data.bs(static_cast<std::int16_t>(each.number)), data.bs(0);
    text("an application"), text("AcDb" + each.dxfName), text(each.dxfName);
    data.b(false), data.bs(kEntityClass);
    for (int i = 0; i < 5 && version >= Version::kR2004; ++i) data.bl(0);
  }
  if (!hasWideTexts(version)) return data.take();
  BitWriter whole;
  data.copy(texts);
  closeTexts(data, texts.size());
  whole.rl(static_cast<std::uint32_t>(32 + data.size()));
  whole.copy(data);
  return whole.take();
}

std::string mapPairs(std::span<const ObjectPlace> places) {
  BitWriter pairs;
  ObjectPlace last;
  for (const ObjectPlace& place : places) {
    pairs.umc(place.handle - last.handle);
    pairs.mc(static_cast<std::int64_t>(place.offset - last.offset));
    last = place;
  }
  return pairs.take();
}

SmallDrawing smallDrawing(Version version) {
  SmallDrawing drawing;
  drawing.version = version;
  for (Handle handle = 1; handle <= 120; ++handle) {
    drawing.objects.push_back(
        {handle * 3, "object " + std::to_string(handle) + std::string(handle % 40, 'x')});
  }
  return drawing;
}

std::string locatedBytes(const SmallDrawing& drawing, SmallPlaces& at) {
  const unsigned count = drawing.version == Version::kR2000 ? 6 : 5;
  std::string bytes = beginning(drawing);
  bytes.resize(0x19 + 9 * count + 2, '\0');
  bytes += kLocatorsEnd;
  std::vector<std::pair<std::uint64_t, std::uint64_t>> sections(count);
  const auto add = [&](std::size_t number, const std::string& content) {
    sections[number] = {bytes.size(), content.size()};
    bytes += content;
    return sections[number].first;
  };
  if (count == 6) at.auxHeader = add(5, auxHeader(drawing));
  at.header = add(0, framed(drawing, kHeaderBegin, drawing.header, kHeaderEnd));
  add(1, framed(drawing, kClassesBegin, drawing.classes, kClassesEnd));
  bytes += u32(0x0DCA);
  std::vector<ObjectPlace> places;
  bytes += objectBytes(drawing, bytes.size(), places);
  at.map = add(2, mapBytes(drawing, places));
  std::string free = freeSpace(drawing);
  putRaw(free, 16, static_cast<std::uint32_t>(places.front().offset));
  at.freeSpace = add(3, free);
  const std::uint64_t thumbnailAt = bytes.size();
  bytes += thumbnail(thumbnailAt);
  at.picture = bytes.size() - 7;
  add(4, std::string("\0\0\1\0", 4));
  at.secondHeader = bytes.size();
  bytes += secondHeader(drawing, at.secondHeader, sections);
  putRaw(bytes, 0x0D, static_cast<std::uint32_t>(thumbnailAt));
  putRaw(bytes, 0x15, count);
  for (unsigned i = 0; i < count; ++i) {
    bytes.replace(0x19 + 9 * i, 9,
                  std::string(1, static_cast<char>(i)) + u32(sections[i].first) + u32(sections[i].second));
  }
  const std::uint64_t end = 0x19 + 9 * count;
  bytes.replace(0x0D, end - 0x0D, drawing.spoilt(bytes.substr(0x0D, end - 0x0D)), 0, end - 0x0D);
  putRaw(bytes, end,
         static_cast<std::uint16_t>(crc16(0, part(bytes, 0, end)) ^ (count == 6 ? 0x8461 : 0x3CC4)));
  return bytes;
}

std::string pagedBytes(const SmallDrawing& drawing, const PageFaults& faults) {
  std::vector<std::pair<std::uint32_t, std::string>> pages;  // number, bytes
  std::uint64_t at = 0x100;
  const auto add = [&](const std::string& bytes) {
    pages.emplace_back(static_cast<std::uint32_t>(pages.size() + 1), bytes);
    at += bytes.size();
    return pages.back().first;
  };
  std::string map;
  const auto sections = sectionsOf(drawing, 0x120);
  for (std::size_t i = 0; i < sections.size(); ++i) {
    const Section& section = sections[i];
    std::string told;
    std::uint32_t count = 0;
    for (std::size_t start = 0; start < section.content.size(); start += kPageSize, ++count) {
      std::string content = section.content.substr(start, kPageSize);
      content.resize(kPageSize, '\0');
      if (!section.isPlain) content = drawing.spoilt(literalsOnly(content));
      const std::uint32_t number = add(page2004(content, at, i + 1, start));
      told += u32(faults.usesPageTwice ? 2
                  : faults.namesNoPage ? 99
                                       : number) +
              u32(content.size()) + u64(faults.startsAgain ? 0 : start);
    }
    const bool isResized = faults.objectsSize != 0 && section.name == "AcDb:AcDbObjects";
    map += u64(isResized ? faults.objectsSize : section.content.size()) + u32(count) + u32(kPageSize) +
           u32(1) + u32(section.isPlain ? 1 : 2) + u32(i + 1) + u32(faults.isEncrypted ? 1 : 0);
    std::string name = section.name;
    name.resize(64, '\0');
    map += name + told;
  }
  const std::string head = u32(sections.size()) + u32(2) + u32(kPageSize) + u32(0) + u32(sections.size());
  const std::uint32_t sectionMap = add(systemPage2004(drawing, head + map, 0x4163003B));
  const auto pageMapNumber = static_cast<std::uint32_t>(pages.size() + 1);
  std::string pageMap;
  for (const auto& [number, bytes] : pages)
    pageMap += u32(faults.hasPageTwice ? 1 : number) + u32(bytes.size());
  pageMap += u32(pageMapNumber) + u32(0x4000);
  const std::uint64_t pageMapAt = at;

  std::string file = beginning(drawing);
  file.resize(0x100, '\0');
  putRaw(file, 0x0D, std::uint32_t{0x120});
  for (const auto& [number, bytes] : pages) file += bytes;
  file += systemPage2004(drawing, pageMap, 0x41630E3B);
  std::string header = std::string("AcFssFcAJMB\0", 12) + u32(0) + u32(0x6C) + u32(4) +
                       std::string(12, '\0') + u32(1) + u32(pageMapNumber) + u64(pageMapAt + 0x4000 - 0x100) +
                       u64(faults.secondHeaderAt.value_or(file.size())) + u32(0) + u32(pageMapNumber) +
                       u32(0x20) + u32(0x80) + u32(0x40) + u32(pageMapNumber) + u64(pageMapAt - 0x100) +
                       u32(sectionMap) + u32(pageMapNumber) + u32(0) + u32(0);
  header = drawing.spoilt(header).substr(0, 0x68) + u32(0);
  putRaw(header, 0x68, crc32(0, header));
  header = combined(header);
  file.replace(0x80, header.size(), header);
  return faults.secondHeaderAt == 0 ? file : file + header;
}

std::string codedBytes(const SmallDrawing& drawing, const PageFaults& faults) {
  const ReedSolomon& systemCode = ReedSolomon::ofSystemPages();
  const ReedSolomon& dataCode = ReedSolomon::ofDataPages();
  std::vector<std::pair<std::uint64_t, std::string>> pages;
  const auto add = [&](std::string bytes) {
    bytes.resize((bytes.size() + 31) / 32 * 32, '\0');
    pages.emplace_back(pages.size() + 1, bytes);
    return pages.back().first;
  };
  const auto systemPage = [&](const std::string& content) {
    std::string filled = content;
    filled.resize((content.size() + 7) / 8 * 8, '\0');
    return systemCode.coded(filled + filled, std::string(239, 'p'));
  };
  std::string map;
  for (const Section& section : sectionsOf(drawing, 0x480)) {
    std::string told;
    std::uint64_t count = 0;
    for (std::size_t start = 0; start < section.content.size(); start += kPageSize, ++count) {
      const std::string content = section.content.substr(start, kPageSize);
      const std::string packed = section.isPlain ? content : drawing.spoilt(packedCoded(content));
      std::string filled = packed;
      filled.resize((filled.size() + 7) / 8 * 8, '\0');
      const std::string padding(251, 'p');
      const std::uint64_t number =
          add(section.isPlain ? filled + dataCode.parity(filled, padding) : dataCode.coded(filled, padding));
      told += u64(faults.startsAgain ? 0 : start) + u64(content.size());
      told += u64(faults.usesPageTwice ? 2 : faults.namesNoPage ? 99 : number);
      told +=
          u64(content.size()) + u64(packed.size()) + u64(dataChecksum(content)) + u64(pageCrc64(0, packed));
    }
    const bool isResized = faults.objectsSize != 0 && section.name == "AcDb:AcDbObjects";
    const std::string name = utf16(section.name);
    map += u64(isResized ? faults.objectsSize : section.content.size()) + u64(kPageSize);
    map +=
        u64(faults.isEncrypted ? 1 : 0) + u64(0) + u64(name.size()) + u64(0) + u64(section.isPlain ? 1 : 4);
    map += u64(count) + name + told;
  }
  map = drawing.spoilt(map);
  const std::uint64_t sectionMap = add(systemPage(map));
  const std::uint64_t pageMapNumber = pages.size() + 1;
  std::uint64_t at = 0;
  std::string pageMap;
  for (const auto& [number, bytes] : pages) {
    pageMap += u64(bytes.size()) + u64(faults.hasPageTwice ? 1 : number);
    at += bytes.size();
  }
  constexpr std::uint64_t kPageMapSize = 0x1000;
  pageMap += u64(kPageMapSize) + u64(pageMapNumber);
  pageMap = drawing.spoilt(pageMap);
  std::string pageMapPage = systemPage(pageMap);
  pageMapPage.resize(kPageMapSize, '\0');
  const std::uint64_t size = 0x480 + at + kPageMapSize + 0x400;

  // By the number of the field.
  std::string fields(34 * 8, '\0');
  const auto tell = [&](std::size_t number, std::uint64_t value) { putRaw(fields, number * 8, value); };
  tell(0, 0x70), tell(1, size), tell(2, pageCrc64(0, pageMap)), tell(3, 2);
  tell(7, at), tell(8, pageMapNumber), tell(9, faults.secondHeaderAt.value_or(at + kPageMapSize));
  tell(10, pageMap.size()), tell(11, pageMap.size()), tell(12, pageMapNumber), tell(13, pageMapNumber);
  tell(16, pageCrc64(0, pageMap)), tell(21, pageCrc64(0, map)), tell(22, map.size()), tell(24, sectionMap);
  tell(25, map.size()), tell(26, pageCrc64(0, map)), tell(27, 2), tell(32, 12345);
  fields = drawing.spoilt(fields).substr(0, 33 * 8) + u64(0);
  putRaw(fields, fields.size() - 8, headerCrc64(fields));
  std::string block = u64(1) + u64(2) + u64(headerCrc64(fields)) + u32(0 - fields.size()) + u32(0) + fields;
  std::string header = systemCode.coded(block + block, std::string(239, 'p'));
  header.resize(0x400, 'c');

  std::string file = beginning(drawing);
  file.resize(0x80, '\0');
  putRaw(file, 0x0D, std::uint32_t{0x480});
  file += header;
  for (const auto& [number, bytes] : pages) file += bytes;
  return file + pageMapPage + header;
}

// It stands at the end of all objects.
void spoilLastChecksum(SmallDrawing& drawing) {
  drawing.spoil = [last = drawing.objects.back().data](std::string& piece) {
    if (piece.size() > last.size() && piece.substr(piece.size() - last.size() - 2, last.size()) == last)
      piece.back() = static_cast<char>(~piece.back());
  };
}

std::string bytesOf(const SmallDrawing& drawing) {
  SmallPlaces places;
  if (drawing.version <= Version::kR2000) return locatedBytes(drawing, places);
  return drawing.version == Version::kR2007 ? codedBytes(drawing) : pagedBytes(drawing);
}

}  // namespace cad::dwg
