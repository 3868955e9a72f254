// Damage by single bits, over a whole database: each is told or does no harm.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "quoteline/administration.h"
#include "quoteline/check.h"
#include "quoteline/price_import.h"
#include "quoteline/service.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

// In memory where that is to be had: the tests open the database some sixty thousand times.
std::filesystem::path FastestFolder() {
  std::error_code ignored;
  const std::filesystem::path memory = "/dev/shm";
  return std::filesystem::is_directory(memory, ignored) ? memory
                                                        : std::filesystem::temp_directory_path();
}

/// An issue as a reader gets it.
struct Issue {
  std::string head;                          // symbol, name, days, number of prices
  std::optional<std::vector<float>> prices;  // nothing: the fetch said that it is damaged
  bool operator==(const Issue&) const = default;
};

/// Everything that a reader gets; nothing when the service does not open.
std::optional<std::vector<Issue>> ReadAll(const std::string& directory) {
  auto opened = Service::Open(directory);
  if (!opened) return std::nullopt;
  Service& service = *opened.Value();
  std::vector<Issue> issues;
  for (const IssueSummary& issue : service.List()) {
    Issue& read = issues.emplace_back();
    read.head = SymbolText(issue.symbol) + " " + std::string(issue.name) + " " +
                std::to_string(service.Days()[static_cast<std::size_t>(issue.first_day - 1)]) +
                " " + std::to_string(issue.last_day) + " " + std::to_string(issue.prices);
    std::vector<float> prices(service.Days().size() + 1);
    if (service.Fetch(issue.symbol, prices.data()) == 0) read.prices = prices;
  }
  return issues;
}

/// A database of a few small pages, whose bytes the tests change.
class BitFlips : public testing::Test {
 protected:
  BitFlips() {
    EXPECT_TRUE(InitService(folder_.Path()));
    EXPECT_TRUE(
        Import("Symbol,Date,Close,Name\nAAA,2000-01-03,10,First\nAAA,2000-01-05,12,\n"
               "BBB,2000-01-04,7.25,Second\nBBB,2000-01-05,60.42,\n"));
    sqlite3* handle = nullptr;
    sqlite3_open(folder_.Path("quoteline.db").c_str(), &handle);
    // Without the log no side files are made and removed at each opening.
    sqlite3_exec(handle,
                 "PRAGMA journal_mode = DELETE; PRAGMA page_size = 512; VACUUM;",
                 nullptr,
                 nullptr,
                 nullptr);
    sqlite3_close(handle);
    intact_ = folder_.Read("quoteline.db");
    original_ = *ReadAll(folder_.Path());
  }

  bool Import(const std::string& text) {
    ImportRequest request;
    request.directory = folder_.Path();
    request.files = {folder_.Write("new.csv", text)};
    return ImportPrices(request).faults.empty();
  }

  // Changes one bit of the database as it was at first.
  void Flip(std::size_t bit) {
    std::string bytes = intact_;
    bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ static_cast<char>(1U << (bit % 8)));
    folder_.Write("quoteline.db", bytes);
  }

  // Writing takes longer: a bit of every third byte, each place of it in turn.
  std::size_t BitOfByte(std::size_t byte) const { return byte * 8 + byte % 8; }

  test::TemporaryFolder folder_{FastestFolder()};
  std::string intact_;
  std::vector<Issue> original_;
};

// The original issues, in their order, each as it was or told to be damaged.
bool IsOriginalOrTold(const std::vector<Issue>& read, const std::vector<Issue>& original) {
  if (read.size() != original.size()) return false;
  for (std::size_t i = 0; i < read.size(); ++i) {
    if (read[i].head != original[i].head) return false;
    if (read[i].prices && read[i].prices != original[i].prices) return false;
  }
  return true;
}

/// A quarter of all bits, so that the quarters can run side by side.
class EveryBit : public BitFlips, public testing::WithParamInterface<std::size_t> {};

TEST_P(EveryBit, IsToldByReaderAndCheckOrChangesNothing) {
  ASSERT_LT(intact_.size(), 6000U);
  std::fstream file(folder_.Path("quoteline.db"), std::ios::in | std::ios::out | std::ios::binary);
  const auto put = [&file](std::size_t byte, int value) {
    file.seekp(static_cast<std::streamoff>(byte));
    file.put(static_cast<char>(value)).flush();
  };
  std::size_t told = 0;
  for (std::size_t bit = GetParam(); bit < intact_.size() * 8; bit += 4) {
    if (bit >= 8) put(bit / 8 - 1, intact_[bit / 8 - 1]);
    put(bit / 8, intact_[bit / 8] ^ (1 << (bit % 8)));
    const auto read = ReadAll(folder_.Path());
    if (read == original_) continue;  // then the check may say what it likes
    ASSERT_TRUE(!read || IsOriginalOrTold(*read, original_)) << "bit " << bit;
    ASSERT_FALSE(CheckService(folder_.Path()).faults.empty()) << "bit " << bit;
    ++told;
  }
  EXPECT_GT(told, 1000U);
}

INSTANTIATE_TEST_SUITE_P(Quarters, EveryBit, testing::Range<std::size_t>(0, 4));

TEST_F(BitFlips, AnImportIsRefusedOrGivesWhatItGivesWithoutThem) {
  const std::string more = "Date,CCC,BBB\n2000-01-04,5,9.5\n2000-01-06,6,\n";
  ASSERT_TRUE(Import(more));
  const auto expected = ReadAll(folder_.Path());
  std::size_t taken = 0;
  for (std::size_t byte = 0; byte < intact_.size(); byte += 3) {
    Flip(BitOfByte(byte));
    if (!Import(more)) continue;
    ++taken;
    const auto read = ReadAll(folder_.Path());
    if (read == expected) continue;
    // A damaged history that the import had nothing to do with is damaged as before.
    ASSERT_TRUE(read && IsOriginalOrTold(*read, *expected)) << "byte " << byte;
    ASSERT_FALSE(CheckService(folder_.Path()).faults.empty()) << "byte " << byte;
  }
  EXPECT_GT(taken, 50U);
}

TEST_F(BitFlips, RebuildingNeverMakesThemTheTruth) {
  std::size_t mended = 0;
  for (std::size_t byte = 0; byte < intact_.size(); byte += 3) {
    Flip(BitOfByte(byte));
    const bool was_damaged = !CheckService(folder_.Path()).faults.empty();
    if (!RebuildSymbols(folder_.Path())) continue;
    const auto read = ReadAll(folder_.Path());
    ASSERT_TRUE(read && IsOriginalOrTold(*read, original_)) << "byte " << byte;
    const bool is_damaged = !CheckService(folder_.Path()).faults.empty();
    ASSERT_TRUE(is_damaged || read == original_) << "byte " << byte;
    if (was_damaged && !is_damaged) ++mended;
  }
  // Rows, calendar and index are held twice.
  EXPECT_GT(mended, 50U);
}

}  // namespace
}  // namespace vistaplot
