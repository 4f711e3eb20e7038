#include "embedded/dwg/files/splices.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace cad::dwg {

void Splices::add(std::uint64_t at, std::uint64_t removed, std::string bytes) {
  const std::uint64_t size = bytes.size();
  add({.at = at, .text = static_cast<std::uint32_t>(texts_.size())}, removed, size);
  texts_.push_back(std::move(bytes));
}

void Splices::add(std::uint64_t at, std::uint64_t removed, std::uint32_t number) {
  add({.at = at, .number = number}, removed, 0);
}

void Splices::add(Splice splice, std::uint64_t removed, std::uint64_t size) {
  splice.removed = static_cast<std::uint32_t>(removed), splice.size = static_cast<std::uint32_t>(size);
  if (splice.removed != removed || splice.size != size) isTooLarge_ = true;
  splices_.push_back(splice);
}

bool Splices::arrange() {
  const auto order = [](const Splice& splice) { return std::pair(splice.at, splice.end()); };
  if (!std::ranges::is_sorted(splices_, {}, order)) std::ranges::stable_sort(splices_, {}, order);
  std::uint64_t end = 0;
  for (const Splice& splice : splices_) {
    if (splice.at < end) return false;
    end = splice.end();
  }
  shiftFrom(0);
  return !isTooLarge_;
}

void Splices::shiftFrom(std::size_t position) {
  std::uint64_t shift = position == 0 ? 0 : splices_[position - 1].shift;
  for (; position < splices_.size(); ++position) {
    Splice& splice = splices_[position];
    splice.shift = shift += std::uint64_t{splice.size} - splice.removed;
  }
}

std::vector<Splices::Splice>::const_iterator Splices::behind(std::uint64_t offset) const {
  return std::ranges::partition_point(splices_, [&](const Splice& splice) { return splice.end() <= offset; });
}

std::vector<Splices::Splice>::const_iterator Splices::find(std::uint64_t at) const {
  return std::find_if(behind(at), splices_.end(), [&](const Splice& splice) { return splice.removed > 0; });
}

std::uint64_t Splices::shiftBefore(std::vector<Splice>::const_iterator splice) const {
  return splice == splices_.begin() ? 0 : std::prev(splice)->shift;
}

void Splices::replace(std::uint64_t at, std::string bytes) {
  const auto position = static_cast<std::size_t>(find(at) - splices_.begin());
  Splice& splice = splices_[position];
  splice.size = static_cast<std::uint32_t>(bytes.size());
  texts_[splice.text] = std::move(bytes);
  shiftFrom(position);
}

std::string_view Splices::replacement(std::uint64_t at) const { return texts_[find(at)->text]; }

std::uint64_t Splices::moved(std::uint64_t offset) const { return offset + shiftBefore(behind(offset)); }

std::uint64_t Splices::moved(std::uint64_t offset, std::size_t& near) const {
  const auto isBehind = [&](std::size_t at) {
    return (at == 0 || splices_[at - 1].end() <= offset) &&
           (at == splices_.size() || splices_[at].end() > offset);
  };
  if (!isBehind(near) && (near == splices_.size() || !isBehind(++near)))
    near = static_cast<std::size_t>(behind(offset) - splices_.begin());
  return offset + (near == 0 ? 0 : splices_[near - 1].shift);
}

std::uint64_t Splices::inserted(std::uint64_t at) const {
  const auto splice = std::find_if(splices_.begin(), splices_.end(), [&](const Splice& candidate) {
    return candidate.at == at && candidate.removed == 0;
  });
  return at + shiftBefore(splice);
}

std::uint64_t Splices::movedLength(std::uint64_t at, std::uint64_t length) const {
  const std::uint64_t end = at + length;
  for (auto splice = behind(at); splice != splices_.end() && splice->at < end; ++splice) {
    length += std::uint64_t{splice->size} - splice->removed;
  }
  return length;
}

std::string_view Splices::bytesOf(Splice& splice, const BytesOf& bytesOf) const {
  if (splice.number == kText) return texts_[splice.text];
  const std::string_view bytes = bytesOf(splice.number);
  splice.size = static_cast<std::uint32_t>(bytes.size());
  return bytes;
}

void Splices::measure(const BytesOf& bytesOf) {
  for (Splice& splice : splices_) this->bytesOf(splice, bytesOf);
  shiftFrom(0);
}

void Splices::apply(std::string_view bytes, std::uint64_t begin, std::uint64_t end, const BytesOf& bytesOf,
                    const Write& write) {
  std::uint64_t at = begin;
  const auto copyTo = [&](std::uint64_t to) {
    if (to > at) write(bytes.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(to - at)));
  };
  const auto first =
      static_cast<std::size_t>(std::ranges::lower_bound(splices_, begin, {}, &Splice::at) - splices_.begin());
  // What is put in at the end of all bytes belongs to them.
  const bool isAll = end == bytes.size();
  for (std::size_t i = first; i < splices_.size() && (splices_[i].at < end || isAll); ++i) {
    copyTo(splices_[i].at);
    write(this->bytesOf(splices_[i], bytesOf));
    at = splices_[i].end();
  }
  copyTo(end);
  shiftFrom(first);
}

std::string Splices::applied(std::string_view bytes, const BytesOf& bytesOf) {
  std::string result;
  result.reserve(bytes.size() + bytes.size() / 8);
  apply(bytes, 0, bytes.size(), bytesOf, [&](std::string_view piece) { result += piece; });
  return result;
}

}  // namespace cad::dwg
