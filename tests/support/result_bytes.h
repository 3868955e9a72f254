// Result files written byte by byte, as other products write them.
#pragma once

#include <string>
#include <vector>

namespace vistaplot::test {

/// `text` padded with blanks to `width` bytes.
inline std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

/// The first fourteen fields of a *.SUM record with their separators, 94 bytes: case number and
/// average annual percent as given, 1 to 12 in the fields between and behind them.
inline std::string SumFields(const std::string& number, const std::string& annual) {
  return Padded(number, 4) + "|   1|   2|   3|" + Padded(annual, 8) +
         "|       4|07/23/02|   5|   6|    7|       8|       9|      10|  11";
}

/// A record of 119 bytes.
inline std::string LongSum(const std::string& number, const std::string& annual) {
  return SumFields(number, annual) + "|  0.85|  0.91| -1.25|\r\n ";
}

/// A record of 98 bytes.
inline std::string ShortSum(const std::string& number, const std::string& annual) {
  return SumFields(number, annual) + "|\r\n ";
}

/// A *.SSM record of 77 bytes.
inline std::string Ssm(const std::string& number, const std::string& annual) {
  return Padded(number, 4) + "\t2   \t3   \t" + Padded(annual, 8) +
         "\t1.5 \t20.250  \t07/23/02\t4.500   \t1.250   \t66.67   \r\n  ";
}

/// A *.SDT record of 40 bytes.
inline std::string Sdt(const std::string& bought, const std::string& gain) {
  return "5   \t3   \t" + bought + "\t12/31/10\t" + Padded(gain, 8) + "\r\n  ";
}

/// A *.VX1 of kind "SM " with these lines from line 8 on.
inline std::string Vx1(const std::string& mark, const std::vector<std::string>& lines) {
  std::string bytes = "title\r\n     " + mark + " test\r\n3\r\n4\r\n5\r\n6\r\n7\r\n";
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

}  // namespace vistaplot::test
