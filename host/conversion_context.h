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
#include "ui/select_base.h"

class AcApDocument;

namespace kiv {

class CCnvDlg;

struct BatchFile {
  std::wstring name;  // without its folder
  // Below 1: not a readable drawing, or one that was not converted; -1: could not be asked.
  int version = -1;
  bool isPending = false;  // in the batch's script, which has not come to it yet
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
  int savedChoice2 = 0;  // the second number of the choice of drawings, carried for whoever chose

  std::optional<std::vector<BatchFile>> batchFiles;  // nothing: no batch has been prepared
  AcApDocument* batchStartDocument = nullptr;
  std::int64_t batchRemaining = 0;

  PickHandOver pick;  // between the dialog's pickers and the command that waits for it
  Rect dialogRect;    // where the main dialog stood when it was closed last
  // There is one while the dialog is shown, and hidden during a batch.
  std::unique_ptr<CCnvDlg> dialog;
};

ConversionContext& conversionContext();

}  // namespace kiv
