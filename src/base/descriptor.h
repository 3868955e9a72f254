// An open file of the host that closes with its scope.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vistaplot {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

  /// Closes early, because some file systems report a full disk only here. 0 or an errno.
  int Close() {
    const int closed = ::close(std::exchange(number_, -1));
    return closed == 0 ? 0 : errno;
  }

 private:
  int number_ = -1;
};

}  // namespace vistaplot
