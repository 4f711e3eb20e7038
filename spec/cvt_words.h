#pragma once
// The marks of a specification file that are no section's header.

namespace kiv {

inline constexpr wchar_t kRemarkHeader[] = L"[備考]";
inline constexpr wchar_t kEndOfFile[] = L"[EOF]";
inline constexpr wchar_t kEndOfSection[] = L"---End---";        // as it is written
inline constexpr wchar_t kFoldedEndOfSection[] = L"---END---";  // as readers compare it
inline constexpr wchar_t kNoConditions[] = L"[***]";            // stands where a setting has no conditions

}  // namespace kiv
