#include "quoteline/price_import.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "base/text.h"
#include "quoteline/check.h"
#include "quoteline/price_text.h"
#include "support/quoteline_world.h"

namespace vistaplot::test {
namespace {

using Lines = std::vector<std::string>;

struct PriceImport : testing::Test, QuotelineWorld {
  // "SYMBOL new changed" of each issue of a report, or its faults without the folder, with "|"
  // between them.
  std::string Told(const ImportReport& report) const {
    std::string told;
    for (const IssueChange& change : report.changes) {
      told += "|" + change.symbol + " " + std::to_string(change.new_days) + " " +
              std::to_string(change.changed_days);
    }
    for (const std::string& fault : report.faults) told += "|" + fault;
    const std::string prefix = files.Path() + "/";
    for (std::size_t at = 0; (at = told.find(prefix)) != std::string::npos;) {
      told.erase(at, prefix.size());
    }
    return told.empty() ? told : told.substr(1);
  }
  std::string Take(const std::string& name, std::string_view text, ImportRequest request = {}) {
    return Told(Import(name, text, std::move(request)));
  }
  std::string TakeFiles(std::vector<std::string> paths) {
    return Told(ImportFiles(std::move(paths)));
  }
};

// The world of one line of a table.
struct LineWorld : PriceImport {
  void TestBody() override {}
};

TEST(PriceImports, TellsTheFormsApartByTheirHeader) {
  // The file's name and text, then the list and the prices of the only issue.
  for (const std::string_view c :
       {"ab.us.csv|Date,Open,Close\n2000-01-04,1,2.5\n2000-01-03,1,2\n|"
        "AB 2000-01-03 2000-01-04 2 AB|1,2000-01-03,2\n2,2000-01-04,2.5\n",
        "$x.csv|\xEF\xBB\xBF\"date\";\"NAV\"\r\n\"1/3/2000\";\" 7.25 \"\r\n12/31/1999;+6\r\n|"
        "$X 1999-12-31 2000-01-03 2 $X|1,1999-12-31,6\n2,2000-01-03,7.25\n",
        "any.csv|Symbol\tDate\tPrice\tName\nsbi\t2000-01-03\t95.88\t\"Bonds, \"\"all\"\"\"\n"
        "SBI\t2000-01-04\t1e2\t\n|"
        "SBI 2000-01-03 2000-01-04 2 Bonds, \"all\"|1,2000-01-03,95.88\n2,2000-01-04,100\n",
        "any.csv|DATE,brk.b\r2000-01-03,.5\r2000-01-04,\r2000-01-05,16777217|"
        "BRK.B 2000-01-03 2000-01-05 2 BRK.B|1,2000-01-03,0.5\n2,2000-01-05,16777220\n",
        "AB.csv|Date,Close,,\n2000-01-03,4,,\n\n2000-01-03,4,,\n|"
        "AB 2000-01-03 2000-01-03 1 AB|1,2000-01-03,4\n",
        // A spreadsheet's preamble; more commas than semicolons in the header.
        "AB.csv|sep=;\r\n\r\nDate;Close;\"a,b,c\"\r\n2000-01-03;4;\r\n|"
        "AB 2000-01-03 2000-01-03 1 AB|1,2000-01-03,4\n"}) {
    SCOPED_TRACE(c);
    LineWorld world;
    const auto parts = Split(c, '|');
    world.Import(std::string(parts[0]), parts[1]);
    const Lines list = world.List();
    ASSERT_EQ(list, Lines{std::string(parts[2])});
    EXPECT_EQ(world.Prices(list[0].substr(0, list[0].find(' '))), parts[3]);
  }
}

TEST_F(PriceImport, TakesTheAdjustedPriceWhenAsked) {
  const std::string text = "Date,Close,Adj Close,Volume\n2000-01-03,102.88,42.94,5\n";
  EXPECT_EQ(Take("TXN.csv", text, Adjusted()), "TXN 1 0");
  EXPECT_EQ(Prices("TXN"), "1,2000-01-03,42.94\n");
}

// What a header makes of a line "2000-01-03,1,2,3": the issues, or the refusal; then what the one
// issue left out.
TEST(PriceImports, APriceColumnInAnyCaseMakesAFileOfOneIssue) {
  const std::string none = "F.csv: has no price column (Close, NAV or Price) in its header";
  struct Case {
    std::string header, told;
    Lines left_out;
  };
  const Case cases[] = {
      {"Date,NAV,POP,CHG", "F 1 0", {"POP", "CHG"}},
      {"DATE,PRICE,YIELD,CLOSE", "F 1 0", {"PRICE", "YIELD"}},
      {"Date,HD,LOW,NAV", "F 1 0", {"HD", "LOW"}},
      {"Date,HD,LOW,WMT", "HD 1 0|LOW 1 0|WMT 1 0", {}},
      {"Date,High,Low,Yield", none + "; if its columns are symbols, say so with --wide", {}},
      {"Date,High,Low,Volume", none, {}},
      {"Date,High,Low,Open Int",
       none + ", and column \"Open Int\" of its header is no symbol (1 to "
              "5 letters, digits, $ ^ . -)",
       {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.header);
    LineWorld world;
    const ImportReport report = world.Import("F.csv", c.header + "\n2000-01-03,1,2,3\n");
    EXPECT_EQ(world.Told(report), c.told);
    EXPECT_EQ(report.left_out.contains("F") ? report.left_out.at("F") : Lines{}, c.left_out);
  }
}

TEST_F(PriceImport, WhatAFileIsCanBeSaidOutright) {
  const std::string text = "Date,AAA,NAV\n2000-01-03,1,2\n";
  ImportRequest wide;
  wide.options.wide = true;
  EXPECT_EQ(Take("w.csv", text, wide), "AAA 1 0|NAV 1 0");
  ImportRequest one;
  one.options.symbol = "S";
  EXPECT_EQ(Take("w.csv", text, one), "S 1 0");
  EXPECT_EQ(Prices("S"), "1,2000-01-03,2\n");
  EXPECT_EQ(Take("w.csv", "Date,AAA,BBB\n2000-01-03,1,2\n", one),
            "w.csv: has no price column (Close, NAV or Price) in its header");
  const std::string two = "Symbol,Date,NAV\nA,2000-01-04,1\na,2000-01-05,2\nB,2000-01-06,3\n";
  EXPECT_EQ(Take("l.csv", two, one),
            "l.csv:4: a second issue, \"B\", in a file that --symbol says holds one");
}

TEST_F(PriceImport, WhatSpreadsheetsAndOldProgramsLeaveBehindIsNoFault) {
  EXPECT_EQ(Take("A.csv", ";;\nDate;Close;X\n2000-01-03;1;2\n;;\n ; ;\n\x1A\x1A"), "A 1 0");
  EXPECT_EQ(Take("w.csv", "Date,B,C\n,,\n2000-01-03,1,2\x1A"), "B 1 0|C 1 0");
}

TEST_F(PriceImport, NamesHaveOneLimitInBothEncodings) {
  const std::string longest = "Z\xFC" + std::string(78, 'x');  // 80 characters
  const auto import = [this](const std::string& symbol, const std::string& name) {
    return Take("l.csv", "Symbol,Date,NAV,Name\n" + symbol + ",2000-01-03,1," + name + "\n");
  };
  EXPECT_EQ(import("A", longest), "A 1 0");
  EXPECT_EQ(import("A", longest + "y"), "l.csv:2: the name has 81 characters; 80 are the most");
  import("U", "Z\xC3\xBCrich \xC5\x81");
  import("W", "Z\xFCrich");
  EXPECT_EQ(List("U"), Lines{"U 2000-01-03 2000-01-03 1 Z\xC3\xBCrich \xC5\x81"});
  EXPECT_EQ(List("W"), Lines{"W 2000-01-03 2000-01-03 1 Z\xC3\xBCrich"});
}

TEST_F(PriceImport, ShowsPricesAsPlainNumbersOfSevenDigits) {
  Import("A.csv", "Date,NAV\n2000-01-03,300000\n2000-01-04,16777216\n2000-01-05,0.00001\n");
  EXPECT_EQ(Prices("A"), "1,2000-01-03,300000\n2,2000-01-04,16777220\n3,2000-01-05,0.00001\n");
}

TEST_F(PriceImport, WhatCanBeNoPriceFileIsRefusedAtOnce) {
  const std::string large = files.Write("large.csv", "Date,Close\n");
  const std::string line = files.Write("line.csv", "Date,Close\n");
  std::filesystem::resize_file(large, (std::uintmax_t{2} << 30U) + 1);
  std::filesystem::resize_file(line, std::uintmax_t{40} << 20U);
  EXPECT_EQ(TakeFiles({"/dev/zero", "/dev/null", large}),
            "/dev/zero: is a device, not a price file|/dev/null: is a device, not a price file|"
            "large.csv: is larger than 2 GiB; a price file of that size is to be split");
  EXPECT_EQ(TakeFiles({line}), "line.csv: is not a price file: a line of it is longer than 16 MiB");
}

TEST_F(PriceImport, RenumbersEveryIssueWhenDatesComeBetweenAndBefore) {
  Import("w.csv", "Date,A,B\n2000-01-05,1,\n2000-01-07,2,5\n2000-01-11,3,6\n");
  EXPECT_EQ(Take("C.csv", "Date,Close\n2000-01-03,9\n2000-01-06,8\n2000-01-07,7\n"), "C 3 0");
  EXPECT_EQ(Prices("A"), "2,2000-01-05,1\n3,2000-01-06,1\n4,2000-01-07,2\n5,2000-01-11,3\n");
  EXPECT_EQ(Prices("B"), "4,2000-01-07,5\n5,2000-01-11,6\n");
  // The carried value of 6 January is no price, so that the calendar forgets the day with C.
  EXPECT_EQ(List("A"), Lines{"A 2000-01-05 2000-01-11 3 A"});
  ASSERT_TRUE(RemoveIssues(folder.Path(), {"c"}).Ok());
  EXPECT_EQ(Prices("A"), "1,2000-01-05,1\n2,2000-01-07,2\n3,2000-01-11,3\n");
  EXPECT_TRUE(CheckService(folder.Path()).faults.empty());
}

TEST_F(PriceImport, MergesAKnownIssueAndReplacesItWhenAsked) {
  Import("A.csv", "Date,Close\n2000-01-03,1\n2000-01-05,3\n", Named("Old"));
  const std::string text = "Date,Close\n2000-01-03,1\n2000-01-04,2\n2000-01-05,4\n";
  EXPECT_EQ(Take("A.csv", text, DryRun()), "A 1 1");
  EXPECT_EQ(List(), Lines{"A 2000-01-03 2000-01-05 2 Old"});
  EXPECT_EQ(Take("A.csv", text), "A 1 1");
  EXPECT_EQ(Prices("A"), "1,2000-01-03,1\n2,2000-01-04,2\n3,2000-01-05,4\n");
  EXPECT_EQ(Take("A.csv", text), "A 0 0");
  EXPECT_EQ(Take("A.csv", "Date,Close\n2000-01-04,8\n", Replacing()), "A 1 0");
  EXPECT_EQ(Prices("A"), "1,2000-01-04,8\n");
  EXPECT_EQ(List(), Lines{"A 2000-01-04 2000-01-04 1 Old"});
}

// What is told is without the name of the file, "A", and its ending.
TEST(PriceImports, NamesEveryBadLineAndStoresNothing) {
  const std::string no_price = ": has no price column (Close, NAV or Price) in its header";
  const std::string no_date = ": is not a price file: its first line names no column \"Date\"";
  const std::string symbol = " is no symbol (1 to 5 letters, digits, $ ^ . -)";
  const std::string form = " is not a date (YYYY-MM-DD or M/D/YYYY)";
  const std::pair<std::string, std::string> cases[] = {
      {"", ": is empty, not a price file"},
      {"\r\n \n", ": is empty, not a price file"},
      {std::string("PK\3\4\0\0", 6), ": is a binary file, not a price file"},
      {"<TICKER>,<DATE>,<CLOSE>\nA,20000103,1\n", no_date},
      {"\xFF\xFE", ": is UTF-16 text, not a price file; save it as UTF-8 first"},
      {"\n<!DOCTYPE html>", ": is a web page, not a price file"},
      {"2000-01-03,5\n", no_date},
      {"Date,Open,High,Low,Volume\n", no_price},
      {"Date,Adj Close\n", ": has no price column but \"Adj Close\"; --adjusted takes that"},
      {"Date,Close\n", ": holds no prices"},
      {"Date,X,x\n2000-01-03,1,1", ": symbol X stands twice in its header"},
      {"Date,TOOBIG\n", no_price + ", and column \"TOOBIG\" of its header" + symbol},
      {"Date,Close,Volume\n2000-02-30,1,1\n2000-01-04,0,1\n1/5/2000,1,5,1\n2000-01-05,2\n"
       "12/31/99,1,1\n,2,3\n2000-01-06,1e39,1\n2000-01-07,7,1\n01/07/2000,8,1\n",
       ":2: \"2000-02-30\"" + form +
           "|:3: \"0\" is not a price above 0|"
           ":4: more fields than the header names|:5: too few fields (2 of 3)|"
           ":6: \"12/31/99\"" +
           form +
           "|:7: the date is missing|"
           ":8: \"1e39\" is beyond what a price can be|"
           ":10: A has another price on 2000-01-07 in line 9"},
      {"Date,Close\n2000-01-03,\"1\n2000-01-04,\"12\"3\n2000-01-05,\"4\" \n2000-01-06,1,234.50\n",
       ":2: \"\"1\" is not a price above 0|:3: \"\"12\"3\" is not a price above 0|"
       ":5: more fields than the header names"},
      {"Symbol,Date,Close\nA,2000-01-03,1\nB,2000-01-03,2\nA,2000-01-03,3\nB#,2000-01-04,1\n"
       "B,2000-01-04,\n",
       ":4: A has another price on 2000-01-03 in line 2|:5: \"B#\"" + symbol +
           "|:6: the price is missing"},
      {"Date,A,B\n2000-01-03,1,2\n2000-01-04,-1,x\n2000-01-05,1\n2000-01-03,1,3\n"
       "2000-01-06,1,2,3\n2000-01-07,\"1,5\",2\n",
       ":3: A: \"-1\" is not a price above 0|:4: too few fields (2 of 3)|"
       ":5: B has another price on 2000-01-03 in line 2|:6: more fields than the header names|"
       ":7: A: \"1,5\" has a comma or blank; a price is digits and a decimal point"},
      {"Date;Close\n12/29/1899;1\n1899-02-29;1\n2000-01-03;3,257.85\n2000-01-04;$12.5\n"
       "2000-01-05;12,34\n2000-01-06;null\n2000-01-07;5%\n2000-01-10;0.0,0\n",
       ":2: \"12/29/1899\" lies before 1900, where dates begin|:3: \"1899-02-29\"" + form +
           "|:4: \"3,257.85\" groups its digits; a price is written 3257.85|"
           ":5: \"$12.5\" has a currency sign; a price is digits and a point|"
           ":6: \"12,34\" has a comma or blank; a price is digits and a decimal point|"
           ":7: \"null\" is no price; leave out what has none|"
           ":8: \"5%\" has a percent sign; a price is digits and a point|"
           ":9: \"0.0,0\" is not a price above 0"},
  };
  for (const auto& [text, told] : cases) {
    SCOPED_TRACE(text);
    LineWorld world;
    std::string shown = world.Take("A.csv", text);
    for (std::size_t at = 0; (at = shown.find("A.csv:")) != std::string::npos;) shown.erase(at, 5);
    EXPECT_EQ(shown, told);
    EXPECT_TRUE(world.List().empty());
  }
  LineWorld world;
  EXPECT_EQ(world.Take("prices.csv", "Date,Close\n2000-01-03,1\n"),
            "prices.csv: \"prices\"" + symbol + "; name one with --symbol");
}

TEST_F(PriceImport, ShowsTwentyBadLinesOfAllFilesAndCountsTheOthers) {
  std::string text = "Date,Close\n";
  for (int i = 0; i < 15; ++i) text += "x,1\n";
  const std::string good = "Date,Close\n2000-01-03,1\n";
  const std::string told = TakeFiles(
      {files.Write("A.csv", text), files.Write("G.csv", good), files.Write("B.csv", text)});
  EXPECT_EQ(std::count(told.begin(), told.end(), '|'), 20);
  EXPECT_TRUE(
      told.ends_with("|B.csv:6: \"x\" is not a date (YYYY-MM-DD or M/D/YYYY)|"
                     "and 10 more bad lines"));
  EXPECT_TRUE(List().empty());
}

TEST_F(PriceImport, ComparesTheFilesOfOneCallWithEachOther) {
  const std::string first = files.Write("A.csv", "Date,Close\n2000-01-03,1\n2000-01-04,2\n");
  const std::string second = files.Write("w.csv", "Date,A,B\n2000-01-04,2,5\n2000-01-03,9,6\n");
  EXPECT_EQ(TakeFiles({first, second}), "w.csv:3: A has another price on 2000-01-03 in A.csv:2");
}

// `count` days from 1 January 1900 on.
std::string DailyPrices(int count) {
  std::string text = "Date,Close\n";
  for (int i = 0; i < count; ++i) {
    AppendDateText(text, 2 + i, DatePattern::kIso);
    text += ",1\n";
  }
  return text;
}

TEST_F(PriceImport, RefusesACalendarOfMoreThan32767Days) {
  EXPECT_TRUE(Import("A.csv", DailyPrices(32'767)).faults.empty());
  EXPECT_EQ(Import("B.csv", "Date,Close\n2020-01-03,1\n").faults,
            Lines{"the market calendar would have 32768 days; it holds at most 32767"});
  EXPECT_EQ(List(), Lines{"A 1900-01-01 1989-09-17 32767 A"});
}

// Lines that do not fit one block of the reader, with a broken one near the end.
TEST_F(PriceImport, CountsLinesAcrossTheBlocksOfALargeFile) {
  std::string text = "Date,Close,Remark\r\n";
  for (int i = 0; i < 30'000; ++i) {
    AppendDateText(text, 2 + i, DatePattern::kIso);
    text.append(",1.25,").append(static_cast<std::size_t>(40 + i % 50), 'r').append("\r\n");
  }
  EXPECT_EQ(Take("A.csv", text, DryRun()), "A 30000 0");
  EXPECT_EQ(Take("A.csv", text + "x,1,1\r\n"),
            "A.csv:30002: \"x\" is not a date (YYYY-MM-DD or M/D/YYYY)");
}

std::string WidePrices(int issues, int days, int price) {
  std::string text = "Date";
  for (int i = 0; i < issues; ++i) text.append(",F").append(std::to_string(i));
  for (int day = 0; day < days; ++day) {
    text += "\n";
    AppendDateText(text, 30'000 + day, DatePattern::kIso);
    for (int i = 0; i < issues; ++i) text.append(",").append(std::to_string(price + i));
  }
  return text + "\n";
}

// How long an import of these prices takes on this machine.
std::chrono::nanoseconds TimeOfImport(const std::string& prices) {
  QuotelineWorld world;
  const std::string path = world.files.Write("w.csv", prices);
  const auto begun = std::chrono::steady_clock::now();
  world.ImportFiles({path});
  return std::chrono::steady_clock::now() - begun;
}

TEST(PriceImports, KilledAtAnyMomentItLeavesTheOldDataWhole) {
  const std::string prices = WidePrices(40, 3000, 500);
  const std::chrono::nanoseconds whole = TimeOfImport(prices);
  QuotelineWorld world;
  ASSERT_TRUE(world.Import("w.csv", WidePrices(40, 1500, 100)).faults.empty());
  const Lines before = world.List();
  const std::string path = world.files.Write("w.csv", prices);
  constexpr int kMoments = 8;  // on a busy machine some but the first come after the import's end
  bool killed_early = false;
  for (int moment = 0; moment < kMoments; ++moment) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::raise(SIGSTOP);
      const ImportReport report = world.ImportFiles({path});
      ::_exit(report.faults.empty() ? 0 : 1);
    }
    ::waitpid(child, nullptr, WUNTRACED);
    if (moment > 0) ::kill(child, SIGCONT);
    std::this_thread::sleep_for(whole * moment / kMoments);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const Lines now = world.List();
    EXPECT_TRUE(now == before || now[0] == "F0 1982-02-18 1990-05-06 3000 F0") << now[0];
    killed_early = killed_early || now == before;
    EXPECT_EQ(CheckService(world.folder.Path()).faults, Lines{});
    if (now != before) break;
  }
  EXPECT_TRUE(killed_early);
  EXPECT_TRUE(world.ImportFiles({path}).faults.empty());
  EXPECT_EQ(world.List()[39], "F9 1982-02-18 1990-05-06 3000 F9");
}

TEST_F(PriceImport, ReadersGoOnWhileItRuns) {
  ASSERT_TRUE(Import("w.csv", WidePrices(40, 500, 100)).faults.empty());
  ASSERT_EQ(QLopen(), 0);
  const std::string path = files.Write("w.csv", WidePrices(40, 3000, 500));
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const ImportReport report = ImportFiles({path});
    ::_exit(report.faults.empty() ? 0 : 1);
  }
  int status = 0;
  do {
    const std::int32_t days = QLgetMaxDays();
    const float price = days == 500 ? 139.0F : 539.0F;
    ASSERT_TRUE(days == 500 || days == 3000) << days;
    EXPECT_EQ(FetchPrices("F39"), std::vector<float>(static_cast<std::size_t>(days), price));
  } while (::waitpid(child, &status, WNOHANG) == 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(QLgetMaxDays(), 3000);
}

TEST(PriceText, TakesNumbersAboveZeroAlone) {
  EXPECT_EQ(PriceFromText(" 12.50 "), 12.5F);
  EXPECT_EQ(PriceFromText("+.5"), 0.5F);
  EXPECT_EQ(PriceFromText("7."), 7.0F);
  EXPECT_EQ(PriceFromText("1.5E3"), 1500.0F);
  for (const char* text :
       {"", ".", "0", "0.000", "-1", "1,5", "1.2.3", "$5", "5 %", "nan", "inf", "1e39", "1e-60"}) {
    EXPECT_FALSE(PriceFromText(text)) << text;
  }
}

// 16777217 lies half-way between the floats 16777216 and 16777218; strtof of the C library rounds
// every decimal text once.
TEST(PriceText, RoundsTheDecimalTextOnce) {
  EXPECT_EQ(PriceFromText("16777217"), 16777216.0F);
  EXPECT_EQ(PriceFromText("16777217.000001"), 16777218.0F);
  EXPECT_EQ(PriceFromText("0.1"), 0.1F);
  std::uint64_t state = 12345;
  for (int i = 0; i < 20'000; ++i) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    const auto digits = (state >> 20U) % (i % 2 == 0 ? 100'000'000U : 1'000'000'000'000'000U);
    std::string text = std::to_string(digits + 1);
    text.insert(text.size() - std::min<std::size_t>(text.size(), (state >> 8U) % 12), 1, '.');
    EXPECT_EQ(PriceFromText(text), std::strtof(text.c_str(), nullptr)) << text;
  }
}

// Numbers that end at the first comma, in at least eight bytes.
TEST(PriceText, ReadsTheCommonFormQuicklyAndLeavesOthersAlone) {
  for (const std::string text : {"1", "12.34", "1234567", "123.456", ".5", "0.00"}) {
    const QuickPrice read = ReadQuickPrice((text + ",1234567").c_str(), ',');
    EXPECT_EQ(read.length, text.size()) << text;
    EXPECT_EQ(read.price, std::strtof(text.c_str(), nullptr)) << text;
  }
  EXPECT_EQ(ReadQuickPrice("5.\r\n1234", ',').price, 5.0F);
  EXPECT_EQ(ReadQuickPrice(".5\n12345", ',').length, 2U);
  for (const char* other : {",1234567",
                            "12345678,",
                            "1;234567",
                            "-1.5,234",
                            "1.2.3,45",
                            "1e5,2345",
                            "\"1.5\",23",
                            "1\xB2,23456",
                            ".,123456"}) {
    EXPECT_EQ(ReadQuickPrice(other, ',').length, 0U) << other;
  }
  for (int cents = 1001; cents < 1'000'000; cents += 7) {
    std::string text = std::to_string(cents);
    text.insert(text.size() - 2, 1, '.');
    const auto slow = PriceFromText(text);
    ASSERT_EQ(ReadQuickPrice((text + ",       ").c_str(), ',').price, slow.value_or(-1.0F)) << text;
  }
}

}  // namespace
}  // namespace vistaplot::test
