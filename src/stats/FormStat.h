// The window of statistics: the counts of one element at a time, as they were received last and as
// a chosen file has them, and the exchange of them with the machine, one by one or all at once.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/AppPaths.h"
#include "link/LineParts.h"
#include "link/LineView.h"
#include "stats/BulkExchange.h"
#include "stats/Overview.h"
#include "stats/StatExchange.h"
#include "stats/StatWindow.h"
#include "ui/Screen.h"

namespace tintbench::stats {

// What the window works with. All of it must outlive the window.
struct FormStatParts : link::LineParts {
  ui::Screen& Screen;
  base::FileSystem& Files;
  const base::AppPaths& Paths;
  const config::MachineFacts& Facts;
};

struct FormStat final : StatWindow, private link::LineView, private StatLine, private StatView {
  explicit FormStat(const FormStatParts& parts, const StatCatalogue& catalogue);

  void Form_Load() override;
  void Form_KeyDown(ui::KeyEvent& key) override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload(bool& cancel) override;

  // The table on show.
  const OverviewTable& Overview() const { return overview_; }
  int SortColumn() const { return sortColumn_; }
  bool SortsDescending() const { return sortDescending_; }

 private:
  enum Action { kSelectFile, kReceiveAll, kSendAll, kResetAll };
  enum View { kElementView, kBulkView, kOverviewView };

  std::string Send(link::CommandId row, const std::string& argument,
                   std::optional<int> answerLength) override;
  void ShowSent(const std::string& text) override { Debug.ShowSent(text); }
  void ShowReceived(const std::string& text) override { Debug.ShowReceived(text); }
  bool IsOpen() const override { return work_.Port.PortOpen(); }
  bool Confirm(const std::string& title, const std::string& question) override;
  void Tell(const std::string& title, const std::string& text, bool good) override;
  void ShowButtons(bool visible) override;
  void ShowWait(bool visible) override;
  void BeginItems() override;
  void ShowItem(int number, int tab, const std::string& element) override;
  void CountItem(const std::string& item, bool good, const std::string& remark) override;
  void EndItems(const std::string& outcome) override;
  void ServeEvents() override;

  void ConnectControls();
  void ShowView(View view);

  void TabStripSta_Click();
  void TabStripData_Click();
  void CmdRes_Click(int datum);
  void CmdLRec_Click();
  void CmdLSave_Click();
  void CmdDel_Click(int side);
  void CmdSend_Click(int side);
  void CmdAll_Click(int action);
  void CmdRSAll_Click(int button);

  int Tab() const { return TabStripSta.TabIndex; }
  // The element in hand; nothing if the type has none.
  std::optional<std::string> Element() const;
  const std::string& SideFile(int side) const;
  std::string SideName(int side) const;
  ui::ControlArray<ui::Label>& DataLabels(int side) { return side == 0 ? LblLData : LblSData; }
  ui::ControlArray<ui::Label>& TimeLabels(int side) { return side == 0 ? LblLTime : LblSTime; }
  void LoadSide(int side);
  void LoadBothSides();
  void ShowElement();
  ElementValues ShowSide(int side, const std::string& key);
  void ShowDifference(const ElementValues& received, const ElementValues& saved);
  void ClearLabels();
  // Lets the operator choose the saved file; `hint` says what for. False if none was chosen.
  bool SelectSavedFile(int hint);
  std::string ValuesToSave();
  void Update(const char* title, bool deletes, int side, const std::string& value);

  bool PrepareBulk(int action, std::string& target);
  void RunBulk();

  void CmdOverview_Click();
  void ShowOverview();
  void CmdSort_Click(int column);
  void CmdCsv_Click();

  FormStatParts work_;
  const StatCatalogue& catalogue_;
  StatParts stat_;
  StatExchange exchange_;
  BulkExchange bulk_;
  StatElements elements_;
  std::array<DataBuffer, kSides> buffers_;
  std::string lastFile_;
  std::string savedFile_;  // empty: none chosen
  std::array<bool, kSides> shownEmpty_{true, true};
  std::array<bool, kData> datumPresent_{};
  std::array<bool, kData> resetOnScreen_{};
  int action_ = kSelectFile;  // of the bulk panel
  bool bulkIntoSaved_ = false;
  int total_ = 0;
  int successes_ = 0;
  int failures_ = 0;
  double bulkSince_ = 0;
  OverviewTable overview_;
  int sortColumn_ = 0;
  bool sortDescending_ = false;
};

}  // namespace tintbench::stats
