#include <vector>

#include "acdocman.h"
#include "base/files.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

ACRX_DEFINE_MEMBERS(AcApDocManager, AcRxObject, nullptr)

namespace cad {
namespace {

class DocumentIterator : public AcApDocumentIterator {
 public:
  DocumentIterator() {
    for (const auto& each : hostState().documents.all()) documents_.push_back(each.get());
  }
  bool done() const override { return at_ >= documents_.size(); }
  void step() override { ++at_; }
  AcApDocument* document() override { return done() ? nullptr : documents_[at_]; }

 private:
  std::vector<AcApDocument*> documents_;
  std::size_t at_ = 0;
};

class DocumentManager : public AcApDocManager {
 public:
  AcApDocument* curDocument() const override { return hostState().documents.current(); }
  AcApDocument* mdiActiveDocument() const override { return curDocument(); }
  AcApDocument* document(const AcDbDatabase* database) const override {
    return hostState().documents.find(database);
  }
  int documentCount() const override { return static_cast<int>(hostState().documents.all().size()); }
  AcApDocumentIterator* newAcApDocumentIterator() override { return new DocumentIterator; }

  Acad::ErrorStatus activateDocument(AcApDocument* document, bool) override {
    Documents& documents = hostState().documents;
    Document* found = documents.find(document);
    if (found == nullptr) return Acad::eInvalidInput;
    documents.activate(found);
    return Acad::eOk;
  }
  Acad::ErrorStatus setCurDocument(AcApDocument* document) override {
    return activateDocument(document, false);
  }
  Acad::ErrorStatus appContextOpenDocument(const ACHAR* path) override {
    if (path == nullptr) return Acad::eInvalidInput;
    const base::Status opened = hostState().documents.open(base::pathFromText(path));
    if (!opened) report(opened.failure());
    return opened ? Acad::eOk : Acad::eFilerError;
  }
  Acad::ErrorStatus closeDocument(AcApDocument* document) override {
    Documents& documents = hostState().documents;
    Document* found = documents.find(document);
    if (found == nullptr) return Acad::eInvalidInput;
    if (found == documents.current())
      documents.closeAfterCommands(found);
    else
      documents.close(found);
    return Acad::eOk;
  }
  Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode, const ACHAR*, const ACHAR*,
                                 bool) override {
    Document* found = hostState().documents.find(document);
    if (found == nullptr || mode == AcAp::kNotLocked) return Acad::eInvalidInput;
    found->locks.push_back(mode);
    return Acad::eOk;
  }
  Acad::ErrorStatus unlockDocument(AcApDocument* document) override {
    Document* found = hostState().documents.find(document);
    if (found == nullptr || found->locks.empty()) return Acad::eInvalidInput;
    found->locks.pop_back();
    return Acad::eOk;
  }
  Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text, bool activate, bool,
                                        bool echo) override {
    Document* found = hostState().documents.find(document);
    if (found == nullptr || text == nullptr) return Acad::eInvalidInput;
    hostState().commandLine.send({found, text, activate, echo});
    return Acad::eOk;
  }
};

}  // namespace
}  // namespace cad

AcApDocManager* acDocManagerPtr() {
  static cad::DocumentManager manager;
  return &manager;
}
