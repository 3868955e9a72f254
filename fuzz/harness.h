// What the harnesses share. A harness gives any bytes to one reader and requires of the outcome
// what the reader promises; a broken promise ends the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// The entry point that every harness defines, by the name that libFuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vistaplot::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

inline void Require(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "broken promise: %s\n", promise);
  std::abort();
}

/// A message for a terminal: one line that a screen can hold.
inline void RequireMessage(std::string_view message) {
  constexpr std::size_t kLongest = 1000;
  Require(message.size() <= kLongest, "a message is short");
  for (const char c : message) Require(c != '\n' && c != '\r' && c != '\x1B', "of one line");
}

/// Takes what stands up to the first line feed off the front of `text`.
inline std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

}  // namespace vistaplot::fuzz
