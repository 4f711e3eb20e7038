#pragma once
// What an entity looks like, read from its record whatever the file format. Lengths are drawing units,
// angles degrees unless stated. Coordinates are those of the object's own system, which the arbitrary axis
// rule makes of Geometry::normal; shapes that are kept in world coordinates have the normal (0, 0, 1).

#include <array>
#include <cstdint>
#include <numbers>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "embedded/drawing/record.h"

namespace cad {

inline constexpr double kRadiansPerDegree = std::numbers::pi / 180;

struct Point {
  double x = 0, y = 0, z = 0;
};

// The axes of the system that the arbitrary axis rule makes of a normal, which need not be of unit length;
// one without length counts as (0, 0, 1).
struct Axes {
  Point x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};

  Point world(const Point& own) const;
  Point own(const Point& world) const;
};
Axes axesOf(const Point& normal);

struct LineGeometry {
  Point from, to;
};
struct PointGeometry {
  Point at;  // of a BLOCK record: the base point of its references
};
// Counter-clockwise; a circle runs from 0 to 360.
struct ArcGeometry {
  Point centre;
  double radius = 0, start = 0, end = 360;
};
struct EllipseGeometry {  // the normal turns the minor axis only: centre and axis are world coordinates
  Point centre, majorAxis;
  double ratio = 1;                           // minor to major
  double start = 0, end = 6.283185307179586;  // parameters, radians
};
struct PolylineGeometry {
  struct Vertex {
    Point at;
    double bulge = 0;                     // tangent of a quarter of the arc's angle to the next vertex
    double startWidth = 0, endWidth = 0;  // of the piece to the next vertex
  };
  std::vector<Vertex> vertices;
  bool closed = false;
  // Of a leader's last piece where only its end is stored: the length, which follows from dimension
  // variables.
  double hook = 0;
};
struct MeshGeometry {  // wires of a polygon mesh, a polyface mesh or a face
  std::vector<std::vector<Point>> wires;
};
struct SolidGeometry {
  std::array<Point, 4> corners;  // in the order of the outline
};
struct SplineGeometry {
  int degree = 3;
  std::vector<double> knots;
  std::vector<Point> control;
  std::vector<double> weights;  // empty: all 1
  std::vector<Point> fit;
  bool closed = false;
};

struct TextGeometry {
  enum class Side : std::uint8_t { kLeft, kCentre, kRight, kAligned, kFit };
  enum class Level : std::uint8_t { kBaseline, kBottom, kMiddle, kTop };
  Point at;      // what the text is aligned to; with kAligned and kFit the start of its base line
  Point second;  // with kAligned and kFit its end
  double height = 1, rotation = 0, widthFactor = 1, oblique = 0;
  Side side = Side::kLeft;
  Level level = Level::kBaseline;
  bool backwards = false, upsideDown = false;
  bool hidden = false;      // an invisible attribute
  bool constant = false;    // an attribute definition that references show
  bool definition = false;  // an attribute definition: `contents` is its tag
  bool multiline = false;   // with formatting codes
  double frameWidth = 0;    // multi-line: where lines are broken; 0: nowhere
  double lineSpacing = 1;   // multi-line: a factor
  // Multi-line: what is painted behind the text; kOwnColor counts with the colour's number only.
  enum class Fill : std::uint8_t { kNone, kOwnColor, kBackground };
  Fill fill = Fill::kNone;
  std::int16_t fillColor = 0;
  std::optional<std::int32_t> fillTrueColor;  // 0xRRGGBB beside the number
  double fillFactor = 1.25;                   // of the filled box to the text's height
  std::wstring contents;
  std::wstring prompt;  // of a definition: what a person is asked
};

