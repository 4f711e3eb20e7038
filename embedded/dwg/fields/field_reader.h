#pragma once
// Reads the fields that a description visits.

#include "embedded/dwg/fields/field_visitor.h"

namespace cad::dwg {

// Where the streams of an object or a section stand, in bits.
struct Streams {
  std::uint32_t dataBegin = 0, dataEnd = 0;
  std::uint32_t textBegin = 0, textEnd = 0;
  std::uint32_t handleBegin = 0, handleEnd = 0;
  bool handlesInData = false;  // among what stands there, in its order
};

class FieldReader final : public FieldVisitor {
 public:
  FieldReader(std::string_view data, const Streams& streams, Version version, ObjectKind kind, Handle own);

  bool changes(std::string_view, std::uint32_t) const override { return false; }
  Value wanted(std::string_view, Value fallback, std::uint32_t, Part) const override { return fallback; }
  bool follows(std::string_view, std::string_view) const override { return false; }
  const Color* wantedColor(std::string_view, std::uint32_t) const override { return nullptr; }
  void implied(std::string_view name, Part part, Value value, std::uint32_t index) override;
  void fail() override { failed_ = true; }
  bool failed() const override;
  void sizeField() override;
  std::uint64_t left(Stream stream) const override { return readerOf(stream).left(); }
  const Value& visit(const FieldSpec& spec) override;

  // How far each of the streams was read.
  Streams rest() const;
  Fields take(bool complete);

 private:
  BitReader& readerOf(Stream stream);
  const BitReader& readerOf(Stream stream) const { return const_cast<FieldReader*>(this)->readerOf(stream); }

  Fields fields_;
  BitReader readData_, text_, handles_;
  bool handlesInData_;
  bool failed_ = false;
};

}  // namespace cad::dwg
