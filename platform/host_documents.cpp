#include "platform/host_documents.h"

#include <algorithm>
#include <memory>

#include "acdocman.h"
#include "base/fold.h"
#include "base/paths.h"
#include "platform/host_messages.h"

namespace kiv {

std::vector<const AcApDocument*> openDocuments() {
  std::vector<const AcApDocument*> documents;
  const std::unique_ptr<AcApDocumentIterator> each(acDocManagerPtr()->newAcApDocumentIterator());
  for (; !each->done(); each->step()) documents.push_back(each->document());
  return documents;
}

bool isOpen(const AcApDocument* document) {
  const auto documents = openDocuments();
  return std::find(documents.begin(), documents.end(), document) != documents.end();
}

bool isDocumentOf(const AcApDocument& document, const std::wstring& path) {
  const ACHAR* const name = document.fileName();
  if (name == nullptr) return false;
  return base::kNamesHeedCase ? path == name : base::equalFolded(path, name);
}

bool isOpenInHost(const std::wstring& path) {
  const auto documents = openDocuments();
  return std::any_of(documents.begin(), documents.end(),
                     [&](const AcApDocument* each) { return isDocumentOf(*each, path); });
}

void sendToCurrentDocument(std::wstring_view text) {
  if (text == kCancelCharacter) return;
  AcApDocManager* const documents = acDocManagerPtr();
  documents->sendStringToExecute(documents->curDocument(), std::wstring(text).c_str(), false, false, true);
}

}  // namespace kiv
