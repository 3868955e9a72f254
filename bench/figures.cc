// figures DIR: measures what users wait for, on 255 issues of 12,000 market days. The prices are in
// DIR/wide.csv, the results of a test in DIR/R.SUM; they are made when they are not there.

#include "figures.h"

#include <QApplication>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "base/heap.h"
#include "price_walk.h"
#include "result_file.h"
#include "ui/frame/application.h"

namespace {

int Run(const std::string& dir) {
  namespace bench = vistaplot::bench;
  const std::string wide_csv = dir + "/wide.csv";
  if (!std::filesystem::exists(wide_csv)) {
    std::fprintf(stderr, "making %s\n", wide_csv.c_str());
    std::filesystem::create_directories(dir);
    if (!bench::WriteWideCsv(wide_csv, bench::kIssues, bench::kDays, bench::kSeed)) {
      std::fprintf(stderr, "figures: cannot write %s\n", wide_csv.c_str());
      return 1;
    }
  }
  const std::string summary_file = dir + "/R.SUM";
  if (!std::filesystem::exists(summary_file) &&
      !bench::WriteSummaryFile(summary_file, bench::kSummaryRecords, bench::kSeed)) {
    std::fprintf(stderr, "figures: cannot write %s\n", summary_file.c_str());
    return 1;
  }
  bench::MeasureLoading(wide_csv);
  bench::MeasureResults(summary_file);
  bench::MeasureCalculations(wide_csv);
  bench::MeasureAnalytics();
  {
    vistaplot::OffscreenApplication application;
    application.Ensure();
    bench::MeasureCharts();
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  int argc = 1;
  std::string name = "figures";
  char* argv[] = {name.data(), nullptr};
  const QApplication application(argc, argv);
  // The platform without a display complains of each window.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  bench::MeasureWindows(summary_file);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  vistaplot::PrepareHeap();  // as the program does
  if (argc != 2) {
    std::fprintf(stderr, "usage: figures DIR\n");
    return 2;
  }
  try {
    return Run(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "figures: %s\n", error.what());
    return 1;
  }
}
