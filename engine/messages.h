#pragma once
// The lines that a run adds to the log, and what the command line is told besides.

#include <cstddef>
#include <string>

#include "acadstrc.h"
#include "engine/run_interfaces.h"

namespace kiv {

inline constexpr const wchar_t* kAloneProblem = L"このコマンドは単独では実行できません";

std::wstring unreadableProblem(const std::wstring& path);
// `reason` as the reader of such lists words it.
std::wstring textListProblem(const std::wstring& path, const std::wstring& reason);
// Only the first `kept` texts of a list are used.
std::wstring cutTextListProblem(const std::wstring& path, std::size_t kept);
std::wstring arrowProblem(const std::wstring& block);
std::wstring linetypeProblem(const std::wstring& linetype);
// Why a load from `file` failed.
std::wstring linetypeReason(const std::wstring& file, Acad::ErrorStatus status);
std::wstring layerRecordProblem(const std::wstring& layer);
std::wstring selectionProblem(const std::wstring& passLabel);  // the host refused a setting's filter
std::wstring lockedProblem(const std::wstring& passLabel, int count);
std::wstring failedProblem(const std::wstring& passLabel, int count);
std::wstring saveProblem(const std::wstring& path);

// A property that a layer did not take; `kind` is the item's key.
std::wstring layerCreationProblem(const std::wstring& layer, const std::wstring& kind,
                                  const std::wstring& value);
std::wstring layerNotCreatedProblem(const std::wstring& layer);
std::wstring layerSettingProblem(const std::wstring& layer, const std::wstring& kind,
                                 const std::wstring& value);
std::wstring layerRenameProblem(const std::wstring& layer, const std::wstring& newName);
std::wstring referenceLayerRenameProblem(const std::wstring& layer);
std::wstring currentLayerFreezeProblem(const std::wstring& layer);

// For the command line.
std::wstring refusalLine(const RefusalNote& refusal);

}  // namespace kiv
