#include "quoteline/price_import.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "quoteline/check.h"
#include "quoteline/price_text.h"
#include "support/quoteline_world.h"

namespace vistaplot::test {
namespace {

using Lines = std::vector<std::string>;

// "SYMBOL new changed" of each issue of a report, or its faults without the folder.
Lines Told(const ImportReport& report, const QuotelineWorld& world) {
  Lines lines;
  for (const IssueChange& change : report.changes) {
    lines.push_back(change.symbol + " " + std::to_string(change.new_days) + " " +
                    std::to_string(change.changed_days));
  }
  for (std::string fault : report.faults) {
    const std::string folder = world.files.Path() + "/";
    for (std::size_t at = 0; (at = fault.find(folder)) != std::string::npos;) {
      fault.erase(at, folder.size());
    }
    lines.push_back(fault);
  }
  return lines;
}

struct PriceImport : testing::Test, QuotelineWorld {};

TEST(PriceImports, TellsTheFormsApartByTheirHeader) {
  struct FormCase {
    const char* file;
    std::string text;
    const char *list, *prices;  // of the only issue
  };
  const FormCase cases[] = {
      {"ab.us.csv",
       "Date,Open,Close\n2000-01-04,1,2.5\n2000-01-03,1,2\n",
       "AB 2000-01-03 2000-01-04 2 AB",
       "1,2000-01-03,2\n2,2000-01-04,2.5\n"},
      {"$x.csv",
       "\xEF\xBB\xBF\"date\";\"NAV\"\r\n\"1/3/2000\";\" 7.25 \"\r\n12/31/1999;+6\r\n",
       "$X 1999-12-31 2000-01-03 2 $X",
       "1,1999-12-31,6\n2,2000-01-03,7.25\n"},
      {"any.csv",
       "Symbol\tDate\tPrice\tName\nsbi\t2000-01-03\t95.88\t\"Bonds, \"\"all\"\"\"\n"
       "SBI\t2000-01-04\t1e2\t\n",
       "SBI 2000-01-03 2000-01-04 2 Bonds, \"all\"",
       "1,2000-01-03,95.88\n2,2000-01-04,100\n"},
      {"any.csv",
       "DATE,brk.b\r2000-01-03,.5\r2000-01-04,\r2000-01-05,16777217",
       "BRK.B 2000-01-03 2000-01-05 2 BRK.B",
       "1,2000-01-03,0.5\n2,2000-01-05,16777220\n"},
      {"AB.csv",
       "Date,Close,,\n2000-01-03,4,,\n\n2000-01-03,4,,\n",
       "AB 2000-01-03 2000-01-03 1 AB",
       "1,2000-01-03,4\n"},
      {"AB.csv",  // a spreadsheet's preamble; more commas than semicolons in the header
       "sep=;\r\n\r\nDate;Close;\"a,b,c\"\r\n2000-01-03;4;\r\n",
       "AB 2000-01-03 2000-01-03 1 AB",
       "1,2000-01-03,4\n"},
  };
  for (const FormCase& form : cases) {
    SCOPED_TRACE(form.text);
    QuotelineWorld world;
    EXPECT_EQ(Told(world.Import(form.file, form.text), world).size(), 1U);
    const Lines list = world.List();
    ASSERT_EQ(list, Lines{form.list});
    EXPECT_EQ(world.Prices(list[0].substr(0, list[0].find(' '))), form.prices);
  }
}

TEST_F(PriceImport, TakesTheAdjustedPriceWhenAsked) {
  const std::string text = "Date,Close,Adj Close,Volume\n2000-01-03,102.88,42.94,5\n";
  EXPECT_EQ(Told(Import("TXN.csv", text, Adjusted()), *this), Lines{"TXN 1 0"});
  EXPECT_EQ(Prices("TXN"), "1,2000-01-03,42.94\n");
}

// What a header makes of a line "2000-01-03,1,2,3": the issues, or the refusal; then what the one
// issue left out.
struct HeaderCase {
  const char* header;
  Lines told;
  Lines left_out;
};

TEST(PriceImports, APriceColumnInAnyCaseMakesAFileOfOneIssue) {
  const std::string none = "F.csv: has no price column (Close, NAV or Price) in its header";
  const HeaderCase cases[] = {
      {"Date,NAV,POP,CHG", {"F 1 0"}, {"POP", "CHG"}},
      {"DATE,PRICE,YIELD,CLOSE", {"F 1 0"}, {"PRICE", "YIELD"}},
      {"Date,HD,LOW,NAV", {"F 1 0"}, {"HD", "LOW"}},
      {"Date,HD,LOW,WMT", {"HD 1 0", "LOW 1 0", "WMT 1 0"}, {}},
      {"Date,High,Low,Yield", {none + "; if its columns are symbols, say so with --wide"}, {}},
      {"Date,High,Low,Volume", {none}, {}},
      {"Date,High,Low,Open Int",
       {none + ", and column \"Open Int\" of its header is no symbol (1 to 5 letters, digits, "
               "$ ^ . -)"},
       {}},
  };
  for (const HeaderCase& one : cases) {
    SCOPED_TRACE(one.header);
    QuotelineWorld world;
    const ImportReport report =
        world.Import("F.csv", std::string(one.header) + "\n2000-01-03,1,2,3\n");
    EXPECT_EQ(Told(report, world), one.told);
    EXPECT_EQ(report.left_out.contains("F") ? report.left_out.at("F") : Lines{}, one.left_out);
  }
}

TEST(PriceImports, WhatAFileIsCanBeSaidOutright) {
  const std::string text = "Date,AAA,NAV\n2000-01-03,1,2\n";
  ImportRequest wide;
  wide.options.wide = true;
  QuotelineWorld world;
  EXPECT_EQ(Told(world.Import("w.csv", text, wide), world), (Lines{"AAA 1 0", "NAV 1 0"}));
  ImportRequest one;
  one.options.symbol = "S";
  EXPECT_EQ(Told(world.Import("w.csv", text, one), world), Lines{"S 1 0"});
  EXPECT_EQ(world.Prices("S"), "1,2000-01-03,2\n");
  EXPECT_EQ(Told(world.Import("w.csv", "Date,AAA,BBB\n2000-01-03,1,2\n", one), world),
            Lines{"w.csv: has no price column (Close, NAV or Price) in its header"});
  const std::string two = "Symbol,Date,NAV\nA,2000-01-04,1\na,2000-01-05,2\nB,2000-01-06,3\n";
  EXPECT_EQ(Told(world.Import("l.csv", two, one), world),
            Lines{"l.csv:4: a second issue, \"B\", in a file that --symbol says holds one"});
}

TEST_F(PriceImport, WhatSpreadsheetsAndOldProgramsLeaveBehindIsNoFault) {
  const ImportReport rows = Import("A.csv", ";;\nDate;Close;X\n2000-01-03;1;2\n;;\n ; ;\n\x1A\x1A");
  EXPECT_EQ(Told(rows, *this), Lines{"A 1 0"});
  const ImportReport wide = Import("w.csv", "Date,B,C\n,,\n2000-01-03,1,2\x1A");
  EXPECT_EQ(Told(wide, *this), (Lines{"B 1 0", "C 1 0"}));
}

TEST_F(PriceImport, NamesHaveOneLimitInBothEncodings) {
  const std::string longest = "Z\xFC" + std::string(78, 'x');  // 80 characters
  const auto import = [this](const std::string& symbol, const std::string& name) {
    return Told(Import("l.csv", "Symbol,Date,NAV,Name\n" + symbol + ",2000-01-03,1," + name + "\n"),
                *this);
  };
  EXPECT_EQ(import("A", longest), Lines{"A 1 0"});
  EXPECT_EQ(import("A", longest + "y"),
            Lines{"l.csv:2: the name has 81 characters; 80 are the most"});
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
  EXPECT_EQ(Told(ImportFiles({"/dev/zero", "/dev/null", large}), *this),
            (Lines{"/dev/zero: is a device, not a price file",
                   "/dev/null: is a device, not a price file",
                   "large.csv: is larger than 2 GiB; a price file of that size is to be split"}));
  EXPECT_EQ(Told(ImportFiles({line}), *this),
            Lines{"line.csv: is not a price file: a line of it is longer than 16 MiB"});
}

TEST_F(PriceImport, RenumbersEveryIssueWhenDatesComeBetweenAndBefore) {
  Import("w.csv", "Date,A,B\n2000-01-05,1,\n2000-01-07,2,5\n2000-01-11,3,6\n");
  const ImportReport report =
      Import("C.csv", "Date,Close\n2000-01-03,9\n2000-01-06,8\n2000-01-07,7\n");
  EXPECT_EQ(Told(report, *this), Lines{"C 3 0"});
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
  EXPECT_EQ(Told(Import("A.csv", text, DryRun()), *this), Lines{"A 1 1"});
  EXPECT_EQ(List(), Lines{"A 2000-01-03 2000-01-05 2 Old"});
  EXPECT_EQ(Told(Import("A.csv", text), *this), Lines{"A 1 1"});
  EXPECT_EQ(Prices("A"), "1,2000-01-03,1\n2,2000-01-04,2\n3,2000-01-05,4\n");
  EXPECT_EQ(Told(Import("A.csv", text), *this), Lines{"A 0 0"});
  const ImportReport replaced = Import("A.csv", "Date,Close\n2000-01-04,8\n", Replacing());
  EXPECT_EQ(Told(replaced, *this), Lines{"A 1 0"});
  EXPECT_EQ(Prices("A"), "1,2000-01-04,8\n");
  EXPECT_EQ(List(), Lines{"A 2000-01-04 2000-01-04 1 Old"});
}

struct Refused {
  const char* file;
  std::string text;
  Lines told;
};

TEST(PriceImports, NamesEveryBadLineAndStoresNothing) {
  const Refused cases[] = {
      {"A.csv", "", {"A.csv: is empty, not a price file"}},
      {"A.csv", "\r\n \n", {"A.csv: is empty, not a price file"}},
      {"A.csv", std::string("PK\3\4\0\0", 6), {"A.csv: is a binary file, not a price file"}},
      {"A.csv",
       "<TICKER>,<DATE>,<CLOSE>\nA,20000103,1\n",
       {"A.csv: is not a price file: its first line names no column \"Date\""}},
      {"A.csv", "\xFF\xFE", {"A.csv: is UTF-16 text, not a price file; save it as UTF-8 first"}},
      {"A.csv", "\n<!DOCTYPE html>", {"A.csv: is a web page, not a price file"}},
      {"A.csv",
       "2000-01-03,5\n",
       {"A.csv: is not a price file: its first line names no column \"Date\""}},
      {"A.csv",
       "Date,Open,High,Low,Volume\n",
       {"A.csv: has no price column (Close, NAV or Price) in its header"}},
      {"A.csv",
       "Date,Adj Close\n",
       {"A.csv: has no price column but \"Adj Close\"; --adjusted takes that"}},
      {"A.csv", "Date,Close\n", {"A.csv: holds no prices"}},
      {"A.csv", "Date,X,x\n2000-01-03,1,1", {"A.csv: symbol X stands twice in its header"}},
      {"A.csv",
       "Date,TOOBIG\n",
       {"A.csv: has no price column (Close, NAV or Price) in its header, and column \"TOOBIG\" of "
        "its "
        "header is no symbol (1 to 5 letters, digits, $ ^ . -)"}},
      {"prices.csv",
       "Date,Close\n2000-01-03,1\n",
       {"prices.csv: \"prices\" is no symbol (1 to 5 letters, digits, $ ^ . -); name one with "
        "--symbol"}},
      {"A.csv",
       "Date,Close,Volume\n2000-02-30,1,1\n2000-01-04,0,1\n1/5/2000,1,5,1\n2000-01-05,2\n"
       "12/31/99,1,1\n,2,3\n2000-01-06,1e39,1\n2000-01-07,7,1\n01/07/2000,8,1\n",
       {"A.csv:2: \"2000-02-30\" is not a date (YYYY-MM-DD or M/D/YYYY)",
        "A.csv:3: \"0\" is not a price above 0",
        "A.csv:4: more fields than the header names",
        "A.csv:5: too few fields (2 of 3)",
        "A.csv:6: \"12/31/99\" is not a date (YYYY-MM-DD or M/D/YYYY)",
        "A.csv:7: the date is missing",
        "A.csv:8: \"1e39\" is beyond what a price can be",
        "A.csv:10: A has another price on 2000-01-07 in line 9"}},
      {"A.csv",
       "Date,Close\n2000-01-03,\"1\n2000-01-04,\"12\"3\n2000-01-05,\"4\" \n2000-01-06,1,234.50\n",
       {"A.csv:2: \"\"1\" is not a price above 0",
        "A.csv:3: \"\"12\"3\" is not a price above 0",
        "A.csv:5: more fields than the header names"}},
      {"l.csv",
       "Symbol,Date,Close\nA,2000-01-03,1\nB,2000-01-03,2\nA,2000-01-03,3\nB#,2000-01-04,1\n"
       "B,2000-01-04,\n",
       {"l.csv:4: A has another price on 2000-01-03 in line 2",
        "l.csv:5: \"B#\" is no symbol (1 to 5 letters, digits, $ ^ . -)",
        "l.csv:6: the price is missing"}},
      {"w.csv",
       "Date,A,B\n2000-01-03,1,2\n2000-01-04,-1,x\n2000-01-05,1\n2000-01-03,1,3\n"
       "2000-01-06,1,2,3\n2000-01-07,\"1,5\",2\n",
       {"w.csv:3: A: \"-1\" is not a price above 0",
        "w.csv:4: too few fields (2 of 3)",
        "w.csv:5: B has another price on 2000-01-03 in line 2",
        "w.csv:6: more fields than the header names",
        "w.csv:7: A: \"1,5\" has a comma or blank; a price is digits and a decimal point"}},
      {"A.csv",
       "Date;Close\n12/29/1899;1\n1899-02-29;1\n2000-01-03;3,257.85\n2000-01-04;$12.5\n"
       "2000-01-05;12,34\n2000-01-06;null\n2000-01-07;5%\n2000-01-10;0.0,0\n",
       {"A.csv:2: \"12/29/1899\" lies before 1900, where dates begin",
        "A.csv:3: \"1899-02-29\" is not a date (YYYY-MM-DD or M/D/YYYY)",
        "A.csv:4: \"3,257.85\" groups its digits; a price is written 3257.85",
        "A.csv:5: \"$12.5\" has a currency sign; a price is digits and a point",
        "A.csv:6: \"12,34\" has a comma or blank; a price is digits and a decimal point",
        "A.csv:7: \"null\" is no price; leave out what has none",
        "A.csv:8: \"5%\" has a percent sign; a price is digits and a point",
        "A.csv:9: \"0.0,0\" is not a price above 0"}},
  };
  for (const Refused& refused : cases) {
    SCOPED_TRACE(refused.text);
    QuotelineWorld world;
    const ImportReport report = world.Import(refused.file, refused.text);
    EXPECT_EQ(Told(report, world), refused.told);
    EXPECT_TRUE(world.List().empty());
  }
}

TEST_F(PriceImport, ShowsTwentyBadLinesOfAllFilesAndCountsTheOthers) {
  std::string text = "Date,Close\n";
  for (int i = 0; i < 15; ++i) text += "x,1\n";
  const std::string good = "Date,Close\n2000-01-03,1\n";
  const ImportReport report = ImportFiles(
      {files.Write("A.csv", text), files.Write("G.csv", good), files.Write("B.csv", text)});
  const Lines told = Told(report, *this);
  ASSERT_EQ(told.size(), 21U);
  EXPECT_EQ(told[19], "B.csv:6: \"x\" is not a date (YYYY-MM-DD or M/D/YYYY)");
  EXPECT_EQ(told[20], "and 10 more bad lines");
  EXPECT_TRUE(List().empty());
}

TEST_F(PriceImport, ComparesTheFilesOfOneCallWithEachOther) {
  const std::string first = files.Write("A.csv", "Date,Close\n2000-01-03,1\n2000-01-04,2\n");
  const std::string second = files.Write("w.csv", "Date,A,B\n2000-01-04,2,5\n2000-01-03,9,6\n");
  EXPECT_EQ(Told(ImportFiles({first, second}), *this),
            Lines{"w.csv:3: A has another price on 2000-01-03 in A.csv:2"});
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
  EXPECT_EQ(Told(Import("A.csv", text, DryRun()), *this), Lines{"A 30000 0"});
  EXPECT_EQ(Told(Import("A.csv", text + "x,1,1\r\n"), *this),
            Lines{"A.csv:30002: \"x\" is not a date (YYYY-MM-DD or M/D/YYYY)"});
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

struct QuickCase {
  const char* bytes;  // at least eight
  std::size_t length;
  float price;
};

TEST(PriceText, ReadsTheCommonFormQuicklyAndLeavesOthersAlone) {
  const QuickCase cases[] = {{"1,234567", 1, 1.0F},
                             {"12.34,56", 5, 12.34F},
                             {"1234567,", 7, 1234567.0F},
                             {"123.456,", 7, 123.456F},
                             {".5\n12345", 2, 0.5F},
                             {"5.\r\n1234", 2, 5.0F},
                             {"0.00,123", 4, 0.0F},
                             {",1234567", 0, 0.0F},
                             {"12345678,", 0, 0.0F},
                             {"1;234567", 0, 0.0F},
                             {"-1.5,234", 0, 0.0F},
                             {"1.2.3,45", 0, 0.0F},
                             {"1e5,2345", 0, 0.0F},
                             {"\"1.5\",23", 0, 0.0F},
                             {"1\xB2,23456", 0, 0.0F},
                             {".,123456", 0, 0.0F}};
  for (const QuickCase& quick : cases) {
    const QuickPrice read = ReadQuickPrice(quick.bytes, ',');
    EXPECT_EQ(read.length, quick.length) << quick.bytes;
    EXPECT_EQ(read.price, quick.price) << quick.bytes;
  }
}

TEST(PriceText, BothWaysOfReadingAgreeOnEveryPriceInCents) {
  for (int cents = 1001; cents < 1'000'000; cents += 7) {
    std::string text = std::to_string(cents);
    text.insert(text.size() - 2, 1, '.');
    const auto slow = PriceFromText(text);
    text += ",       ";
    ASSERT_EQ(ReadQuickPrice(text.data(), ',').price, slow.value_or(-1.0F)) << text;
  }
}

}  // namespace
}  // namespace vistaplot::test
