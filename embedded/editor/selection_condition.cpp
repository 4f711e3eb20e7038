#include "embedded/editor/selection_condition.h"

#include <cmath>
#include <cwchar>

#include "base/codepage.h"
#include "embedded/drawing/wildcard.h"
#include "embedded/editor/integer_part.h"
#include "embedded/editor/result_buffer.h"

namespace cad {
namespace {

using Node = SelectionFilter::Node;

constexpr double kTolerance = 1e-9;

Verdict verdict(bool holds) { return holds ? Verdict::kYes : Verdict::kNo; }

bool bitsHold(double value, Relation relation, double wanted) {
  const std::optional<std::int64_t> own = integerPart(value);
  const std::optional<std::int64_t> bits = integerPart(wanted);
  if (!own || !bits) return false;
  return relation == Relation::kAllBits ? (*own & *bits) == *bits : (*own & *bits) != 0;
}

bool holds(double value, Relation relation, double wanted) {
  const double tolerance = kTolerance * std::max(1.0, std::abs(wanted));
  const bool equal = std::abs(value - wanted) <= tolerance;
  switch (relation) {
    case Relation::kAny:
      return true;
    case Relation::kEqual:
      return equal;
    case Relation::kNotEqual:
      return !equal;
    case Relation::kLess:
      return !equal && value < wanted;
    case Relation::kLessOrEqual:
      return equal || value < wanted;
    case Relation::kGreater:
      return !equal && value > wanted;
    case Relation::kGreaterOrEqual:
      return equal || value > wanted;
    case Relation::kBits:
    case Relation::kAllBits:
      return bitsHold(value, relation, wanted);
  }
  return false;
}

class NeverTest : public Node {
 public:
  Verdict ofSignature(const Drawing&, const Signature&) const override { return Verdict::kNo; }
  bool ofEntity(const Drawing&, RecordId) const override { return false; }
};

// Groups 0, 6, 7 and 8: names that the signature holds.
class SignatureNameTest : public Node {
 public:
  SignatureNameTest(NameId Signature::*member, std::wstring_view pattern)
      : member_(member), pattern_(pattern, true) {}
  Verdict ofSignature(const Drawing& drawing, const Signature& signature) const override {
    return verdict(matches(drawing, signature));
  }
  bool ofEntity(const Drawing& drawing, RecordId entity) const override {
    return matches(drawing, drawing.signature(drawing.record(entity).signature));
  }

 private:
  // Many signatures have the same name.
  bool matches(const Drawing& drawing, const Signature& signature) const {
    const NameId name = signature.*member_;
    if (name == kNoName) return false;
    if (of_ != &drawing) of_ = &drawing, verdicts_.clear();
    if (name >= verdicts_.size()) verdicts_.resize(drawing.names().size(), Verdict::kOpen);
    if (verdicts_[name] == Verdict::kOpen)
      verdicts_[name] = verdict(pattern_.matches(drawing.names().text(name)));
    return verdicts_[name] == Verdict::kYes;
  }
  NameId Signature::*member_;
  Wildcard pattern_;
  mutable const Drawing* of_ = nullptr;
  mutable std::vector<Verdict> verdicts_;  // by name; open: not asked yet
};

class ColorTest : public Node {
 public:
  ColorTest(Relation relation, double wanted) : relation_(relation), wanted_(wanted) {}
  Verdict ofSignature(const Drawing&, const Signature& signature) const override {
    return verdict(holds(signature.color, relation_, wanted_));
  }
  bool ofEntity(const Drawing& drawing, RecordId entity) const override {
    return holds(drawing.signature(drawing.record(entity).signature).color, relation_, wanted_);
  }

 private:
  Relation relation_;
  double wanted_;
};

// Texts that only the entity has: its block's or dimension style's name, its handle, its space.
class EntityTextTest : public Node {
 public:
  EntityTextTest(int group, std::wstring_view pattern) : group_(group), pattern_(pattern, true) {}
  Verdict ofSignature(const Drawing&, const Signature&) const override { return Verdict::kOpen; }
  bool ofEntity(const Drawing& drawing, RecordId entity) const override {
    const std::optional<std::wstring> text = value(drawing, entity);
    return text && pattern_.matches(*text);
  }

 private:
  static std::optional<std::wstring> nameOf(const Drawing& drawing, RecordId entity, Property property) {
    const NameId name = drawing.name(entity, property);
    return name == kNoName ? std::nullopt : std::optional(drawing.names().text(name));
  }

  std::optional<std::wstring> value(const Drawing& drawing, RecordId entity) const {
    if (group_ == 1) return drawing.text(entity, Property::kTextString);
    if (group_ == 2) {
      const bool isDimension = drawing.typeName(entity) == "DIMENSION";
      return nameOf(drawing, entity, isDimension ? Property::kDimBlock : Property::kBlockName);
    }
    if (group_ == 3) return nameOf(drawing, entity, Property::kDimStyle);
    if (group_ == 410) {
      const RecordId space = drawing.blockOf(entity);
      return space == drawing.modelSpace() ? L"Model" : nameOf(drawing, space, Property::kName);
    }
    const std::optional<Handle> handle = drawing.handle(entity);
    if (!handle) return std::nullopt;
    wchar_t buffer[20];
    std::swprintf(buffer, 20, L"%llX", static_cast<unsigned long long>(*handle));
    return buffer;
  }

