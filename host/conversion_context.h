#pragma once
// What the interactive command, the batch and the conversion run know of each other. One for the process.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/save_format.h"
#include "engine/run_observer.h"
#include "ui/select_base.h"

class AcApDocument;

namespace kiv {

class CCnvDlg;

enum class BatchState {
  kChosen,   // no script has been started for it
  kPending,  // in the batch's script, which has not come to it yet
  kConverted,
  kFailed,  // refused before the script was made, or not opened, or not saved
};

struct BatchFile {
  std::wstring name;  // without its folder
  int version = -1;   // below 1: not a readable drawing; -1: could not be asked
  BatchState state = BatchState::kChosen;
};

// Indexes of the context's paths.
inline constexpr std::size_t kSpecificationPath = 0;  // a full path; empty until a conversion is set up
inline constexpr std::size_t kSourceFolder = 1;       // of a batch
inline constexpr std::size_t kOutputFolder = 2;  // with its trailing separator; empty: conversion in place

struct ConversionContext {
  ConversionContext();
  ~ConversionContext();
  ConversionContext(ConversionContext&&) noexcept;
  ConversionContext& operator=(ConversionContext&&) noexcept;

  std::array<std::wstring, 3> contextPaths;
  base::SaveFormat saveFormat = base::SaveFormat::kDwg;
  int savedChoice2 =
      0;  // the second number of the choice of drawings: whose choice it was knows what it means

  std::optional<std::vector<BatchFile>> batchFiles;  // nothing: no batch has been prepared
  AcApDocument* batchStartDocument = nullptr;        // the dialog comes back there, if it is still open
  // The drawings of a batch less the runs that have closed theirs, by hand too. What still has its turn
  // before it is told by the states of the files.
  std::int64_t batchRemaining = 0;

  std::optional<KivRunObserver> observer;  // of every run

  PickHandOver pick;  // between the dialog's pickers and the command that waits for it
  Rect dialogRect;    // where the main dialog stood when it was closed last
  // There is one while the dialog is shown, and hidden during a batch.
  std::unique_ptr<CCnvDlg> dialog;
};

ConversionContext& conversionContext();

}  // namespace kiv
