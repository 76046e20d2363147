// The part of the window of statistics that the exchange reports to, and the panel for all elements
// at once.
#include <cmath>

#include "base/Numbers.h"
#include "base/Text.h"
#include "stats/Durations.h"
#include "stats/FormStat.h"

namespace tintbench::stats {

namespace {

constexpr int kStart = 0;
constexpr int kStop = 1;
constexpr int kReturn = 2;

}  // namespace

// The one place where the window meets the transaction.
std::string FormStat::Send(link::CommandId row, const std::string& argument,
                           std::optional<int> answerLength) {
  link::CommandCall call(work_.Table, row, argument);
  if (answerLength) call.Row().AnswerLength = *answerLength;
  return base::ToUpper(work_.Commands.SendCommand(*this, row));
}

bool FormStat::Confirm(const std::string& title, const std::string& question) {
  return work_.Screen.Ask({.Text = question,
                           .Icon = ui::BoxIcon::Exclamation,
                           .Buttons = ui::BoxButtons::YesNo,
                           .Title = title}) == ui::Answer::Yes;
}

void FormStat::Tell(const std::string& title, const std::string& text, bool good) {
  work_.Screen.Ask({.Text = text,
                    .Icon = good ? ui::BoxIcon::Information : ui::BoxIcon::Exclamation,
                    .Title = title});
}

void FormStat::ShowButtons(bool visible) {
  for (ui::Button* button : {&CmdLRec, &CmdLSave, &CmdOverview}) button->Visible = visible;
  for (int datum = 0; datum < kData; ++datum) CmdRes(datum).Visible = visible;
  for (int side = 0; side < kSides; ++side) {
    CmdDel(side).Visible = visible;
    CmdSend(side).Visible = visible;
  }
  for (int action = 0; action < kBulkActions; ++action) CmdAll(action).Visible = visible;
}

void FormStat::ShowWait(bool visible) {
  FrmWplease.Visible = visible;
  Refresh();
}

void FormStat::CmdAll_Click(int action) {
  if (action == kSelectFile) {
    SelectSavedFile(kSelectFile);
    return;
  }
  std::string target;
  if (!PrepareBulk(action, target)) return;
  action_ = action;
  FrmTabStripStat.Caption = FrmRSAll.Caption =
      base::Bracketed(CmdAll(action).Caption.Get()) + target;
  ShowView(kBulkView);
  BeginItems();
}

// Asks for the file and finds out how many items there are. False if there is nothing to do.
bool FormStat::PrepareBulk(int action, std::string& target) {
  total_ = elements_.Total();
  if (action == kReceiveAll) {
    bulkIntoSaved_ = SelectSavedFile(kReceiveAll);
    target = "save to file: " + SideName(bulkIntoSaved_ ? 1 : 0);
    if (ReadsFast(work_.Status)) total_ = kStatTypes;
  } else if (action == kSendAll) {
    if (!SelectSavedFile(kSendAll)) return false;
    total_ = CountDataLines(work_.Files, savedFile_);
    target = "from file: " + SideName(1);
  } else {
    target = "on the machine";
  }
  return total_ > 0;
}

void FormStat::CmdRSAll_Click(int button) {
  if (button == kStop) bulk_.Stop();
  if (bulk_.IsRunning()) return;
  if (button == kStart) RunBulk();
  if (button == kReturn) ShowView(kElementView);
}

void FormStat::RunBulk() {
  const std::string path = SideFile(bulkIntoSaved_ ? 1 : 0);
  const std::string name = SideName(bulkIntoSaved_ ? 1 : 0);
  if (action_ == kReceiveAll && ReadsFast(work_.Status)) {
    bulk_.ReceiveAllFast(elements_, path, name);
  } else if (action_ == kReceiveAll) {
    bulk_.ReceiveAll(elements_, path, name);
  } else if (action_ == kSendAll) {
    bulk_.SendAll(savedFile_, SideName(1));
  } else {
    bulk_.ResetAll(elements_);
  }
}

void FormStat::BeginItems() {
  bulkSince_ = work_.Screen.Time().Now();
  successes_ = 0;
  failures_ = 0;
  PrgRSAll.Max = total_;
  PrgRSAll.Value = 0;
  LblTot.Caption = base::PlainNumber(total_);
  for (ui::Label* label : {&LblCurr, &LblSucc, &LblFail}) label->Caption = "0";
  for (ui::Label* label : {&LblDT1, &LblDN1, &LblLeft}) label->Caption = "";
  CmbSucc.Clear();
  CmbFail.Clear();
  LstRemarks.Clear();
}

void FormStat::ShowItem(int number, int tab, const std::string& element) {
  LblCurr.Caption = base::PlainNumber(number);
  LblDT1.Caption = std::string(TypeOf(tab).Caption);
  LblDN1.Caption = element.empty() ? "-" : element;
  PrgRSAll.Value = number;
  if (number > 1) {
    const double each = (work_.Screen.Time().Now() - bulkSince_) / (number - 1);
    const auto left = static_cast<std::int64_t>(std::ceil(each * (total_ - number + 1)));
    LblLeft.Caption = SecondsToText(left) + " left";
  }
  FrmRSAll.Refresh();
}

void FormStat::CountItem(const std::string& item, bool good, const std::string& remark) {
  ui::ComboBox& list = good ? CmbSucc : CmbFail;
  list.AddItem(item);
  list.ListIndex = list.ListCount() - 1;
  (good ? LblSucc : LblFail).Caption = base::PlainNumber(good ? ++successes_ : ++failures_);
  if (!remark.empty()) LstRemarks.AddItem(item + (good ? "strange " : "") + remark);
}

void FormStat::EndItems(const std::string& outcome) {
  const double seconds = work_.Screen.Time().Now() - bulkSince_;
  const std::string words = SecondsToText(static_cast<std::int64_t>(std::ceil(seconds)));
  LblLeft.Caption = outcome + (words.empty() ? "" : ": " + words);
  LoadBothSides();
}

void FormStat::ServeEvents() {
  work_.Screen.DoEvents();
  if (work_.Screen.IsQuitting()) bulk_.Stop();
}

}  // namespace tintbench::stats
