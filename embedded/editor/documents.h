#pragma once
// The drawings that are open, and which of them commands work on.

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "acdocman.h"
#include "base/result.h"
#include "dbmain.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/host.h"

namespace cad {

class Document : public AcApDocument {
 public:
  Document(std::unique_ptr<Drawing> drawing, std::wstring name, int number);
  ~Document() override;

  Drawing& drawing() { return *drawing_; }
  std::wstring name() const;  // the file's name without its folder
  DocumentInfo info() const;
  void setReadOnly(bool readOnly) { readOnly_ = readOnly; }
  bool undoGroupOpen = false;            // by UNDO Begin, until UNDO End
  std::vector<AcAp::DocLockMode> locks;  // by lockDocument(), the newest last

  const ACHAR* fileName() const override;
  const ACHAR* docTitle() const override;
  AcDbDatabase* database() const override { return database_.get(); }
  bool isReadOnly() const override { return readOnly_; }
  bool isQuiescent() const override;
  bool isHeldForWriting() const;  // by a command or a lock

 private:
  std::unique_ptr<Drawing> drawing_;
  std::unique_ptr<AcDbDatabase> database_;
  std::wstring name_;  // while the drawing has no path
  mutable std::wstring buffer_;
  int number_;
  bool readOnly_ = false;
};

class Documents {
 public:
  void addStartDocument();  // an empty drawing "DrawingN.dwg", made current
  // A drawing that is open already is only made current.
  base::Status open(const std::filesystem::path& path);
  // Read from its file, beside the document that it may be open in.
  base::Status openReadOnly(const std::filesystem::path& path);
  // Without its last document the host opens a new start document.
  void close(Document* document);
  // At once, or when the running commands have ended.
  void closeAfterCommands(Document* document);
  void closeWaiting();  // those whose commands have ended
  void closeAll();

  Document* current() const { return current_; }  // null only while the host is stopped
  void activate(Document* document);
  bool contains(const AcApDocument* document) const;
  Document* find(const AcApDocument* document) const;
  Document* find(const AcDbDatabase* database) const;
  // `besides` is passed over.
  Document* find(const std::filesystem::path& path, const Document* besides = nullptr) const;
  const std::vector<std::unique_ptr<Document>>& all() const { return documents_; }

 private:
  void add(std::unique_ptr<Drawing> drawing, std::wstring name);
  base::Status load(const std::filesystem::path& whole, bool readOnly);

  std::vector<std::unique_ptr<Document>> documents_;  // the most recently current one last
  std::vector<Document*> closing_;
  Document* current_ = nullptr;
  int startCount_ = 0, lastNumber_ = 0;
};

// True when the file exists but this process may not change it.
bool isWriteProtected(const std::filesystem::path& path);
// What lies on a compact disc is write-protected without a question.
bool asksForReadOnly(const std::filesystem::path& path);

}  // namespace cad
