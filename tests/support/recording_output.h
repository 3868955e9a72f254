// Output that keeps what it was given, for tests.
#pragma once

#include <string>
#include <vector>

#include "forms/shared_state.h"

namespace vistaplot::test {

class RecordingOutput : public Output {
 public:
  std::vector<std::string> calls;  ///< e.g. "save /tmp/a.png 640 448"
  Status answer = Done{};          ///< of every call

  Status SaveChart(const ChartView& /*view*/,
                   const std::string& path,
                   int width,
                   int height) override {
    return Keep("save " + path + " " + std::to_string(width) + " " + std::to_string(height));
  }
  Status PrintChart(const ChartView& /*view*/, Progress& /*progress*/) override {
    return Keep("print chart");
  }
  Status PrintSheet(const Sheet& sheet, const std::string& title, Progress& /*progress*/) override {
    return Keep("print " + sheet.SheetName + " as " + title);
  }
  Status CopyChart(const ChartView& /*view*/, int /*width*/, int /*height*/) override {
    return Keep("copy chart");
  }
  Status CopyText(const std::string& text) override { return Keep("copy " + text); }

 private:
  Status Keep(const std::string& call) {
    calls.push_back(call);
    return answer;
  }
};

}  // namespace vistaplot::test
