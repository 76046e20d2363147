// The saving of a configuration, with its questions and its counted warnings.
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "config/ConfigFile.h"
#include "editor/FormCfg.h"

namespace tintbench::editor {

namespace {

constexpr const char* kStored = "DATA SUCCESSFULLY STORED !!";
constexpr const char* kWarning = "WARNING !!\r\n\r\n";

}  // namespace

void FormCfg::CmdSave_Click() {
  if (const std::optional<std::string> path = AskForFile()) Save(*path);
}

// Nothing if the operator gives it up.
std::optional<std::string> FormCfg::AskForFile() {
  const std::string folder = work_.Paths.ConfigFolder();
  ui::FileRequest request{.Title = "Select a file for saving this configuration",
                          .Filter = "Modified (*.cfm)|*.cfm",
                          .Folder = folder,
                          .FileName = document_.Name().Stem + ".cfm",
                          .Saving = true};
  for (;;) {
    const std::optional<std::string> answer = work_.Screen.Ask(request);
    if (!answer || answer->empty()) return std::nullopt;
    const std::string path =
        base::FilePath(*answer).empty() ? base::JoinPath(folder, *answer) : *answer;
    if (!work_.Files.FileExists(path)) return path;
    const ui::Answer overwrite = work_.Screen.Ask(
        {.Text = base::JoinLines({"Do you really want to overwrite the file", path + " ?"}),
         .Icon = ui::BoxIcon::Question,
         .Buttons = ui::BoxButtons::YesNo});
    if (overwrite == ui::Answer::Yes) return path;
    request.FileName.clear();
    // Nobody is there to be asked again.
    if (work_.Screen.IsClosingAll()) return std::nullopt;
  }
}

void FormCfg::Save(const std::string& path) {
  FrmWplease.Visible = true;
  FrmWplease.Refresh();
  const WriteOutcome outcome = document_.WriteConfigFile(path);
  if (!outcome.Result) {
    FrmWplease.Visible = false;
    TellFileProblem("The file can't be written.", path, outcome.Result.Error());
    return;
  }
  SetConfigName(base::FilePath(path), base::FileStem(path), base::FileExtension(path));
  const base::FileResult shown = ShowConfiguration();
  const std::string text = SavedText(path, outcome.Filled);
  FrmWplease.Visible = false;
  work_.Screen.Ask({.Text = text, .Icon = ui::BoxIcon::Exclamation, .Title = CmdSave.Caption});
  if (!shown) TellFileProblem("The file can't be read.", path, shown.Error());
}

std::string FormCfg::SavedText(const std::string& path, int filled) {
  std::string text = kStored;
  if (filled > 0) {
    text += std::string("\r\n\r\n") + kWarning + base::PlainNumber(filled) +
            " empty parameters filled by default values !!";
  }
  const config::EmptyParameters empty = config::CheckEmptyParameters(work_.Files, path);
  if (empty == config::EmptyParameters::kNone) return text;
  text += std::string("\r\n\r\n\r\n") + kWarning;
  text += empty == config::EmptyParameters::kSome
              ? "This configuration file includes empty parameters and CANNOT be sent to machine !!"
              : "This configuration file can't be read again !!";
  return text + "\r\nPlease, check this configuration file.";
}

void FormCfg::TellFileProblem(const char* what, const std::string& path, const std::string& error) {
  work_.Screen.Ask({.Text = base::JoinLines({what, path, error}),
                    .Icon = ui::BoxIcon::Exclamation,
                    .Title = CmdSave.Caption});
}

}  // namespace tintbench::editor
