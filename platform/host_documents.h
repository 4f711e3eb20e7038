#pragma once
// The documents that the host has open.

#include <string>
#include <string_view>

class AcApDocument;

namespace kiv {

bool isOpen(const AcApDocument* document);

// Whether a document is of the file `path`, a full path; case counts where the system's names heed it.
bool isDocumentOf(const AcApDocument& document, const std::wstring& path);
bool isOpenInHost(const std::wstring& path);

// Types a text for the current document, which runs when no command is running. Nothing for a cancel alone:
// nobody waits then.
void sendToCurrentDocument(std::wstring_view text);

}  // namespace kiv
