#include "embedded/formats/drawing_files.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "embedded/dxf/loader.h"
#include "embedded/formats/foreign_formats.h"

namespace cad::formats {
namespace {

using Opened = base::Result<std::unique_ptr<Drawing>>;

std::vector<Format>& addedFormats() {
  static std::vector<Format> formats;
  return formats;
}

Opened read(std::unique_ptr<SourceBytes>& source) {
  const std::string_view bytes = source->view();
  if (bytes.empty()) return base::Failure{{}, L"The file is empty"};
  const auto& formats = addedFormats();
  const auto format = std::find_if(formats.rbegin(), formats.rend(),
                                   [&](const Format& each) { return each.recognises(bytes); });
  if (format != formats.rend()) return format->read(source);
  if (const std::wstring foreign = foreignFormat(bytes); !foreign.empty()) return base::Failure{{}, foreign};
  return dxf::read(source);  // any other text may be meant to be one
}

}  // namespace

void addFormat(const Format& format) { addedFormats().push_back(format); }

Opened open(const std::filesystem::path& path) {
  auto file = base::MappedFile::open(path);
  if (!file) return file.failure();
  auto source = std::make_unique<SourceBytes>(std::move(file.value()));
  const SourceBytes& bytes = *source;
  Opened result = read(source);
  if (base::Status unchanged = bytes.checkUnchanged(); !unchanged) return unchanged.failure();
  const std::wstring name = base::pathText(path);
  if (!result) {
    const base::Failure& failure = result.failure();
    return base::Failure{failure.place.empty() ? name : name + L", " + failure.place, failure.reason};
  }
  result.value()->setPath(path);
  return result;
}

Opened openBytes(std::string bytes) {
  auto source = std::make_unique<SourceBytes>(std::move(bytes));
  return read(source);
}

Opened create(Version version) {
  if (version >= Version::kR2000 && version < Version::kUnknown) return dxf::newDrawing(version);
  const std::string_view code = versionCode(version);
  return base::Failure{std::wstring(code.begin(), code.end()), L"New drawings of this version are not made"};
}

}  // namespace cad::formats
