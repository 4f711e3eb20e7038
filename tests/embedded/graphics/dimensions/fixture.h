#pragma once
// Figures of dimensions in metric variables, built in a few lines, and their pictures as text.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "embedded/graphics/dimensions/figure.h"
#include "tests/embedded/graphics/dimensions/settings.h"

namespace cad {

using DimKind = DimFigure::Kind;

// A figure with the variables that it goes by: those of the host's metric style and `settings`. Its text is
// "T", 2.5 high, in a box of 6 by 2.
struct Dim {
  DimVariables variables;
  DimFigure figure;

  explicit Dim(DimKind kind, std::string_view settings = {}) {
    figure.kind = kind;
    figure.value = L"T";
    figure.textHeight = 2.5;
    figure.box = {6, 2};
    set("DIMASZ=2.5 DIMEXO=0.625 DIMEXE=1.25 DIMGAP=0.625 DIMTXT=2.5 DIMCEN=2.5 DIMTIH=0 DIMTOH=0 DIMTAD=1 "
        "DIMTOFL=1");
    set(settings);
  }
  Dim& set(std::string_view settings) {
    take(variables, settings);
    return *this;
  }
  // Both ends alike.
  Dim& heads(const ArrowHead& head) {
    figure.arrows = {head, head};
    return *this;
  }
  // The style of a public drawing in inches: horizontal texts, open arrows, both outside without room.
  Dim& inInches(double scale = 0.5) {
    set("DIMASZ=0.118 DIMEXO=0.1 DIMEXE=0.06 DIMTXT=0.115 DIMGAP=0.04 DIMCEN=0.09 DIMTIH=1 DIMTOH=1 DIMTAD=0 "
        "DIMTOFL=0 DIMATFIT=0");
    figure.scale = scale;
    return heads({L"_Open"});
  }
  DimPicture picture() {
    figure.variables = &variables;
    return drawDimension(figure);
  }
};

// With its text where a person put it.
inline Dim placed(Dim dim, Vec text) {
  dim.figure.userText = true;
  dim.figure.text = text;
  return dim;
}

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

struct Placed {
  const char* what;
  Dim dim;
  const char* parts;
};

// Parts that the plain picture has too are left out.
inline void expectPictures(const DimPicture& plain, std::initializer_list<Placed> cases) {
  for (const Placed& each : cases) {
    Dim dim = each.dim;
    EXPECT_EQ(newParts(dim.picture(), plain), each.parts) << each.what;
  }
}

struct Change {
  const char* setting;
  const char* roles;  // of the parts that it changes
};

inline void expectChanges(const char* what, const Dim& base, std::initializer_list<Change> changes) {
  for (const Change& each : changes) {
    Dim before = base, after = base;
    after.set(each.setting);
    EXPECT_EQ(rolesThatDiffer(before.picture(), after.picture()), each.roles) << what << ": " << each.setting;
  }
}

// What goes for all dimensions between two extension lines: with room for all, and for nothing.
inline void expectChangesBetweenLines(const Dim& wide, const Dim& tight) {
  expectChanges("wide", wide,
                {{"DIMEXO=1", "ext1 ext2"},
                 {"DIMEXE=2", "ext1 ext2"},
                 {"DIMSE1=1", "ext1"},
                 {"DIMSE2=1", "ext2"},
                 {"DIMFXLON=1", "ext1 ext2"},
                 {"DIMASZ=3", "line arrow"},
                 {"DIMGAP=1", "text"},
                 {"DIMGAP=-0.625", "line"},
                 {"DIMTAD=0", "line text"},
                 {"DIMTAD=4", "text"},
                 {"DIMJUST=1", "text"},
                 {"DIMJUST=2", "text"},
                 {"DIMJUST=3", "ext1 text"},
                 {"DIMJUST=4", "ext2 text"},
                 {"DIMSD1=1", "line arrow"},
                 {"DIMSD2=1", "line arrow"}});
  expectChanges("tight", tight, {{"DIMTOFL=0", "line"}, {"DIMJUST=1", "line arrow text"}});
  expectChanges("fixed length", Dim(wide).set("DIMFXLON=1"),
                {{"DIMFXL=3", "ext1 ext2"}, {"DIMFXL=20", "ext1 ext2"}});
}

// Every number of the picture is one.
inline bool isFinite(const DimPicture& picture) {
  const std::string text = shown(picture);
  return text.find("nan") == std::string::npos && text.find("inf") == std::string::npos;
}

// Whatever stands in one of the fields that `fieldsOf` points to in a figure, its picture has only numbers.
template <typename FieldsOf>
void expectNumbers(const Dim& base, FieldsOf fieldsOf) {
  for (const double value : {0.0, 1e-300, -7.0, 1e100, std::numeric_limits<double>::quiet_NaN()}) {
    Dim probe = base;
    for (std::size_t i = 0; i < fieldsOf(probe.figure).size(); ++i) {
      Dim dim = base;
      double* const field = fieldsOf(dim.figure)[i];
      *field = value;
      dim.figure.userText = field == &dim.figure.text.x;
      const DimPicture picture = dim.picture();
      EXPECT_TRUE(std::isnan(value) || isFinite(picture)) << i << " " << value << "\n" << shown(picture);
    }
  }
}

}  // namespace cad
