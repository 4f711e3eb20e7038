#pragma once
// What the interactive command, the batch and the conversion run know of each other. One for the process.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class AcApDocument;

namespace kiv {

struct BatchFile {
  std::wstring name;  // without its folder
  int version = -1;   // below 1: not a readable drawing; -1: could not be asked
};

struct ConversionContext {
  std::wstring specification;  // full path; empty until something has set up a conversion
  std::wstring sourceFolder;   // of a batch
  std::wstring outputFolder;   // with its trailing separator; empty: conversion in place
  int saveFormat = 0;          // 0 DWG, 1 DXF, 2 DWT

  std::optional<std::vector<BatchFile>> batchFiles;  // nothing: no batch has been prepared
  AcApDocument* batchStartDocument = nullptr;
  std::int64_t batchRemaining = 0;
};

ConversionContext& conversionContext();

}  // namespace kiv
