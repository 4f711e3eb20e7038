#include "embedded/dwg/files/second_header.h"

#include <algorithm>

#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

// The version's code with what follows it until the code page.
constexpr unsigned kVersionBytes = 13;
constexpr unsigned kMostSections = 16, kMostHandles = 64;

}  // namespace

std::optional<SecondHeader> SecondHeader::read(std::string_view bytes) {
  SecondHeader header;
  if (bytes.size() < 4) return std::nullopt;
  const auto size = rawAt<std::uint32_t>(bytes, 0);
  if (size > bytes.size()) return std::nullopt;
  header.bytes_ = bytes.substr(0, size);
  if (!header.parse()) return std::nullopt;
  return header;
}

bool SecondHeader::parse() {
  BitReader reader(bytes_);
  const auto number = [&] {
    Number read{reader.position(), 0, 0};
    read.value = static_cast<std::uint32_t>(reader.bl());
    read.end = reader.position();
    return read;
  };
  reader.rl();
  address_ = number();
  reader.skip(kVersionBytes * 8);
  reader.bs();
  reader.rs();
  const auto sections = static_cast<std::uint16_t>(reader.bs());
  if (sections > kMostSections) return false;
  for (unsigned i = 0; i < sections; ++i) {
    Section section;
    section.number = reader.rc();
    section.address = number();
    section.size = number();
    sections_.push_back(section);
  }
  const auto handles = static_cast<std::uint16_t>(reader.bs());
  if (handles == 0 || handles > kMostHandles) return false;
  for (unsigned i = 0; i < handles; ++i) {
    const std::uint64_t begin = reader.position();
    const unsigned size = reader.rc();
    const unsigned which = reader.rc();
    reader.skip(size * 8);
    if (i == 0 && (which != 0 || size > 8)) return false;
    if (i == 0) nextHandleAt_ = begin, nextHandleEnd_ = reader.position();
  }
  end_ = reader.position();
  crcAt_ = (end_ + 7) / 8;
  return !reader.failed() && isWithin(crcAt_, 2, bytes_.size()) &&
         crc16(kCrcStart, part(bytes_, 0, crcAt_)) == rawAt<std::uint16_t>(bytes_, crcAt_);
}

std::string SecondHeader::nextHandle(Handle largest) const {
  BitReader reader(bytes_, nextHandleAt_, nextHandleEnd_);
  const unsigned size = reader.rc();
  reader.rc();
  const Handle next = reader.bits(size * 8);
  BitWriter writer;
  if (next > largest) {
    writer.copy(bytes_, nextHandleAt_, nextHandleEnd_);
  } else {
    BitWriter value;
    value.h(0, largest + 1);
    writer.rc(static_cast<std::uint8_t>(value.size() / 8 - 1));
    writer.rc(0);
    writer.copy(value.bytes(), 8, value.size());
  }
  return writer.take();
}

std::string SecondHeader::moved(const Moves& moves) const {
  BitWriter writer;
  std::uint64_t at = 0;
  const auto put = [&](const Number& number, std::uint64_t value) {
    writer.copy(bytes_, at, number.begin);
    if (value == number.value) {
      writer.copy(bytes_, number.begin, number.end);
    } else {
      writer.bl(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
    }
    at = number.end;
  };
  put(address_, moves.address);
  for (const Section& section : sections_) {
    if (section.address.value == 0) continue;
    const auto [address, size] = moves.section(section.number);
    put(section.address, address);
    put(section.size, size);
  }
  writer.copy(bytes_, at, nextHandleAt_);
  const std::string handle = nextHandle(moves.largestHandle);
  writer.copy(handle, 0, handle.size() * 8);
  writer.copy(bytes_, nextHandleEnd_, end_);
  if ((writer.size() & 7) == (end_ & 7))
    writer.copy(bytes_, end_, crcAt_ * 8);  // what fills up the last byte
  writer.alignToByte();
  std::string result = writer.take();
  const auto newSize = static_cast<std::uint32_t>(result.size() + (bytes_.size() - crcAt_));
  putRaw(result, 0, newSize);
  appendRaw(result, crc16(kCrcStart, result));
  result += bytes_.substr(static_cast<std::size_t>(crcAt_) + 2);
  return result;
}

}  // namespace cad::dwg
