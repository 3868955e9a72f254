// The parameter screen's file button: result files into sheets of the data table.

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "forms/busy_scope.h"
#include "forms/frm_tab.h"
#include "forms/screens.h"
#include "import/result_files.h"

namespace vistaplot {

namespace {

/// A companion product's folder: where it is kept, where it usually lies, how it is asked for.
struct ProductDirectory {
  std::string Directories::*global;
  std::string_view key;  ///< of the setting
  std::array<std::string_view, 2> defaults;
  std::string_view prompt;
};

constexpr ProductDirectory kZephyrine = {&Directories::ZephyrineDir,
                                         "zpdir",
                                         {"c:\\zephyr", "d:\\zephyr"},
                                         "Enter Zephyrine directory (for example: c:\\zephyr)"};
constexpr ProductDirectory kVornaxil = {&Directories::VornaxilDir,
                                        "vxdir",
                                        {"c:\\vx", "d:\\vx"},
                                        "Enter Vornaxil directory (for example: c:\\vx)"};
constexpr ProductDirectory kKestrelix = {&Directories::KestrelixDir,
                                         "kestrldir",
                                         {"c:\\kestrl", "d:\\kestrl"},
                                         "Enter Kestrelix directory (for example: c:\\kestrl)"};

/// The file dialog of a data type.
struct FileKind {
  DataType type;
  std::string_view title;
  std::string_view filter;
  std::string_view file_name;
  const ProductDirectory* product;  ///< null: the program's own folder
};

constexpr std::array<FileKind, 5> kFileKinds = {{{DataType::kZephyrine,
                                                  "Select Zephyrine Summary File",
                                                  "Summary (*.SUM)|*.SUM|All (*.*)|*.*",
                                                  "*.SUM",
                                                  &kZephyrine},
                                                 {DataType::kVornaxil,
                                                  "Select Vornaxil File",
                                                  "Vornaxil (*.VX1)|*.VX1|All (*.*)|*.*",
                                                  "*.VX1",
                                                  &kVornaxil},
                                                 {DataType::kKestrelix,
                                                  "Select Kestrelix File",
                                                  "Kestrelix (*.TXT)|*.TXT|All (*.*)|*.*",
                                                  "*.TXT",
                                                  &kKestrelix},
                                                 {DataType::kSummary,
                                                  "Select Vistaplot Summary File",
                                                  "VP Summary (*.SSM)|*.SSM|All (*.*)|*.*",
                                                  "*.SSM",
                                                  nullptr},
                                                 {DataType::kDetail,
                                                  "Select Vistaplot Detail File",
                                                  "VP Detail (*.SDT)|*.SDT|All (*.*)|*.*",
                                                  "*.SDT",
                                                  nullptr}}};

constexpr std::int16_t kOk = 1;  // SheetDialogResult
constexpr std::int16_t kCancel = 2;

/// The last component of a path, old style or the host's.
std::string_view NameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

/// What is ahead of the last component, without the separator.
std::string_view FolderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return path.substr(0, separator == std::string_view::npos ? 0 : separator);
}

/// One file: its path. Several: the folder and the names, those of other folders whole.
std::string ChosenText(const std::vector<std::string>& paths) {
  if (paths.size() == 1) return paths.front();
  const std::string_view folder = FolderOf(paths.front());
  std::string text(folder);
  for (const std::string& path : paths) {
    text += ' ';
    text += FolderOf(path) == folder ? NameOf(path) : std::string_view(path);
  }
  return text;
}

/// One run of the command.
class FileImport {
 public:
  FileImport(const Context& context, FrmTab& frmTab, const FileKind& kind)
      : context_(context), state_(context.state), frmTab_(frmTab), kind_(kind) {}

  void Run() {
    if (kind_.product != nullptr) FindDirectory(*kind_.product);
    const std::vector<std::string> paths = ChooseFiles();
    if (paths.empty()) return;
    ForgetComputedSummary();
    const std::optional<int> overlaid = ChooseSheet();
    if (!overlaid) return;
    frmTab_.lblFileName.SetCaption(ChosenText(paths));
    Import(paths, *overlaid);
  }

 private:
  // An error while looking for a folder ends the search without a word: the dialog then opens
  // wherever it can.
  void FindDirectory(const ProductDirectory& product) {
    std::string& directory = state_.directories.*product.global;
    if (directory > "    ") return;
    std::string found;
    for (const std::string_view text : product.defaults) {
      const auto files = ListFiles(HostPath(text, state_.roots), "*.*");
      if (!files && files.Error().number != kErrorPathNotFound) return;
      if (!files || files.Value().empty()) continue;
      found = text;
      break;
    }
    if (found.empty()) found = AskDirectory(product);
    if (found.empty()) return;
    directory = found;
    // A setting that cannot be kept is asked for again the next time.
    static_cast<void>(context_.settings.Save(product.key, directory).Ok());
  }

  std::string AskDirectory(const ProductDirectory& product) {
    FrmDir& frmDir = context_.screens.frmDir;
    frmDir.lblDirectory.SetCaption(product.prompt);
    state_.directories.ChosenDir.clear();
    frmDir.ShowModal();
    return state_.directories.ChosenDir;
  }

