#pragma once
// Errors as values: every operation that can fail returns Status or Result<T>.

#include <string>
#include <utility>
#include <variant>

namespace base {

// For whoever tells a failure in words of their own.
enum class FailureKind {
  kOther,  // nothing but the reason says it
  kNoSuchFile,
  kNoSuchFolder,  // in which something is to be written
  kIsAFolder,
  kNotAFolder,  // a part of the path
  kNotAnOrdinaryFile,
  kFileInTheWay,  // of a folder
  kPermissionDenied,
  kReadOnlyFileSystem,
  kNoSpaceLeft,
  kFileTooLarge,
  kInputOutput,
  kTooManyOpenFiles,
  kNameTooLong,
  kUnusableName,
  kOpenElsewhere,
  kChangedWhileRead,
  kNotInCodePage,  // the detail: the characters
  kForeignContent,
};

// What went wrong, for a person: where (a file, a line, a byte offset) and why.
// Both texts are complete sentences or names without a line end; `place` may be empty.
struct Failure {
  std::wstring place;
  std::wstring reason;
  FailureKind kind = FailureKind::kOther;
  std::wstring detail = {};  // what the reason, which has it too, tells besides its kind; mostly empty

  // "place: reason", or the reason alone.
  std::wstring text() const { return place.empty() ? reason : place + L": " + reason; }
};

// The outcome of an operation that returns nothing. Default: success.
class [[nodiscard]] Status {
 public:
  Status() = default;
  Status(Failure failure) : failure_(std::move(failure)), ok_(false) {}  // NOLINT: implicit on purpose
  bool ok() const { return ok_; }
  explicit operator bool() const { return ok_; }
  const Failure& failure() const { return failure_; }  // meaningful only when !ok()

 private:
  Failure failure_;
  bool ok_ = true;
};

// A value or the reason why there is none.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : content_(std::move(value)) {}            // NOLINT: implicit on purpose
  Result(Failure failure) : content_(std::move(failure)) {}  // NOLINT: implicit on purpose
  bool ok() const { return content_.index() == 0; }
  explicit operator bool() const { return ok(); }
  T& value() { return std::get<0>(content_); }  // only when ok()
  const T& value() const { return std::get<0>(content_); }
  const Failure& failure() const { return std::get<1>(content_); }  // only when !ok()

 private:
  std::variant<T, Failure> content_;
};

}  // namespace base
