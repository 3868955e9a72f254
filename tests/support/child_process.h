// Work in a process of its own, for tests that break something on purpose.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace vistaplot::test {

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
