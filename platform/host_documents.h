#pragma once
// The documents that the host has open.

#include <string>

class AcApDocument;

namespace kiv {

bool isOpen(const AcApDocument* document);

// Whether a document is of the file `path`, a full path; case counts where the system's names heed it.
bool isDocumentOf(const AcApDocument& document, const std::wstring& path);
bool isOpenInHost(const std::wstring& path);

}  // namespace kiv
