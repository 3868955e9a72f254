// The one function through which the user's actions enter the program, so that nothing thrown below
// ever crosses the toolkit's event delivery.
#pragma once

#include <exception>
#include <optional>
#include <string>

#include "base/dialogs.h"

namespace vistaplot {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFatal = 3;

/// Thrown to leave every running handler because the program ends.
struct ProgramEnded {
  int status = kExitDone;  ///< the process's exit status
};

class EventGuard {
 public:
  EventGuard() = default;
  EventGuard(const EventGuard&) = delete;
  EventGuard& operator=(const EventGuard&) = delete;

  /// Where unexpected errors are told; null: on standard error.
  void ReportTo(Dialogs* dialogs) { dialogs_ = dialogs; }

  /// Does what an event asks for, unless the program has ended. ProgramEnded stops the
  /// application's event loops; any other exception is reported and forgotten.
  template <class Action>
  void Run(Action&& action) noexcept {
    if (status_) return;
    try {
      action();
    } catch (const ProgramEnded& ended) {
      End(ended.status);
    } catch (const std::exception& error) {
      Report(error.what());
    } catch (...) {
      Report("unknown failure");
    }
  }

  /// The exit status, once the program has ended.
  const std::optional<int>& Status() const { return status_; }

  /// For whoever ran an event loop inside a handler: goes on unwinding when the program ended in
  /// that loop.
  void ThrowIfEnded() const {
    if (status_) throw ProgramEnded{*status_};
  }

 private:
  void End(int status) noexcept;
  void Report(const std::string& what) noexcept;

  Dialogs* dialogs_ = nullptr;
  std::optional<int> status_;
};

}  // namespace vistaplot