  std::vector<std::string> ChooseFiles() {
    const Directories& directories = state_.directories;
    return context_.dialogs.ChooseFilesToOpen(
        {.title = std::string(kind_.title),
         .filter = std::string(kind_.filter),
         .file_name = std::string(kind_.file_name),
         .default_extension = {},
         .initial_folder =
             kind_.product == nullptr ? directories.ProgramDir : directories.*kind_.product->global,
         .multiple = true,
         .must_exist = true});
  }

  void ForgetComputedSummary() {
    if (kind_.type != DataType::kSummary || !state_.flags.ComputedSummaryShown) return;
    state_.flags.ComputedSummaryShown = false;
    state_.table.SetSheetCount(1);
    state_.table.SheetAt(1).ClearAll();
    state_.table.NotifyContent(1);
  }

  /// The sheet that the first file overlays, 0 for new sheets only; nothing when cancelled.
  std::optional<int> ChooseSheet() {
    const int count = state_.table.SheetCount();
    if (count < 2) return 0;
    const Answer answer =
        context_.dialogs.ShowMessage({.text = "Do you want to overlay a current spreadsheet?",
                                      .title = "Vistaplot - Overlay spreadsheet",
                                      .buttons = Buttons::kYesNoCancel,
                                      .icon = Icon::kQuestion,
                                      .default_answer = Answer::kNo});
    if (answer == Answer::kCancel) return std::nullopt;
    if (answer != Answer::kYes) return 0;
    return count == 2 ? 1 : AskSheet(count - 1);
  }

  int AskSheet(int loaded_sheets) {
    FrmSheet& frmSheet = context_.screens.frmSheet;
    std::vector<std::string> names;
    for (int number = 1; number <= loaded_sheets; ++number) {
      names.push_back(state_.table.SheetAt(number).SheetName);
    }
    frmSheet.Load();
    frmSheet.cboSheet.SetEntries(std::move(names));
    frmSheet.cboSheet.SetListIndex(0);
    state_.sheet_choice = {.SheetDialogResult = kCancel, .ChosenSheetIndex = -1};
    frmSheet.ShowModal();
    if (state_.sheet_choice.SheetDialogResult != kOk) return 0;
    return std::clamp(state_.sheet_choice.ChosenSheetIndex + 1, 0, loaded_sheets);
  }

  void Import(const std::vector<std::string>& paths, int overlaid) {
    const HourglassScope hourglass(frmTab_);
    for (const std::string& path : paths) {
      ImportFile(path, overlaid > 0 ? overlaid : state_.table.SheetCount());
      overlaid = 0;
    }
    state_.flags.ResultFileLoaded = true;
    context_.screens.frmMain.EnableSorting(true);
    context_.screens.frmMain.pnlStatus.SetCaption(LoadedText(paths.size()));
  }

  void ImportFile(const std::string& path, int number) {
    DataTable& table = state_.table;
    if (number == table.SheetCount()) table.SetSheetCount(number + 1);
    table.SheetAt(number).SheetName = UpToFirstDot(NameOf(path));
    table.NotifySheets();
    table.SetActiveSheet(number);
    if (const Status read = Read(HostPath(path, state_.roots)); !read) {
      context_.dialogs.Say("Unable to read " + path + "\rerror: " + NumberedText(read.Error()));
    }
    if (kind_.type != DataType::kZephyrine) frmTab_.cboGraphType_Click();
  }

  Status Read(const std::string& path) {
    const ImportTarget target{state_.table, context_.screens.frmMain.progress};
    switch (kind_.type) {
      case DataType::kZephyrine:
        return LoadZephyrineSummary(target, path);
      case DataType::kVornaxil:
        return ReadVornaxil(target, path);
      case DataType::kKestrelix: {
        const Status read = LoadKestrelixFile(target, path);
        if (read) state_.flags.KestrelixLoaded = true;
        return read;
      }
      case DataType::kSummary:
        return LoadSummaryFile(target, path);
      case DataType::kDetail:
        return LoadDetailFile(target, path);
      case DataType::kPrices:
        break;
    }
    return Done{};
  }

  Status ReadVornaxil(const ImportTarget& target, const std::string& path) {
    auto kind = LoadVornaxilFile(target, path, state_.flags.VornaxilKind);
    if (!kind) return kind.Error();
    state_.flags.VornaxilKind = kind.Value();
    return Done{};
  }

  /// What the main window says of the import.
  std::string LoadedText(std::size_t files) const {
    const Sheet& last = state_.table.Active();
    const int rows = std::max(last.MaxRow - last.FixedRows, 0);
    return (files > 1 ? std::to_string(files) + " files, the last " : std::string()) +
           last.SheetName + ": " + std::to_string(rows) + (rows == 1 ? " row" : " rows");
  }

  const Context& context_;
  SharedState& state_;
  FrmTab& frmTab_;
  const FileKind& kind_;
};

}  // namespace

void FrmTab::cmdFileName_Click() {
  const auto kind =
      std::find_if(kFileKinds.begin(), kFileKinds.end(), [this](const FileKind& candidate) {
        return candidate.type == ChosenDataType();
      });
  if (kind != kFileKinds.end()) FileImport(context_, *this, *kind).Run();
}

}  // namespace vistaplot