  int group_;
  Wildcard pattern_;
};

struct NumberGroup {
  int group;
  Property property;
  bool hasDefault;  // else an entity without a value matches nothing
};
constexpr NumberGroup kNumberGroups[] = {
    {40, Property::kTextHeight, false},   {41, Property::kWidthFactor, false},
    {48, Property::kLinetypeScale, true}, {50, Property::kRotation, false},
    {60, Property::kInvisible, true},     {370, Property::kLineWeight, true},
    {440, Property::kTransparency, true},
};

class EntityNumberTest : public Node {
 public:
  EntityNumberTest(const NumberGroup& group, Relation relation, double wanted)
      : group_(group), relation_(relation), wanted_(wanted) {}
  Verdict ofSignature(const Drawing&, const Signature&) const override { return Verdict::kOpen; }
  bool ofEntity(const Drawing& drawing, RecordId entity) const override {
    const PropertyInfo& info = propertyInfo(group_.property);
    std::optional<double> value;
    if (info.type == PropertyType::kReal)
      value = drawing.real(entity, group_.property);
    else if (const auto integer = drawing.integer(entity, group_.property))
      value = static_cast<double>(*integer);
    if (!value && group_.hasDefault) value = info.defaultValue;
    return value && holds(*value, relation_, wanted_);
  }

 private:
  const NumberGroup& group_;
  Relation relation_;
  double wanted_;
};

class PaperSpaceTest : public Node {
 public:
  PaperSpaceTest(Relation relation, double wanted) : relation_(relation), wanted_(wanted) {}
  Verdict ofSignature(const Drawing&, const Signature&) const override { return Verdict::kOpen; }
  bool ofEntity(const Drawing& drawing, RecordId entity) const override {
    return holds(drawing.blockOf(entity) == drawing.modelSpace() ? 0 : 1, relation_, wanted_);
  }

 private:
  Relation relation_;
  double wanted_;
};

std::optional<double> numberOf(const resbuf& condition) {
  switch (valueKindOf(condition.restype)) {
    case ValueKind::kReal:
      return condition.resval.rreal;
    case ValueKind::kShort:
      return condition.resval.rint;
    case ValueKind::kLong:
      return condition.resval.rlong;
    default:
      return std::nullopt;
  }
}

// The host writes an angle of a filter in radians; the drawing holds degrees.
double inDrawingUnits(int group, double value) {
  constexpr double kDegreesPerRadian = 57.29577951308232;
  return group == 50 ? value * kDegreesPerRadian : value;
}

std::unique_ptr<Node> makeTextTest(int group, std::wstring_view pattern) {
  switch (group) {
    case 0:
      return std::make_unique<SignatureNameTest>(&Signature::type, pattern);
    case 6:
      return std::make_unique<SignatureNameTest>(&Signature::linetype, pattern);
    case 7:
      return std::make_unique<SignatureNameTest>(&Signature::style, pattern);
    case 8:
      return std::make_unique<SignatureNameTest>(&Signature::layer, pattern);
    case 1:
    case 2:
    case 3:
    case 5:
    case 410:
      return std::make_unique<EntityTextTest>(group, pattern);
    default:
      return std::make_unique<NeverTest>();
  }
}

}  // namespace

std::optional<Relation> relationOf(std::wstring_view mark) {
  constexpr std::pair<std::wstring_view, Relation> kRelations[] = {
      {L"*", Relation::kAny},          {L"=", Relation::kEqual},     {L"!=", Relation::kNotEqual},
      {L"/=", Relation::kNotEqual},    {L"<>", Relation::kNotEqual}, {L"<", Relation::kLess},
      {L"<=", Relation::kLessOrEqual}, {L">", Relation::kGreater},   {L">=", Relation::kGreaterOrEqual},
      {L"&", Relation::kBits},         {L"&=", Relation::kAllBits},
  };
  for (const auto& [text, relation] : kRelations)
    if (mark == text) return relation;
  return std::nullopt;
}

std::unique_ptr<Node> makeTest(const resbuf& condition, Relation relation) {
  const int group = condition.restype;
  if (!isFilterCode(group)) return nullptr;
  if (valueKindOf(group) == ValueKind::kText) {
    if (condition.resval.rstring == nullptr) return nullptr;
    return makeTextTest(group, condition.resval.rstring);
  }
  const std::optional<double> wanted = numberOf(condition);
  if (!wanted) return std::make_unique<NeverTest>();
  if (group == 62) return std::make_unique<ColorTest>(relation, *wanted);
  if (group == 67) return std::make_unique<PaperSpaceTest>(relation, *wanted);
  for (const NumberGroup& each : kNumberGroups)
    if (each.group == group)
      return std::make_unique<EntityNumberTest>(each, relation, inDrawingUnits(group, *wanted));
  return std::make_unique<NeverTest>();
}

}  // namespace cad
