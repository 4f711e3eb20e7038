#pragma once
// The documents that the host has open.

#include <string>
#include <string_view>
#include <vector>

class AcApDocument;

namespace kiv {

// Each is the host's, and gone when it is closed.
std::vector<const AcApDocument*> openDocuments();
bool isOpen(const AcApDocument* document);

// Whether a document is of the file `path`, a full path; case counts where the system's names heed it.
bool isDocumentOf(const AcApDocument& document, const std::wstring& path);
bool isOpenInHost(const std::wstring& path);

// Types a text for the current document, which runs when no command is running. Nothing for a cancel alone:
// nobody waits then.
void sendToCurrentDocument(std::wstring_view text);

}  // namespace kiv
