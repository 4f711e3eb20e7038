// Entities of blocks that the host draws itself, in the form in which it writes them.

#include <cmath>

#include "embedded/drawing/block_copy.h"
#include "embedded/drawing/color_codes.h"
#include "embedded/dxf/block_writer.h"
#include "embedded/dxf/geometry_writer.h"
#include "embedded/dxf/record_translator.h"
#include "embedded/dxf/special_properties.h"

namespace cad::dxf {
namespace {

using Fill = TextGeometry::Fill;

constexpr int kFillOfOwnColor = 1, kFillOfBackground = 2;
constexpr int kAtLeast = 1;  // how line spacing is meant

int fillNumber(Fill fill) { return fill == Fill::kOwnColor ? kFillOfOwnColor : kFillOfBackground; }

class EntityWriter {
 public:
  EntityWriter(Drawing& drawing, DxfStorage& storage) : drawing_(drawing), block_(drawing, storage) {}

  base::Status resume(RecordId block) { return block_.resume(block); }

  base::Status add(const BlockEntity& entity) {
    const std::optional<Version> first = firstVersionOf(entity.type);
    RecordBuilder builder = block_.begin(entity.type, block_.takeHandle());
    if (first && *first > builder.target().facts().version)
      return refusedType(entity.type, L"The drawing's version cannot hold entities of this type");
    addCommon(builder, entity);
    const auto* text = std::get_if<TextGeometry>(&entity.geometry.shape);
    base::Status status;
    if (text != nullptr && text->multiline) {
      status = addParagraphs(builder, entity, *text);
    } else if (!first || !addGeometry(drawing_, builder, entity.type, entity.geometry)) {
      status = refusedType(entity.type, L"Entities of this type are not made here");
    }
    if (status) block_.addEntity(builder, signatureOf(entity, text != nullptr));
    return status;
  }

 private:
  SignatureId signatureOf(const BlockEntity& entity, bool isText) {
    NamePool& names = drawing_.names();
    Signature signature;
    signature.type = names.intern(entity.type);
    const auto named = [&](const std::wstring& name, std::string_view otherwise) {
      return name.empty() ? names.intern(otherwise) : names.intern(std::wstring_view(name));
    };
    signature.layer = names.intern(std::string_view(layerBytes_));
    signature.linetype = named(entity.linetype, "ByLayer");
    if (isText) signature.style = named(entity.textStyle, "Standard");
    signature.color = entity.color;
    return drawing_.intern(signature);
  }

  void addCommon(RecordBuilder& builder, const BlockEntity& entity) {
    if (layer_ != entity.layer || layerBytes_.empty()) {
      layer_ = entity.layer;
      layerBytes_ = builder.target().encode(layer_);
    }
    builder.stored(8, layerBytes_);
    if (!entity.linetype.empty()) builder.text(6, entity.linetype);
    if (entity.color != 256) builder.integer(62, entity.color);
    if (builder.since(Version::kR2004)) {
      if (entity.trueColor) builder.integer(420, *entity.trueColor);
      if (entity.transparency != 0) builder.integer(440, entity.transparency);
    }
    if (builder.since(Version::kR2000) && entity.lineWeight != -1) builder.integer(370, entity.lineWeight);
    // A line of text in a version without class markers has its style wherever it stands.
    const bool plain = entity.type == "TEXT" && !builder.since(Version::kR13);
    if (plain && !entity.textStyle.empty()) builder.text(7, entity.textStyle);
  }

  base::Status addParagraphs(RecordBuilder& builder, const BlockEntity& entity, const TextGeometry& text) {
    constexpr int kRows[] = {0, 2, 1, 0};  // of the attachment, by level: a base line counts as the top
    const int column = text.side == TextGeometry::Side::kCentre  ? 1
                       : text.side == TextGeometry::Side::kRight ? 2
                                                                 : 0;
    builder.subclass("AcDbMText").point(10, text.at).real(40, text.height).real(41, text.frameWidth);
    if (builder.since(Version::kR2007)) builder.real(46, 0);
    builder.integer(71, kRows[static_cast<int>(text.level)] * 3 + column + 1).integer(72, 1);
    const DxfStorage& storage = builder.target();
    builder.raw(contentGroups(storage.dialect(), storage.facts().codePage, storage.encode(text.contents)));
    if (!entity.textStyle.empty()) builder.text(7, entity.textStyle);
    addDirection(builder, entity.geometry.normal, text.rotation);
    if (builder.since(Version::kR2000)) builder.integer(73, kAtLeast).real(44, text.lineSpacing);
    if (builder.since(Version::kR2004)) {
      addFill(builder, text);
      return {};
    }
    addOldData(builder, text);
    return requireApplication(drawing_, L"ACAD");
  }

  static void addDirection(RecordBuilder& builder, const Point& normal, double rotation) {
    const bool upright = normal.x == 0 && normal.y == 0 && normal.z == 1;
    if (!upright) builder.point(210, normal);
    if (upright && rotation == 0) return;
    const double angle = rotation * kRadiansPerDegree;
    // What libraries make of a quarter turn differs; along an axis the other part is 0.
    const auto part = [](double value) { return std::abs(value) < 1e-15 ? 0 : value; };
    builder.point(11, axesOf(normal).world({part(std::cos(angle)), part(std::sin(angle)), 0}));
  }

  static void addFill(RecordBuilder& builder, const TextGeometry& text) {
    if (text.fill == Fill::kNone) return;
    builder.integer(90, fillNumber(text.fill)).integer(63, text.fillColor);
    if (text.fillTrueColor) builder.integer(421, *text.fillTrueColor);
    builder.real(45, text.fillFactor).integer(441, 0);
  }

  // What versions without groups for it keep as extended data: the line spacing, and what is behind the text.
  static void addOldData(RecordBuilder& builder, const TextGeometry& text) {
    const auto name = [&](std::string_view word) { builder.stored(1000, word); };
    const auto integer = [&](int code, std::int64_t value) {
      builder.integer(1070, code).integer(1070, value);
    };
    const auto longer = [&](int code, std::int64_t value) {
      builder.integer(1070, code).integer(1071, value);
    };
    const auto real = [&](int code, double value) { builder.integer(1070, code).real(1040, value); };
    builder.stored(1001, "ACAD");
    name("MTEXTBEGIN");
    integer(73, kAtLeast);
    real(44, text.lineSpacing);
    integer(74, 0);
    name("MTEXTEND");
    if (text.fill == Fill::kNone) return;
    name("ACAD_MTEXT_BBRT");
    longer(91, fillNumber(text.fill));
    real(46, text.fillFactor);
    longer(64, text.fillTrueColor ? packedColor(ColorCode::kTrue, *text.fillTrueColor)
                                  : packedColor(ColorCode::kNumber, text.fillColor));
    for (const int nameCode : {65, 66}) {
      builder.integer(1070, nameCode);
      name(" ");
    }
    longer(442, 0);
    name("ACAD_MTEXT_BERT");
  }

  Drawing& drawing_;
  BlockWriter block_;
  std::wstring layer_;  // of the newest entity, and how it is written
  std::string layerBytes_;
};

}  // namespace

base::Status DxfStorage::addEntities(Drawing& drawing, RecordId block,
                                     std::span<const BlockEntity> entities) {
  EntityWriter writer(drawing, *this);
  base::Status status = writer.resume(block);
  for (const BlockEntity& entity : entities)
    if (status) status = writer.add(entity);
  return status;
}

}  // namespace cad::dxf
