#pragma once
// What is set of entities most often.

#include <cstdint>
#include <optional>
#include <tuple>

#include "embedded/dwg/entity_head.h"

namespace cad::dwg {

// Of a text, with the place where it stands among the bits.
struct TextHeight {
  double value = 0;
  BitSpan at;
  bool isRaw = false;  // RD, else BD
  bool operator==(const TextHeight&) const = default;
};

struct EntityValues {
  std::optional<Handle> layer;
  std::optional<LinetypeKind> linetypeKind;
  std::optional<Handle> linetype;     // of a named one
  std::optional<std::int16_t> color;  // 0 to 256; the colour is then nothing but this number
  std::optional<std::int16_t> invisible;
  std::optional<std::uint8_t> lineWeight;  // as it is stored; from R2000 on
  std::optional<double> linetypeScale;
  std::optional<TextHeight> height;
  bool operator==(const EntityValues&) const = default;

  static constexpr std::size_t kCount = 8;
  // References to all of them, which can be copied byte by byte.
  template <class Values>
  static auto all(Values& values) {
    const auto references =
        std::tie(values.layer, values.linetypeKind, values.linetype, values.color, values.invisible,
                 values.lineWeight, values.linetypeScale, values.height);
    static_assert(std::tuple_size_v<decltype(references)> == kCount);
    return references;
  }
  // The newer ones count.
  void take(const EntityValues& newer) {
    std::apply(
        [&](auto&... mine) {
          std::apply([&](const auto&... others) { ((others ? void(mine = others) : void()), ...); },
                     all(newer));
        },
        all(*this));
  }
};

}  // namespace cad::dwg
