// The calculations screen over the small market of ScreenWorld, its family loaded.
#pragma once

#include <string>
#include <vector>

#include "base/files.h"
#include "support/screen_world.h"

namespace vistaplot::test {

inline constexpr const char* kNoFile =
    "No file selected, press OK to continue. Press cancel to select a file";

struct CalcWorld : ScreenWorld {
  FrmCalc& calc = screens.frmCalc;

  CalcWorld() {
    LoadTrio();
    frmMain.cmdShowCalc_Click();
    state.roots.QuotelineDir = folder.Path();
  }

  std::string Path(const std::string& name) const { return JoinPath(folder.Path(), name); }
  std::string File(const std::string& name) const {
    const auto bytes = ReadWholeFile(Path(name));
    return bytes ? bytes.Value() : NumberedText(bytes.Error());
  }
  /// The first lines of a file, with "|" between them.
  std::string Head(const std::string& name, int lines) const {
    const std::string bytes = File(name);
    std::string head;
    std::size_t at = 0;
    for (int line = 0; line < lines && at < bytes.size(); ++line) {
      const std::size_t end = bytes.find("\r\n", at);
      if (line > 0) head += '|';
      head.append(bytes, at, end - at);
      at = end == std::string::npos ? bytes.size() : end + 2;
    }
    return head;
  }
};

}  // namespace vistaplot::test
