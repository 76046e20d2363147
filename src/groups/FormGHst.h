// The window of old recordings: lists them by group or by date, and shows the chosen one as text.
// It needs no machine.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "base/Files.h"
#include "groups/HistoryList.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::groups {

struct FormGHst final : ui::Form {
  // `folder` is where all recordings lie. Screen and files must outlive the window.
  FormGHst(ui::Screen& screen, base::FileSystem& files, std::string folder);

  ui::Frame FrmChoice{*this, "FrmChoice"};
  ui::ListBox CmbFile{FrmChoice, "CmbFile"};
  ui::Frame Frame1{FrmChoice, "Frame1"};
  ui::ControlArray<ui::OptionButton> OptSort{Frame1, "OptSort", 2};  // by HistoryOrder
  ui::Button CmdView{FrmChoice, "CmdView"};
  ui::Frame FrmFile{*this, "FrmFile"};
  ui::RichTextBox RchTB1{FrmFile, "RchTB1"};

  // To be called before the window is shown: its title if there is anything to show.
  void SetMainTitle(const std::string& text) { title_ = text; }

  void Form_Load() override;
  void Form_KeyDown(ui::KeyEvent& key) override;
  void Form_Unload(bool& cancel) override;

 private:
  void OptSort_Click(HistoryOrder order);
  void CmbFile_Click();
  void CmdView_Click();
  void FindFiles();
  void FillFileList(HistoryOrder order);
  void Enable(bool enabled);
  void Blank();
  HistoryOrder Sorting() const;
  std::string Content(const HistoryFile& file);

  ui::Screen& screen_;
  base::FileSystem& files_;
  std::string folder_;
  HistoryList list_;
  std::string title_;
  std::optional<std::size_t> selected_;                   // a place in the list's files
  std::array<std::optional<std::size_t>, 2> shownIndex_;  // chosen last in each order
};

}  // namespace tintbench::groups
