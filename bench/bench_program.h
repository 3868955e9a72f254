// The whole program over a service of its own, driven by its handlers.
#pragma once

#include <string>

#include "app/ini_settings.h"
#include "app/program.h"
#include "forms/screens.h"
#include "marketdata/quoteline_library.h"
#include "support/recording_dialogs.h"
#include "support/screen_world.h"
#include "support/silent_host.h"

namespace vistaplot::bench {

/// Makes an empty service in `directory` and imports a price file. Throws std::runtime_error.
void MakeService(const std::string& directory, const std::string& csv);

/// Chooses the price type and selects every issue of the service.
void ChooseAllIssues(FrmTab& tab);

/// Selects the first `count` loaded issues that have a price on market day 1.
void SelectFunds(DataTable& table, int count);

class BenchProgram {
 public:
  /// Starts on the price type, with every issue of the service listed and selected.
  explicit BenchProgram(const std::string& directory);

  Screens& AllScreens() { return program_.AllScreens(); }
  QuotelineApi& Quoteline() { return quoteline_; }
  SharedState& State() { return program_.State(); }

  /// Loads what is selected. Throws std::runtime_error when there is nothing then.
  void Load();

  void SelectFunds(int count) { bench::SelectFunds(State().table, count); }

 private:
  QuotelineLibrary quoteline_;
  IniSettings settings_;
  test::RecordingDialogs dialogs_;
  test::SilentHost host_;
  test::RecordingOutput output_;
  Program program_;
};

}  // namespace vistaplot::bench
