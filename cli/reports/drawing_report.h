#pragma once
// What became of one drawing: all that the program tells of it, on its outputs and in reports.

#include <cstddef>
#include <string>
#include <vector>

#include "embedded/drawing/drawing_diff.h"

namespace kivcli {

enum class Outcome { kConverted, kWithProblems, kNotConverted };

struct ConditionFacts {
  std::wstring text;        // "key=value", "key<>value"
  std::size_t passing = 0;  // how many objects meet it alone
  std::size_t left = 0;     // how many of them meet it and all before it
};

struct ResultFacts {
  std::wstring text;        // "key=value"; of a list's entry the entry
  std::size_t changed = 0;  // how many objects it made different from what they were
  std::size_t refused = 0;
};

// What a setting, or an entry of a list, did to one drawing. An entry looks at the drawing, and hits it when
// it changes something or is refused.
struct SettingFacts {
  int section = 0, number = 0;  // as in the CVT file, from 1
  bool isEntry = false;         // of a list: it has one result and no conditions
  std::size_t looked = 0;       // objects of its section, layers of a layer setting
  std::size_t hits = 0;         // objects that meet it
  std::size_t locked = 0;       // of these on locked layers, and left alone
  std::size_t changed = 0;      // of these different afterwards
  std::vector<ConditionFacts> conditions;
  std::vector<ResultFacts> results;

  std::size_t refused() const {
    std::size_t all = 0;
    for (const ResultFacts& result : results) all += result.refused;
    return all;
  }
};

// How much of a drawing is different from what it was.
struct ChangeCounts {
  std::size_t entities = 0, records = 0, others = 0;  // others: objects and variables of the header
  std::size_t all() const { return entities + records + others; }
};

// What the sides of a picture are: a whole file each, empty where there is none.
struct PicturePair {
  std::string before, after;          // PNG
  std::vector<std::wstring> remarks;  // what the one after does not show, or not as it is
};

struct DrawingReport {
  std::wstring given;  // as the user named it
  std::wstring saved;  // the file written, in the output folder as the user named it; empty: none
  Outcome outcome = Outcome::kNotConverted;
  std::vector<std::wstring> messages;  // lines for standard error, each begins with the drawing's name
  bool isDryRun = false;
  // Where facts were asked for.
  std::vector<SettingFacts> settings;  // in the order of the run
  ChangeCounts counts;
  cad::DrawingDifferences changes;  // where each was asked for
  PicturePair pictures;             // where asked for
  std::wstring logFailure;          // why the log that was asked for does not have the drawing; empty: it has
  std::string logEntries;           // what the log has of it, as bytes, with the line of titles
};

}  // namespace kivcli
