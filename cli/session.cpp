#include "cli/session.h"

#include <algorithm>

#include "base/files.h"
#include "base/fold.h"
#include "cli/language/language.h"

namespace kivcli {
namespace {

constexpr wchar_t kModuleName[] = L"KIVGUI.ARX";

template <class Function>
bool findFunction(cad::Host& host, const char* name, Function& function) {
  function = reinterpret_cast<Function>(host.moduleSymbol(kModuleName, name));
  return function != nullptr;
}

bool findSpecificationCalls(cad::Host& host, SpecificationCalls& calls) {
  return findFunction(host, "dll_kiv_checkSpecification", calls.check) &&
         findFunction(host, "dll_kiv_checkSpecificationFor", calls.checkFor) &&
         findFunction(host, "dll_kiv_formatSpecification", calls.format) &&
         findFunction(host, "dll_kiv_writeSpecification", calls.write) &&
         findFunction(host, "dll_kiv_writeTextList", calls.writeTextList);
}

}  // namespace

base::Result<std::unique_ptr<Session>> Session::start() {
  std::unique_ptr<Session> session(new Session(cad::Host::instance()));
  if (base::Status loaded = session->loadModule(); !loaded) return loaded.failure();
  return session;
}

Session::Session(cad::Host& host) : host_(host) {
  host_.setOutput([this](std::wstring_view text) { output_ += text; });
  host_.start();
}

Session::~Session() {
  host_.stop();
  host_.setOutput({});
}

base::Status Session::loadModule() {
  const std::filesystem::path module = cad::programFolder() / kModuleName;
  if (base::Status loaded = host_.loadModule(module); !loaded) return loaded;
  const bool complete = findFunction(host_, "dll_kiv_setConversion", setConversion_) &&
                        findFunction(host_, "dll_kiv_lastRunReport", lastRunReport_) &&
                        findFunction(host_, "dll_kiv_observeRuns", observeRuns_) &&
                        findSpecificationCalls(host_, specifications_);
  if (!complete) {
    return base::Failure{
        base::pathText(module),
        tr(L"this module belongs to another version of the program; please install both anew")};
  }
  return {};
}

KivRunReport Session::lastRunReport() {
  KivRunReport report{};
  lastRunReport_(&report);
  return report;
}

KivSpecificationReport Session::checkSpecification(const std::wstring& path) {
  KivSpecificationReport report{};
  specifications_.check(path.c_str(), &report);
  return report;
}

std::wstring Session::takeOutput() {
  std::replace(output_.begin(), output_.end(), L'\n', L' ');
  const std::wstring taken(base::trim(output_));
  output_.clear();
  return taken;
}

}  // namespace kivcli
