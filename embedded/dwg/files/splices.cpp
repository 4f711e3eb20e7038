#include "embedded/dwg/files/splices.h"

#include <algorithm>
#include <utility>

namespace cad::dwg {

void Splices::add(std::uint64_t at, std::uint64_t removed, std::string bytes) {
  splices_.push_back({at, removed, std::move(bytes)});
}

bool Splices::arrange() {
  std::stable_sort(splices_.begin(), splices_.end(), [](const Splice& a, const Splice& b) {
    return std::pair(a.at, a.at + a.removed) < std::pair(b.at, b.at + b.removed);
  });
  std::uint64_t shift = 0, end = 0;
  for (Splice& splice : splices_) {
    if (splice.at < end) return false;
    end = splice.at + splice.removed;
    shift += splice.bytes.size() - splice.removed;
    splice.shift = shift;
  }
  return true;
}

std::vector<Splices::Splice>::const_iterator Splices::behind(std::uint64_t offset) const {
  return std::partition_point(splices_.begin(), splices_.end(),
                              [&](const Splice& splice) { return splice.at + splice.removed <= offset; });
}

std::vector<Splices::Splice>::const_iterator Splices::find(std::uint64_t at) const {
  return std::find_if(behind(at), splices_.end(), [&](const Splice& splice) { return splice.removed > 0; });
}

std::uint64_t Splices::shiftBefore(std::vector<Splice>::const_iterator splice) const {
  return splice == splices_.begin() ? 0 : std::prev(splice)->shift;
}

void Splices::replace(std::uint64_t at, std::string bytes) {
  splices_[static_cast<std::size_t>(find(at) - splices_.begin())].bytes = std::move(bytes);
  arrange();
}

std::string_view Splices::replacement(std::uint64_t at) const { return find(at)->bytes; }

std::uint64_t Splices::moved(std::uint64_t offset) const { return offset + shiftBefore(behind(offset)); }

std::uint64_t Splices::inserted(std::uint64_t at) const {
  const auto splice = std::find_if(splices_.begin(), splices_.end(), [&](const Splice& candidate) {
    return candidate.at == at && candidate.removed == 0;
  });
  return at + shiftBefore(splice);
}

std::uint64_t Splices::movedLength(std::uint64_t at, std::uint64_t length) const {
  const std::uint64_t end = at + length;
  for (auto splice = behind(at); splice != splices_.end() && splice->at < end; ++splice) {
    length += splice->bytes.size() - splice->removed;
  }
  return length;
}

std::string Splices::applied(std::string_view bytes) const {
  std::string result;
  result.reserve(bytes.size() + static_cast<std::size_t>(splices_.empty() ? 0 : splices_.back().shift));
  std::uint64_t at = 0;
  for (const Splice& splice : splices_) {
    result.append(bytes, static_cast<std::size_t>(at), static_cast<std::size_t>(splice.at - at));
    result += splice.bytes;
    at = splice.at + splice.removed;
  }
  result.append(bytes, static_cast<std::size_t>(at));
  return result;
}

}  // namespace cad::dwg
