#pragma once
// Writes the fields that a description visits: changed ones anew, others with the bits that they have.

#include <array>
#include <set>
#include <string>

#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/fields/field_visitor.h"

namespace cad::dwg {

class FieldWriter final : public FieldVisitor {
 public:
  // `source`: the fields as they are, of the same kind and version; null for a new object. Both must outlive
  // the writer.
  FieldWriter(const Fields* source, const FieldChanges& changes, Version version, ObjectKind kind, Handle own,
              bool handlesInData = false)
      : FieldVisitor(version, kind),
        source_(source),
        changes_(changes),
        own_(own),
        handlesInData_(handlesInData) {}

  bool changes(std::string_view name, std::uint32_t index = 0) const override;
  bool changesPart(std::string_view name, Part part) const override;
  Value wanted(std::string_view name, Value fallback, std::uint32_t index = 0,
               Part part = Part::kWhole) const override;
  bool follows(std::string_view name, std::string_view first) const override;
  const Color* wantedColor(std::string_view name, std::uint32_t index) const override;
  void implied(std::string_view, Part, Value, std::uint32_t) override {}
  void fail() override { failed_ = true, unwritable_ = visited_; }
  bool failed() const override { return failed_; }
  void sizeField() override;
  std::uint64_t left(Stream) const override { return ~std::uint64_t{0}; }
  const Value& visit(const FieldSpec& spec) override;

  // What stands before and behind the size field of R13 and R14; everything stands behind where there is
  // none.
  BitWriter& beforeSize() { return beforeSize_; }
  BitWriter& data() { return written(Stream::kData); }
  BitWriter& texts() { return written(Stream::kText); }
  BitWriter& handles() { return written(Stream::kHandles); }
  bool hasTexts() const { return hasTexts_; }  // one that is not empty

  // A field that is changed and that the object has not, or whose value is of another type, too large for it,
  // or tells what cannot be; empty: none.
  std::string_view misfit() const;

 private:
  const Field* sourceOf(std::string_view name, std::uint32_t index, Part part) const;
  Value valueOf(const FieldSpec& spec, const Field* from) const;
  HandleReference referenceTo(const FieldSpec& spec, const Field* from, Handle handle) const;
  bool standsAsItIs(const FieldSpec& spec, const Field* from) const;
  BitWriter& written(Stream stream);  // with all that was visited
  // Bits of the source that follow each other are copied at once.
  void copyLater(Stream stream, const Field& from);
  void use(std::string_view name, std::uint32_t index, Part part) const { used_.insert({name, index, part}); }

  const Fields* source_;
  const FieldChanges& changes_;
  Handle own_;
  bool handlesInData_;
  BitWriter beforeSize_;
  std::array<BitWriter, 3> writers_;  // by the stream
  struct Span {
    std::uint32_t begin = 0, end = 0;
  };
  std::array<Span, 3> toCopy_;
  Value current_;
  std::string_view visited_, unwritable_;
  mutable std::set<FieldChanges::Key> used_;
  mutable std::size_t near_ = 0;  // where the source's next field is looked for first
  bool failed_ = false, hasTexts_ = false;
  bool moved_ = false;  // a number that is visited has another value than the source's
};

}  // namespace cad::dwg
