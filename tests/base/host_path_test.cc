#include "base/host_path.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

namespace fs = std::filesystem;

// A service's directory, drives c and D, and a link e:.
class HostPathTest : public testing::Test {
 protected:
  HostPathTest() {
    folder_.MakeFolder("wine");
    for (const char* file : {"ql/Sig/a.sig",
                             "ql/Sig/A.sig",
                             "drives/c/Data/x.sum",
                             "drives/D/back\\slash",
                             "floppy/y.sum"}) {
      folder_.Write(file, "x");
    }
    fs::create_directory_symlink(folder_.Path("floppy"), folder_.Path("wine/e:"));
    roots_ = {.QuotelineDir = folder_.Path("ql"),
              .drives_dir = folder_.Path("drives"),
              .wine_devices_dir = folder_.Path("wine")};
  }

  test::TemporaryFolder folder_;
  PathRoots roots_;
};

TEST_F(HostPathTest, FindsOldStyleNames) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"C:\\QL", "ql"},
      {"c:/ql/", "ql"},
      {"C:\\QL\\SIG\\a.SIG  ", "ql/Sig/A.sig"},  // "A" stands ahead of "a" in name order
      {"C:\\QL\\sig\\a.sig", "ql/Sig/a.sig"},
      {"c:\\ql\\sig\\New.Sig", "ql/Sig/New.Sig"},
      {"c:\\ql\\None\\New.Sig", "ql/None/New.Sig"},
      {"c:\\qlx\\a", "drives/c/qlx/a"},
      {"C:\\DATA\\X.SUM", "drives/c/Data/x.sum"},
      {"d:\\", "drives/D"},
      {"E:\\Y.SUM", "wine/e:/y.sum"},
      {"f:\\z.sum", "drives/f/z.sum"}};
  for (const auto& [text, path] : cases) {
    EXPECT_EQ(HostPath(text, roots_), folder_.Path(path)) << text;
  }
}

TEST_F(HostPathTest, TakesWhatIsThereAsItStands) {
  const std::string odd = folder_.Path("drives/D/back\\slash");
  EXPECT_EQ(HostPath(odd + "  ", roots_), odd);
  EXPECT_EQ(HostPath(folder_.Path("QL\\SIG\\b.sig"), roots_), folder_.Path("ql/Sig/b.sig"));
  EXPECT_EQ(HostPath("   ", roots_), "");
  EXPECT_EQ(HostPath("not\\there.txt", roots_), "not/there.txt");
}

TEST_F(HostPathTest, LeavesATextOfNoDriveAlone) {
  const std::string path = HostPath("F:\\A.SUM", PathRoots());
  EXPECT_EQ(path, "F:/A.SUM");
  EXPECT_FALSE(fs::exists(path));
}

TEST(RootsFromEnvironment, PrefersTheFolderOfDrivesThatIsNamed) {
  const auto set = [](const char* name, const char* value) { ::setenv(name, value, 1); };
  set("HOME", "/home/u");
  set("VISTAPLOT_DRIVES", "");
  set("XDG_DATA_HOME", "");
  EXPECT_EQ(RootsFromEnvironment().drives_dir, "/home/u/.local/share/vistaplot/drives");
  EXPECT_EQ(RootsFromEnvironment().wine_devices_dir, "/home/u/.wine/dosdevices");
  set("XDG_DATA_HOME", "/data");
  EXPECT_EQ(RootsFromEnvironment().drives_dir, "/data/vistaplot/drives");
  set("XDG_DATA_HOME", "relative");
  EXPECT_EQ(RootsFromEnvironment().drives_dir, "/home/u/.local/share/vistaplot/drives");
  set("VISTAPLOT_DRIVES", "/drives");
  EXPECT_EQ(RootsFromEnvironment().drives_dir, "/drives");
}

}  // namespace
}  // namespace vistaplot
