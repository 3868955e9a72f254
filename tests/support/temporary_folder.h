// A folder of its own for a test, gone with the object, and a process of its own for what a test
// breaks on purpose.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace vistaplot::test {

class TemporaryFolder {
 public:
  explicit TemporaryFolder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string pattern = (parent / "vistaplot-XXXXXX").string();
    const char* made = mkdtemp(pattern.data());
    path_ = made != nullptr ? made : "";
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& Path() const { return path_; }
  std::string Path(std::string_view name) const { return path_ + "/" + std::string(name); }

  /// Writes a file, with the folders above it; gives its path.
  std::string Write(std::string_view name, std::string_view content) const {
    std::string path = Path(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary)
        .write(content.data(), static_cast<std::streamsize>(content.size()));
    return path;
  }

  std::string MakeFolder(std::string_view name) const {
    std::string path = Path(name);
    std::filesystem::create_directories(path);
    return path;
  }

  /// A node like /dev/null that a broken writer may replace without harm: one of this folder, or
  /// the system's own where this user could not replace it. Empty when there is neither.
  std::string NullDevice() const {
    constexpr unsigned kMajor = 1;
    constexpr unsigned kMinor = 3;
    const std::string path = Path("null");
    if (mknod(path.c_str(), S_IFCHR | 0666, makedev(kMajor, kMinor)) == 0) return path;
    return access("/dev", W_OK) == 0 ? "" : "/dev/null";
  }

  /// All bytes of a file; empty when there is none.
  std::string Read(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

 private:
  std::string path_;
};

/// Runs `work` in a child in which no file can grow beyond `bytes`, as on a full disk; `work` says
/// whether all went as expected.
template <class Work>
void InChildWithFileLimit(rlim_t bytes, Work work) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = bytes};
    ::_exit(::setrlimit(RLIMIT_FSIZE, &limit) == 0 && work() ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

}  // namespace vistaplot::test
