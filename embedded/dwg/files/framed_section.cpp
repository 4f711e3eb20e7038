#include "embedded/dwg/files/framed_section.h"

#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/sentinels.h"

namespace cad::dwg {
namespace {

struct Marks {
  const wchar_t* name;
  std::string_view begin, end;
};
constexpr Marks kMarks[] = {{L"AcDb:Header", kHeaderBegin, kHeaderEnd},
                            {L"AcDb:Classes", kClassesBegin, kClassesEnd}};

}  // namespace

std::string_view FramedSection::content(std::string_view bytes) const {
  return part(bytes, contentAt, length);
}

void FramedSection::change(std::string_view bytes, const std::optional<std::string>& now,
                           Splices& splices) const {
  if (!now || *now == content(bytes)) return;
  std::string framed(part(bytes, sizeAt, contentAt - sizeAt));
  putRaw(framed, 0, static_cast<std::uint32_t>(now->size()));
  framed += *now;
  appendRaw(framed, crc16(kCrcStart, framed));
  splices.add(sizeAt, contentAt - sizeAt + length + 2, std::move(framed));
}

base::Result<FramedSection> readFramed(Framed which, std::string_view bytes, std::uint64_t at,
                                       std::uint64_t place) {
  const Marks& marks = kMarks[static_cast<std::size_t>(which)];
  const std::wstring name = marks.name;
  const std::uint64_t sentinel = kSentinelLength;
  if (!isWithin(at, sentinel + 4, bytes.size())) return refusal(place, name + L" is cut off");
  if (part(bytes, at, sentinel) != marks.begin) return refusal(place, name + L" has no begin mark");
  FramedSection section{at + sentinel, 0, rawAt<std::uint32_t>(bytes, at + sentinel)};
  bool isCut = true;
  // Which of the newer files have the size's upper half, the versions do not tell for sure.
  for (const unsigned sizeLength : {4U, 8U}) {
    section.contentAt = section.sizeAt + sizeLength;
    const std::uint64_t crcAt = section.contentAt + section.length;
    if (!isWithin(section.contentAt, section.length + 2 + sentinel, bytes.size())) continue;
    isCut = false;
    if (part(bytes, crcAt + 2, sentinel) != marks.end) continue;
    if (crc16(kCrcStart, part(bytes, section.sizeAt, crcAt - section.sizeAt)) ==
        rawAt<std::uint16_t>(bytes, crcAt)) {
      return section;
    }
    return refusal(place, L"The checksum of " + name + L" is wrong");
  }
  return refusal(place, name + (isCut ? L" is cut off" : L" has no end mark"));
}

}  // namespace cad::dwg
