#include "base/output_file.h"

#include <gtest/gtest.h>

#include "base/files.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

TEST(OutputFile, TheOldFileIsWholeUntilTheNewOneIsDone) {
  const test::TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old");
  {
    OutputFile file = std::move(OutputFile::Create(path).Value());
    file.Bytes() = std::string(std::size_t{3} << 20U, 'x');
    ASSERT_TRUE(file.Spill());
    EXPECT_EQ(file.Bytes(), "") << "much is written out";
    EXPECT_EQ(folder.Read("a.txt"), "old");
  }
  EXPECT_EQ(folder.Read("a.txt"), "old") << "given up";
  OutputFile file = std::move(OutputFile::Create(path).Value());
  file.Bytes() = "new";
  ASSERT_TRUE(file.Spill());
  ASSERT_TRUE(file.Finish());
  EXPECT_EQ(folder.Read("a.txt"), "new");
  EXPECT_EQ(ListFiles(folder.Path(), "*").Value().size(), 1U) << "nothing is left behind";
}

TEST(OutputFile, WhatCannotBeMadeIsToldByNumber) {
  const test::TemporaryFolder folder;
  EXPECT_EQ(OutputFile::Create("").Error().number, kErrorFileNotFound);
  EXPECT_EQ(OutputFile::Create(folder.Path("no/a")).Error().number, kErrorPathNotFound);
  EXPECT_EQ(OutputFile::Create(folder.Path()).Error().number, kErrorPathFileAccess);
}

}  // namespace
}  // namespace vistaplot
