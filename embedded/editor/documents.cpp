#include "embedded/editor/documents.h"

#include <algorithm>
#include <fstream>

#include "base/files.h"
#include "base/media.h"
#include "dbapserv.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"
#include "embedded/formats/drawing_files.h"
#include "embedded/objects/database_access.h"

ACRX_DEFINE_MEMBERS(AcApDocument, AcRxObject, nullptr)

namespace cad {

bool isWriteProtected(const std::filesystem::path& path) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(path, ignored);
  // A pipe that is opened and closed has lost what its writer gave.
  if (!std::filesystem::exists(status) || std::filesystem::is_fifo(status)) return false;
  return !std::ofstream(path, std::ios::in | std::ios::out | std::ios::binary).is_open();
}

bool asksForReadOnly(const std::filesystem::path& path) {
  return isWriteProtected(path) && !base::isOnCompactDisc(path);
}

Document::Document(std::unique_ptr<Drawing> drawing, std::wstring name, int number)
    : drawing_(std::move(drawing)),
      database_(makeDatabase(*drawing_)),
      name_(std::move(name)),
      number_(number) {
  requireLock(*database_, [this] { return !isHeldForWriting(); });
  tellRemarks(*database_, remark);
  searchFonts(*database_, findFile);
}

Document::~Document() = default;

std::wstring Document::name() const {
  return drawing_->path().empty() ? name_ : base::pathText(drawing_->path().filename());
}

DocumentInfo Document::info() const {
  return {number_, drawing_->path(), name(), drawing_->revision(), drawing_->isModified(), readOnly_};
}

const ACHAR* Document::fileName() const {
  buffer_ = drawing_->path().empty() ? name_ : base::pathText(drawing_->path());
  return buffer_.c_str();
}

const ACHAR* Document::docTitle() const {
  buffer_ = name();
  return buffer_.c_str();
}

bool Document::isQuiescent() const {
  const HostState& state = hostState();
  return state.documents.current() != this || !state.commandLine.runsInDocument();
}

bool Document::isHeldForWriting() const {
  const auto writes = [](AcAp::DocLockMode mode) { return mode != AcAp::kNone && mode != AcAp::kRead; };
  return !isQuiescent() || std::ranges::any_of(locks, writes);
}

void Documents::add(std::unique_ptr<Drawing> drawing, std::wstring name) {
  documents_.push_back(std::make_unique<Document>(std::move(drawing), std::move(name), ++lastNumber_));
}

void Documents::addStartDocument() {
  std::wstring name = L"Drawing" + std::to_wstring(++startCount_) + L".dwg";
  add(std::move(formats::create(Version::kR2004).value()), std::move(name));
  activate(documents_.back().get());
}

base::Status Documents::open(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(path, error);
  Document* already = find(whole);
  if (already == nullptr) return load(whole, isWriteProtected(whole));
  activate(already);
  return {};
}

base::Status Documents::openReadOnly(const std::filesystem::path& path) {
  std::error_code error;
  return load(std::filesystem::absolute(path, error), true);
}

base::Status Documents::load(const std::filesystem::path& whole, bool readOnly) {
  base::Result<std::unique_ptr<Drawing>> loaded = formats::open(whole);
  if (!loaded) return loaded.failure();
  for (const std::wstring& warning : formats::warningsAbout(*loaded.value()))
    printText(L"\n" + base::Failure{base::pathText(whole), warning}.text());
  add(std::move(loaded.value()), L"");
  documents_.back()->setReadOnly(readOnly);
  activate(documents_.back().get());
  hostState().modules.sendToAll(AcRx::kLoadDwgMsg);
  return {};
}

void Documents::close(Document* document) {
  std::erase(closing_, document);
  const auto found = std::find_if(documents_.begin(), documents_.end(),
                                  [&](const auto& each) { return each.get() == document; });
  if (found == documents_.end()) return;
  HostState& state = hostState();
  state.modules.sendToAll(AcRx::kUnloadDwgMsg);
  state.selectionSets.drop(document->drawing());
  state.picking.forget();
  state.commandLine.drop(document);
  const std::unique_ptr<Document> closing = std::move(*found);
  documents_.erase(found);
  if (current_ != document) return;
  current_ = nullptr;
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  if (documents_.empty())
    addStartDocument();
  else
    activate(documents_.back().get());
}

void Documents::closeAfterCommands(Document* document) {
  if (!hostState().commandLine.isBusy()) return close(document);
  if (std::ranges::find(closing_, document) == closing_.end()) closing_.push_back(document);
}

void Documents::closeWaiting() {
  while (!closing_.empty()) close(closing_.front());
}

void Documents::closeAll() {
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  current_ = nullptr;
  closing_.clear();
  documents_.clear();
  startCount_ = 0;
}

void Documents::activate(Document* document) {
  const auto found = std::find_if(documents_.begin(), documents_.end(),
                                  [&](const auto& each) { return each.get() == document; });
  if (found == documents_.end()) return;
  std::rotate(found, found + 1, documents_.end());
  if (current_ != document) hostState().picking.highlight(kNoRecord);
  current_ = document;
  acdbHostApplicationServices()->setWorkingDatabase(document->database());
}

bool Documents::contains(const AcApDocument* document) const { return find(document) != nullptr; }

Document* Documents::find(const AcApDocument* document) const {
  for (const auto& each : documents_)
    if (each.get() == document) return each.get();
  return nullptr;
}

Document* Documents::find(const AcDbDatabase* database) const {
  for (const auto& each : documents_)
    if (each->database() == database) return each.get();
  return nullptr;
}

Document* Documents::find(const std::filesystem::path& path, const Document* besides) const {
  for (const auto& each : documents_) {
    if (each.get() == besides) continue;
    std::error_code error;
    const std::filesystem::path& own = each->drawing().path();
    if (!own.empty() && (own == path || std::filesystem::equivalent(own, path, error))) return each.get();
  }
  return nullptr;
}

}  // namespace cad
