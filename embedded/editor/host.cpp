#include "embedded/editor/host.h"

#include <algorithm>
#include <utility>

#include "base/disk.h"
#include "base/files.h"
#include "base/fold.h"
#include "base/temporary_files.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"

namespace cad {

HostState& hostState() { return *Host::instance().state_; }

Host& Host::instance() {
  static Host host;
  return host;
}

Host::Host() : state_(std::make_unique<HostState>()) {}
Host::~Host() = default;

void Host::start() {
  if (state_->running) return;
  state_->running = true;
  state_->documents.addStartDocument();
}

void Host::stop() {
  if (!state_->running) return;
  state_->modules.quit();
  state_->commandLine.clear();
  state_->messageFilters.clear();
  state_->selectionSets.clear();
  state_->picking.forget();
  state_->documents.closeAll();
  state_->sessionVariables.clear();
  state_->newestFailure.reset();
  state_->remarks.clear();
  state_->lastSave.reset();
  state_->meter = {};
  state_->running = false;
}

base::Status Host::openDocument(const std::filesystem::path& path) { return state_->documents.open(path); }

base::Status Host::closeDocument() {
  Document* document = state_->documents.current();
  if (document == nullptr) return base::Failure{L"", L"The host has not been started."};
  if (state_->commandLine.isBusy()) return base::Failure{document->name(), L"A command is running."};
  state_->documents.close(document);
  return {};
}

Drawing& Host::currentDrawing() { return state_->documents.current()->drawing(); }
std::size_t Host::documentCount() const { return state_->documents.all().size(); }

DocumentInfo Host::currentDocument() const {
  Document* document = state_->documents.current();
  return document != nullptr ? document->info() : DocumentInfo();
}

std::vector<DocumentInfo> Host::documents() const {
  std::vector<DocumentInfo> out;
  for (const auto& each : state_->documents.all()) out.push_back(each->info());
  return out;
}

bool Host::activateDocument(int number) {
  const auto found = std::ranges::find_if(
      state_->documents.all(), [number](const auto& each) { return each->info().number == number; });
  if (found == state_->documents.all().end()) return false;
  state_->documents.activate(found->get());
  return true;
}

base::Status Host::execute(std::wstring_view text) {
  if (!state_->running) return base::Failure{L"", L"The host has not been started."};
  return state_->commandLine.type(std::wstring(text));
}

bool Host::hasOpenPrompt() const { return state_->commandLine.hasOpenPrompt(); }
void Host::cancelPrompt() { state_->commandLine.cancelPrompt(); }

void Host::setOutput(std::function<void(std::wstring_view)> sink) { state_->output = std::move(sink); }
void Host::setSupportPath(std::vector<std::filesystem::path> folders) {
  state_->supportPath = std::move(folders);
}
void Host::setMeterObserver(std::function<void(const Meter&)> observer) {
  state_->meterObserver = std::move(observer);
}
void Host::setScriptObserver(std::function<void(const ScriptProgress&)> observer) {
  state_->scriptObserver = std::move(observer);
}
void Host::setBreakQuery(std::function<bool()> query) { state_->breakQuery = std::move(query); }
void Host::setInputSource(std::function<std::optional<InputEvent>()> source) {
  state_->inputSource = std::move(source);
}
void Host::setFunction(const std::wstring& name, std::function<void()> function) {
  state_->functions.define(name, std::move(function));
}
void Host::setMainWindow(void* windowHandle) { state_->mainWindow = windowHandle; }

const Scene& Host::scene() { return state_->picking.scene(currentDrawing()); }
void Host::setHighlightObserver(std::function<void(RecordId)> observer) {
  state_->picking.setObserver(std::move(observer));
}
void Host::clearHighlight() { state_->picking.highlight(kNoRecord); }
bool Host::isPicking() const { return state_->picking.isWaiting(); }

bool Host::filterMessage(void* message) {
  // A filter may remove itself, or another one, while it is asked.
  const std::vector<MessageFilter> filters = state_->messageFilters;
  for (auto each = filters.rbegin(); each != filters.rend(); ++each) {
    const bool registered = std::ranges::find(state_->messageFilters, *each) != state_->messageFilters.end();
    if (registered && (*each)(static_cast<tagMSG*>(message)) != 0) return true;
  }
  return false;
}

base::Status Host::loadModule(const std::filesystem::path& path) {
  const std::filesystem::path found = findFile(base::pathText(path));
  if (found.empty()) return base::Failure{base::pathText(path), L"The module was not found."};
  return state_->modules.load(found);
}

base::Status Host::unloadModule(std::wstring_view name) { return state_->modules.unload(name); }

void* Host::moduleSymbol(std::wstring_view module, const char* symbol) {
  return state_->modules.symbol(module, symbol);
}

void Host::beginRun() {
  state_->lastSave.reset();
  state_->remarks.clear();
}

const std::optional<SaveReport>& Host::lastSave() const { return state_->lastSave; }
std::vector<base::Failure> Host::takeRemarks() { return std::exchange(state_->remarks, {}); }
void Host::removeTemporaryFilesOnSignals() { base::removeTemporaryFilesOnSignals(); }
void Host::setWaitingForDisk(bool waits) { base::setWaitingForDisk(waits); }

std::wstring commandName(std::wstring_view line) {
  line = base::trim(line);
  return readCommandName(line.substr(0, line.find(L' '))).name;
}

std::optional<Point> typedPoint(std::wstring_view text) { return Token{std::wstring(text)}.point(); }

}  // namespace cad
