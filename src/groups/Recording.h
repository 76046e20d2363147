// The recording of a group's monitor: names its file, writes header, marks and records into it, and
// ends it at the limit of its size. The limit outlives the window.
#pragma once

#include <string>

#include "base/Files.h"
#include "groups/GroupParts.h"
#include "groups/GroupRows.h"
#include "groups/GroupWindow.h"
#include "groups/RecordFile.h"
#include "groups/RecordTexts.h"
#include "ui/Screen.h"

namespace tintbench::groups {

class Recording final : public SessionRecord {
 public:
  // `folder` is where all recordings lie. All that is given must outlive this.
  Recording(ui::Screen& screen, base::FileSystem& files, std::string folder, GroupWindow& window,
            const Group& group);

  void Load() override;
  void BuildSymbols() override;
  std::string Symbol(Mark mark) const override { return RecordSymbol(mark, names_); }
  std::string InputSymbol(config::InputKind kind, int index, InputMark mark) const override;
  void ChkMemo_Click() override;
  void WriteRecordLine(const std::string& text) override;
  void CheckFileSize(bool force) override;
  void Unload() override;
  const std::string& Path() const override { return path_; }
  double LimitKb() const override { return limitKb_; }
  void SetLimitKb(double limit) override;

 private:
  std::string TimeOfDay() const;
  bool OpenRecordFile();
  void WriteHeader();
  void WriteLines(const RecordLines& lines);
  void GiveUp(const std::string& reason);
  void ShowLimit();
  void EndAtLimit(const std::string& size);
  RecordedGroup Described() const;

  ui::Screen& screen_;
  base::FileSystem& files_;
  std::string folder_;
  GroupWindow& window_;
  const Group& group_;
  RecordFile file_;
  std::string path_;
  ElementNames names_;
  double limitKb_;
  bool headerPending_ = false;
};

}  // namespace tintbench::groups
