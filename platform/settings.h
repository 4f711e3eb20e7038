#pragma once
// The suite's common settings: texts by key, kept by a sibling module for all modules of the suite.
//
// A value set in this process by overrideCommonSetting wins; then what the sibling keeps; then the
// fallback. When the sibling or its function is missing, the host's command line says so, once until the
// store is closed.

#include <string>

namespace kiv {

// The keys of the conversion's options. The run takes a switch as on at 1 alone, the dialog at any
// number but 0 (which it then stores as 1); the scope is a BlockScope's number.
inline constexpr const wchar_t* kBlockScopeKey = L"KivBlock";
inline constexpr const wchar_t* kIgnoreLocksKey = L"MorluxIgnoreLocks";
inline constexpr const wchar_t* kCreateLogKey = L"MorluxCreateLog";
inline constexpr const wchar_t* kLogFolderKey = L"MorluxLogOutPath";
inline constexpr const wchar_t* kLogFileKey = L"MorluxLogOutFile";
// 0: drawings of a batch are chosen in the system's file chooser; others: in the dialog of a sibling.
inline constexpr const wchar_t* kFileModeKey = L"KivFileMode";

// Decimal text read by its leading integer; a key that is not kept gives the fallback.
int readCommonInteger(const wchar_t* key, int fallback);
std::wstring readCommonText(const wchar_t* key, const wchar_t* fallback);

// Kept by the sibling. What it cannot keep is lost, as without it: the command line says so once. A key that
// is overridden changes for this process only.
void writeCommonText(const wchar_t* key, const wchar_t* value);
void writeCommonInteger(const wchar_t* key, int value);

// The sibling is let go, and loaded again when a setting is asked for.
void closeSettingsStore();

// For this process only, until clearSettingOverrides(); nothing is stored.
void overrideCommonSetting(const wchar_t* key, const wchar_t* value);
void clearSettingOverrides();

}  // namespace kiv
