#pragma once
// What the interactive command, the batch and the conversion run know of each other. One for the process.

#include <array>
#include <cstddef>
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

// Indexes of the context's paths.
inline constexpr std::size_t kSpecificationPath = 0;  // a full path; empty until a conversion is set up
inline constexpr std::size_t kSourceFolder = 1;       // of a batch
inline constexpr std::size_t kOutputFolder = 2;  // with its trailing separator; empty: conversion in place

struct ConversionContext {
  std::array<std::wstring, 3> contextPaths;
  int saveFormat = 0;  // 0 DWG, 1 DXF, 2 DWT

  std::optional<std::vector<BatchFile>> batchFiles;  // nothing: no batch has been prepared
  AcApDocument* batchStartDocument = nullptr;
  std::int64_t batchRemaining = 0;
};

ConversionContext& conversionContext();

}  // namespace kiv
