// From fontconfig, which is looked for when it is asked, and is no part of what this project needs.

#include "platform/font_families.h"

#include <algorithm>
#include <span>

#include "base/codepage.h"
#include "base/dynamic_library.h"

namespace kiv {
namespace {

// As the library's interface has them, whose own headers may not be here.
struct Pattern;
struct ObjectSet;
struct FontSet {
  int count, capacity;
  Pattern** fonts;
};
constexpr int kFound = 0, kRegular = 80, kUpright = 0;

class FontConfig {
 public:
  explicit FontConfig(const base::DynamicLibrary& library)
      : makePattern(library.function<Pattern* (*)()>("FcPatternCreate")),
        destroyPattern(library.function<void (*)(Pattern*)>("FcPatternDestroy")),
        addText(library.function<int (*)(Pattern*, const char*, const char*)>("FcPatternAddString")),
        text(library.function<int (*)(const Pattern*, const char*, int, const char**)>("FcPatternGetString")),
        number(library.function<int (*)(const Pattern*, const char*, int, int*)>("FcPatternGetInteger")),
        makeObjects(library.function<ObjectSet* (*)()>("FcObjectSetCreate")),
        destroyObjects(library.function<void (*)(ObjectSet*)>("FcObjectSetDestroy")),
        addObject(library.function<int (*)(ObjectSet*, const char*)>("FcObjectSetAdd")),
        list(library.function<FontSet* (*)(void*, Pattern*, ObjectSet*)>("FcFontList")),
        destroyFonts(library.function<void (*)(FontSet*)>("FcFontSetDestroy")) {}

  bool isComplete() const {
    return makePattern && destroyPattern && addText && text && number && makeObjects && destroyObjects &&
           addObject && list && destroyFonts;
  }
  std::wstring textOf(const Pattern* font, const char* object) const {
    const char* found = nullptr;
    return text(font, object, 0, &found) == kFound ? base::fromUtf8(found) : std::wstring();
  }
  bool isRegular(const Pattern* font) const {
    int weight = -1, slant = -1;
    return number(font, "weight", 0, &weight) == kFound && weight == kRegular &&
           number(font, "slant", 0, &slant) == kFound && slant == kUpright;
  }

  Pattern* (*makePattern)();
  void (*destroyPattern)(Pattern*);
  int (*addText)(Pattern*, const char*, const char*);
  int (*text)(const Pattern*, const char*, int, const char**);
  int (*number)(const Pattern*, const char*, int, int*);
  ObjectSet* (*makeObjects)();
  void (*destroyObjects)(ObjectSet*);
  int (*addObject)(ObjectSet*, const char*);
  FontSet* (*list)(void*, Pattern*, ObjectSet*);
  void (*destroyFonts)(FontSet*);
};

std::vector<FontFamily> familiesOf(const FontConfig& config, const FontSet& fonts) {
  std::vector<FontFamily> families;
  for (const Pattern* font : std::span(fonts.fonts, static_cast<std::size_t>(fonts.count))) {
    const std::wstring name = config.textOf(font, "family");
    if (name.empty()) continue;
    auto family = std::ranges::find(families, name, &FontFamily::name);
    const bool isNew = family == families.end();
    if (isNew) family = families.insert(family, {name, {}});
    if (isNew || config.isRegular(font)) family->style = config.textOf(font, "style");
  }
  return families;
}

}  // namespace

std::vector<FontFamily> fontFamilies(NativeWindow) {
  // Never released: what it has read of the system's fonts stays its own until the process ends.
  static const auto& library = *new auto(base::DynamicLibrary::load("libfontconfig.so.1"));
  if (!library) return {};
  const FontConfig config(*library.value());
  if (!config.isComplete()) return {};
  Pattern* const wanted = config.makePattern();
  ObjectSet* const objects = config.makeObjects();
  config.addText(wanted, "fontformat", "TrueType");
  for (const char* object : {"family", "style", "weight", "slant"}) config.addObject(objects, object);
  FontSet* const fonts = config.list(nullptr, wanted, objects);
  config.destroyObjects(objects);
  config.destroyPattern(wanted);
  if (fonts == nullptr) return {};
  std::vector<FontFamily> families = familiesOf(config, *fonts);
  config.destroyFonts(fonts);
  return families;
}

}  // namespace kiv
