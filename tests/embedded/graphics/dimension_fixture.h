#pragma once
// Figures of dimensions in metric variables, built in a few lines, and their pictures as text.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "embedded/graphics/dimensions/figure.h"
#include "tests/embedded/graphics/scene_fixture.h"

namespace cad {

using DimKind = DimFigure::Kind;
using DimValues = std::initializer_list<std::pair<std::string_view, double>>;

// A figure with the variables that it goes by: those of the host's metric style and `values`. Its text is
// "T", 2.5 high, in a box of 6 by 2.
struct Dim {
  DimVariables variables;
  DimFigure figure;

  explicit Dim(DimKind kind, DimValues values = {}) : variables(*drawingOf(""), kNoRecord) {
    figure.kind = kind;
    figure.value = L"T";
    figure.textHeight = 2.5;
    figure.box = {6, 2};
    set({{"DIMASZ", 2.5},
         {"DIMEXO", 0.625},
         {"DIMEXE", 1.25},
         {"DIMGAP", 0.625},
         {"DIMTXT", 2.5},
         {"DIMCEN", 2.5},
         {"DIMTIH", 0},
         {"DIMTOH", 0},
         {"DIMTAD", 1},
         {"DIMTOFL", 1}});
    set(values);
  }
  Dim& set(DimValues values) {
    for (const auto& [name, value] : values) {
      const DimVariableInfo* info = findDimVariable(name);
      if (info == nullptr) {
        ADD_FAILURE() << "no variable " << name;
        continue;
      }
      if (info->isInteger()) {
        variables.set(*info, static_cast<std::int64_t>(value));
      } else {
        variables.set(*info, value);
      }
    }
    return *this;
  }
  // Both ends alike.
  Dim& heads(const ArrowHead& head) {
    figure.arrows = {head, head};
    return *this;
  }
  DimPicture picture() {
    figure.variables = &variables;
    return drawDimension(figure);
  }
};

inline std::string shown(double value) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.12g", std::round(value * 1e9) / 1e9 + 0.0);
  return buffer;
}
inline std::string shown(Vec at) { return shown(at.x) + "," + shown(at.y); }
inline std::string degrees(double angle) { return shown(angle / kRadiansPerDegree); }

inline std::string roleName(DimPart::Role role) {
  constexpr const char* kNames[] = {"line", "ext1", "ext2", "mark", "arrow", "text", "point"};
  return kNames[static_cast<std::size_t>(role)];
}

// Lines and arcs by their role: "line 0,0 10,0", "ext1 ...", "ext2 ...", "mark ...", a tick "arrow 0,0 10,0";
// "line 0,0 r5 30 60" is an arc. "arrow 0,0 / 2,1 2,-1" has the tip first and then its base, "arrow 0,0 _Dot
// x2.5 180" size and rotation. "text 0,0 30", "point first".
inline std::string shown(const DimPart& part) {
  struct Show {
    std::string operator()(const PlaneLine& line) const { return shown(line.from) + " " + shown(line.to); }
    std::string operator()(const PlaneArc& arc) const {
      return shown(arc.centre) + " r" + shown(arc.radius) + " " + degrees(arc.start) + " " + degrees(arc.end);
    }
    std::string operator()(const PlaneArea& area) const {
      return shown(area.tip) + " / " + shown(area.left) + " " + shown(area.right);
    }
    std::string operator()(const PlaneArrow& arrow) const {
      return shown(arrow.tip) + " " + std::string(arrow.block.begin(), arrow.block.end()) + " x" +
             shown(arrow.size) + " " + degrees(arrow.rotation);
    }
    std::string operator()(const PlaneText& text) const {
      return shown(text.middle) + " " + degrees(text.rotation);
    }
    std::string operator()(DimPoint point) const {
      constexpr const char* kNames[] = {"line", "first", "second", "third", "arc"};
      return kNames[static_cast<std::size_t>(point)];
    }
  };
  return roleName(part.role) + " " + std::visit(Show{}, part.shape);
}

inline bool isDrawn(const DimPart& part) { return part.role != DimPart::Role::kDefinitionPoint; }

// One part a line; the definition points, which follow from the kind, only when they are asked for.
inline std::string shown(const DimPicture& picture, bool withPoints = false) {
  std::string text;
  for (const DimPart& part : picture) {
    if (withPoints || isDrawn(part)) text.append(shown(part)).append("\n");
  }
  return text;
}

// The parts that `wanted` has chosen, with a semicolon and a blank between.
template <typename Wanted>
std::string joined(const DimPicture& picture, Wanted wanted) {
  std::string text;
  for (const DimPart& part : picture) {
    if (wanted(part)) text.append(text.empty() ? "" : "; ").append(shown(part));
  }
  return text;
}

// The names of the roles whose parts are not the same in both, each once: "line text".
inline std::string rolesThatDiffer(const DimPicture& before, const DimPicture& after) {
  std::string roles;
  for (int i = 0; i <= static_cast<int>(DimPart::Role::kDefinitionPoint); ++i) {
    const auto role = static_cast<DimPart::Role>(i);
    const auto ofRole = [&](const DimPart& part) { return part.role == role; };
    if (joined(before, ofRole) != joined(after, ofRole))
      roles.append(roles.empty() ? "" : " ").append(roleName(role));
  }
  return roles;
}

// The parts that the other picture does not have.
inline std::string newParts(const DimPicture& picture, const DimPicture& other) {
  const std::string known = joined(other, isDrawn) + ";";
  return joined(picture, [&](const DimPart& part) {
    return isDrawn(part) && known.find(shown(part) + ";") == std::string::npos;
  });
}

struct Change {
  const char* variable;
  double value;
  const char* roles;  // of the parts that it changes
};

inline void expectChanges(const char* what, const Dim& base, std::initializer_list<Change> changes) {
  for (const Change& each : changes) {
    Dim before = base, after = base;
    after.set({{each.variable, each.value}});
    EXPECT_EQ(rolesThatDiffer(before.picture(), after.picture()), each.roles)
        << what << ": " << each.variable << " " << each.value;
  }
}

// No number but the variables `own` changes the picture.
inline void expectOthersAlone(const Dim& dim, std::span<const std::string_view> own) {
  for (const DimVariableInfo& info : kDimVariables) {
    if (info.isName() || info.type == DimType::kText || std::ranges::find(own, info.name) != own.end())
      continue;
    expectChanges("", dim, {{info.name.data(), 1, ""}, {info.name.data(), 0, ""}});
  }
}

// Every number of the picture is one.
inline bool isFinite(const DimPicture& picture) {
  const std::string text = shown(picture);
  return text.find("nan") == std::string::npos && text.find("inf") == std::string::npos;
}

}  // namespace cad
