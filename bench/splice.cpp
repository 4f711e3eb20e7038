// The floor under office-plan.cvt: map the file, walk its groups once, copy everything and splice in the
// few groups that change. It knows this one conversion and this one generator's files (three-column group
// codes, CR LF, entities in model space only) and checks nothing: splice IN.dxf OUT.dxf

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.h"

namespace {

std::string narrow(std::wstring_view text) { return base::encode(text, base::kJapanese).bytes; }

struct Group {
  int code = -1;
  std::string_view value, whole;  // whole: both lines with their ends
};

class Groups {
 public:
  explicit Groups(std::string_view bytes) : at_(bytes.data()), end_(at_ + bytes.size()) {}
  bool next(Group& group) {
    if (at_ >= end_) return false;
    const char* const begin = at_;
    const std::string_view code = line();
    group.value = line();
    group.code = 0;
    for (const char c : code) {
      if (c != ' ') group.code = group.code * 10 + (c - '0');
    }
    group.whole = {begin, static_cast<std::size_t>(at_ - begin)};
    return true;
  }

 private:
  std::string_view line() {
    const auto* const feed =
        static_cast<const char*>(std::memchr(at_, '\n', static_cast<std::size_t>(end_ - at_)));
    const std::string_view result(at_, static_cast<std::size_t>(feed - at_ - 1));
    at_ = feed + 1;
    return result;
  }
  const char *at_, *end_;
};

class Splice {
 public:
  explicit Splice(std::string_view input) : input_(input), copied_(input.data()) {
    out_.reserve(input.size() + input.size() / 8);
  }

  const std::string& run() {
    Groups groups(input_);
    Group group;
    while (groups.next(group)) {
      if (group.code == 0)
        begin(group);
      else if (kind_ != Kind::kNone)
        inside(group);
      else if (inLayers_ && group.code == 2 && group.value == "LAYER")
        layerTable_ = true;
      else if (group.code == 2 && group.value == "ENTITIES")
        inEntities_ = true;
    }
    copyTo(input_.data() + input_.size());
    return out_;
  }

 private:
  enum class Kind { kNone, kText, kDimension, kHatch, kOther };

  void begin(const Group& group) {
    kind_ = Kind::kNone;
    inLayers_ = group.value == "TABLE";
    if (group.value == "ENDTAB" && layerTable_) {
      addLayers(group);
    } else if (group.value == "ENDSEC") {
      inEntities_ = false;
    } else if (inEntities_) {
      kind_ = kindOf(group.value);
      newColor_ = nullptr;
    }
  }
  static Kind kindOf(std::string_view type) {
    if (type == "TEXT" || type == "MTEXT" || type == "ATTDEF") return Kind::kText;
    if (type == "DIMENSION") return Kind::kDimension;
    return type == "HATCH" ? Kind::kHatch : Kind::kOther;
  }

  void inside(const Group& group) {
    if (group.code == 8) {
      layer(group);
    } else if (group.code == 62) {
      if (newColor_ != nullptr) {
        copyTo(group.whole.data());
        copied_ = group.whole.data() + group.whole.size();
      }
    } else if (group.code == 40 && kind_ == Kind::kText && newColor_ != nullptr) {
      double height = 0;
      std::from_chars(group.value.data(), group.value.data() + group.value.size(), height);
      char number[32];
      const int size = std::snprintf(number, sizeof number, "%.1f", height * 2);
      replaceValue(group, {number, static_cast<std::size_t>(size)});
    }
  }

  void layer(const Group& group) {
    const std::string_view name = group.value;
    if (kind_ == Kind::kText && name.starts_with(texts_)) {
      newColor_ = " 62\r\n     3\r\n";
    } else if (kind_ == Kind::kDimension) {
      replaceValue(group, dimensions_);
      newColor_ = "";
    } else if (kind_ == Kind::kHatch) {
      newColor_ = " 62\r\n   252\r\n";
    } else if (kind_ == Kind::kOther && name.starts_with(walls_)) {
      replaceValue(group, newWalls_ + std::string(name.substr(walls_.size())));
      newColor_ = " 62\r\n     7\r\n";
    } else if (kind_ == Kind::kOther && name.starts_with(services_)) {
      newColor_ = " 62\r\n     5\r\n";
    } else {
      return;
    }
    copyTo(group.whole.data() + group.whole.size());
    out_.append(newColor_);
  }

  void addLayers(const Group& end) {
    copyTo(end.whole.data());
    char number[8];
    for (int i = 1; i <= 10; ++i) {
      std::snprintf(number, sizeof number, "%02d", i);
      addLayer(newWalls_ + number, 7, 0xFFF000 + i);
    }
    addLayer(dimensions_, 2, 0xFFF000);
    layerTable_ = false;
  }
  void addLayer(const std::string& name, int color, int handle) {
    char text[160];
    std::snprintf(text, sizeof text,
                  "  0\r\nLAYER\r\n  5\r\n%X\r\n330\r\n2\r\n100\r\nAcDbSymbolTableRecord\r\n100\r\n"
                  "AcDbLayerTableRecord\r\n  2\r\n",
                  static_cast<unsigned>(handle));
    out_.append(text).append(name);
    std::snprintf(text, sizeof text,
                  "\r\n 70\r\n     0\r\n 62\r\n%6d\r\n  6\r\nContinuous\r\n370\r\n    -3\r\n", color);
    out_.append(text);
  }

  void replaceValue(const Group& group, std::string_view value) {
    copyTo(group.value.data());
    out_.append(value);
    copied_ = group.value.data() + group.value.size();
  }
  void copyTo(const char* end) {
    out_.append(copied_, static_cast<std::size_t>(end - copied_));
    copied_ = end;
  }

  std::string_view input_;
  const char* copied_;  // input before this has been written
  std::string out_;
  Kind kind_ = Kind::kNone;
  bool inLayers_ = false, layerTable_ = false, inEntities_ = false;
  const char* newColor_ = nullptr;  // null: the current entity is not converted
  const std::string texts_ = narrow(L"文字"), walls_ = narrow(L"A-壁"), newWalls_ = narrow(L"W-壁"),
                    services_ = narrow(L"S-設備"), dimensions_ = narrow(L"寸法線");
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const int source = open(argv[1], O_RDONLY);
  struct stat facts {};
  if (source < 0 || fstat(source, &facts) != 0) return 1;
  const auto size = static_cast<std::size_t>(facts.st_size);
  void* const map = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, source, 0);
  if (map == MAP_FAILED) return 1;
  Splice splice({static_cast<const char*>(map), size});
  const std::string& out = splice.run();
  std::FILE* target = std::fopen(argv[2], "wb");
  if (target == nullptr) return 1;
  const bool written = std::fwrite(out.data(), 1, out.size(), target) == out.size();
  return std::fclose(target) == 0 && written ? 0 : 1;
}
