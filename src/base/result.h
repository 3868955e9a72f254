// Failures as values. A failure that users see by number carries the number and the usual text.
#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

namespace vistaplot {

/// A run-time failure as users see it, e.g. number 53, description "File not found".
struct RuntimeError {
  int number = 0;
  std::string description;
  std::string subject;  ///< what it happened to (a path, a box's name); may be empty
};

// The numbers that users know. Host errors map to them in ErrorFromErrno alone.
inline constexpr int kErrorOverflow = 6;
inline constexpr int kErrorSubscriptOutOfRange = 9;
inline constexpr int kErrorDivisionByZero = 11;
inline constexpr int kErrorTypeMismatch = 13;
inline constexpr int kErrorFileNotFound = 53;
inline constexpr int kErrorFileAlreadyOpen = 55;
inline constexpr int kErrorDiskFull = 61;
inline constexpr int kErrorInputPastEnd = 62;
inline constexpr int kErrorPermissionDenied = 70;
inline constexpr int kErrorPathFileAccess = 75;
inline constexpr int kErrorPathNotFound = 76;

/// The error of a known number with its usual description, e.g. 53 gives "File not found".
RuntimeError MakeError(int number, std::string subject = {});

/// The error that a host's errno stands for; unknown ones become 75 "Path/File access error".
RuntimeError ErrorFromErrno(int host_errno, std::string subject = {});

/// "53 File not found": the form that the fixed "error: ..." messages use.
std::string NumberedText(const RuntimeError& error);

/// "/data/a.csv: File not found", or the description alone without a subject: for command lines.
std::string PlainText(const RuntimeError& error);

/// A value or the failure that took its place.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : held_(std::move(value)) {}             // NOLINT(google-explicit-constructor)
  Result(RuntimeError error) : held_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  bool Ok() const { return std::holds_alternative<T>(held_); }
  explicit operator bool() const { return Ok(); }

  const T& Value() const {
    assert(Ok());
    return std::get<T>(held_);
  }
  T& Value() {
    assert(Ok());
    return std::get<T>(held_);
  }
  const RuntimeError& Error() const {
    assert(!Ok());
    return std::get<RuntimeError>(held_);
  }

 private:
  std::variant<T, RuntimeError> held_;
};

/// Success without a value.
struct Done {};
using Status = Result<Done>;

}  // namespace vistaplot