struct InsertGeometry {
  RecordId block = kNoRecord;  // kNoRecord: not defined
  Point at;
  Point scale{1, 1, 1};
  double rotation = 0;
  int columns = 1, rows = 1;
  double columnSpacing = 0, rowSpacing = 0;
};
// Points are world coordinates unless stated; which of them count depends on the kind.
struct DimensionGeometry {
  enum class Kind : std::uint8_t {
    kRotated,
    kAligned,
    kAngular,        // between two lines
    kAngularPoints,  // by a vertex and two points
    kRadial,
    kDiametric,
    kOrdinate,
    kArcLength,
    kJogged,
    kUnknown,
  };
  RecordId block = kNoRecord;  // its picture, already in place
  Kind kind = Kind::kUnknown;
  // The dimension line runs through `line`. Radial: the centre; diametric: the far end; ordinate: the origin;
  // angular between lines: an end of the second line; angular by points: on the arc.
  Point line;
  Point text;  // middle of the text, in the object's own system
  // Origins of the extension lines; between lines: the ends of the first; ordinate: the feature, the end of
  // the leader.
  Point first, second;
  // Radial, diametric: on the curve; by points: the vertex; between lines: an end of the second line.
  Point third;
  Point arc;                // between lines: on the arc, in the object's own system
  double rotation = 0;      // of the dimension line (rotated)
  double oblique = 0;       // of the extension lines against the dimension line; 0: upright on it
  double textRotation = 0;  // against the horizontal; 0: as the variables have it
  double horizontal = 0;    // the object's own x axis against the direction that horizontal means
  bool userText = false;    // a person placed the text
  bool alongX = false;      // ordinate: the x coordinate is told
  // The text in place of the measured value, <> in it; empty: the value, a blank: none.
  std::wstring contents;
};

struct HatchGeometry {
  struct Path {
    // Edges in order; a polyline path is one PolylineGeometry.
    std::vector<std::variant<LineGeometry, ArcGeometry, EllipseGeometry, SplineGeometry, PolylineGeometry>>
        edges;
  };
  // A family of parallel lines, as the pattern's scale and angle have made it.
  struct Line {
    double angle = 0;            // degrees
    Point base;                  // on one of the lines, where its dashes begin
    Point offset;                // from there to the beginning of the next line's dashes
    std::vector<double> dashes;  // > 0 a dash, < 0 a gap, 0 a dot; empty: continuous
  };
  std::vector<Path> paths;
  bool solid = false;
  std::vector<Line> lines;
  // The first of the colours between which a solid hatch changes, 0xRRGGBB; absent: it is of one colour.
  std::optional<std::int32_t> gradient;
};

// A window in a paper space through which model space is seen.
struct ViewportGeometry {
  Point centre;  // in the paper space
  double width = 0, height = 0;
  bool isSpace = false;  // it stands for the paper space itself
  bool on = true;
  Point target, direction{0, 0, 1};  // of the view, world coordinates
  Point viewCentre;                  // against the target, in the view's own plane
  double viewHeight = 0;             // what of model space is as high as the window
  double twist = 0;                  // of the view, degrees
  std::vector<RecordId> frozenLayers;
  RecordId boundary = kNoRecord;  // the entity that cuts the window out; kNoRecord: it is a rectangle
};

using GeometryShape =
    std::variant<std::monostate, LineGeometry, PointGeometry, ArcGeometry, EllipseGeometry, PolylineGeometry,
                 MeshGeometry, SolidGeometry, SplineGeometry, TextGeometry, InsertGeometry, DimensionGeometry,
                 HatchGeometry, ViewportGeometry>;

struct Geometry {
  GeometryShape shape;  // monostate: nothing that is drawn
  Point normal{0, 0, 1};
  bool invisible = false;
  bool partial = false;  // more is drawn than the shape tells: a thickness, widths
};

// --- Plain geometry for blocks that the host itself makes (arrowheads) -----------------------------------

struct LineShape {
  Point from, to;
};
struct CircleShape {
  Point centre;
  double radius = 0;
};
struct ArcShape {
  Point centre;
  double radius = 0, start = 0, end = 0;
};  // counter-clockwise
struct SolidShape {
  Point a, b, c, d;
};  // filled; corners in the order of a SOLID (c and d crossed)
struct PolylineShape {
  struct Vertex {
    double x = 0, y = 0, bulge = 0;
  };
  std::vector<Vertex> vertices;
  double width = 0;
  bool closed = false;
};
using Shape = std::variant<LineShape, CircleShape, ArcShape, SolidShape, PolylineShape>;

}  // namespace cad
