// The window that shows and changes one configuration file: tables, elements, parameters, and the
// saving under another name.
#pragma once

#include <optional>
#include <string>

#include "editor/CfgPanels.h"
#include "editor/CfgParts.h"
#include "editor/CfgWindow.h"
#include "editor/ConfigDocument.h"

namespace tintbench::editor {

struct FormCfg final : CfgWindow, private CfgOwner {
  explicit FormCfg(const FormCfgParts& parts);

  // Before it is shown, modally: the file to open. A file that can't be read is told in a box, and
  // the window doesn't appear.
  void SetConfigName(const std::string& folder, const std::string& stem,
                     const std::string& extension) {
    document_.SetConfigName(folder, stem, extension);
  }

  void Form_Load() override;
  void Form_KeyDown(ui::KeyEvent& key) override;
  void Form_Unload(bool& cancel) override;

 private:
  // The tab of an element that has no number yet.
  static constexpr const char* kNoNumber = "---";

  void GoTo(const ParameterPlace& at) override;
  void ShowStep(const ParameterPlace& at) override;
  void ShowSigns() override;
  int Slave() const override { return slave_; }

  void ConnectControls();
  void ConnectSteps();
  void ConnectKeys();
  bool DoShortcut(const ui::KeyEvent& key);

  // What is on show.
  TablePlace Table() const;
  ElementPlace Element() const { return {Table(), TabStripElem.TabIndex + 1}; }
  ParameterPlace Row(int row) const { return {Element(), row + 1}; }
  bool HasSeveral() const;

  base::FileResult ShowConfiguration();
  void ChooseTable(const TablePlace& at);
  void ShowTable();
  ui::TabPage ElementPage(const ElementPlace& at) const;
  void ListParameters();
  ui::ListRow ListRowOf(const ParameterPlace& at) const;
  std::string TitleOf(const std::string& listRow, const ParameterPlace& at) const;
  void ShowElementState(bool withCaption);
  void ShowState();
  void ShowTables();

  void OptCfg_Click(int group);
  void TabStripCfg_Click(int group);
  void LstTables_Click();
  void LstCfg_Click();
  void TxtElem_Change();
  void CmdAdd_Click();
  void CmdRemoveResume_Click();
  void CmdSlv_Click(int direction);
  void StepElement(int by);
  void Travel(const std::optional<ParameterPlace>& at);
  void Leave();

  void EditCurrentParameter();
  void StoreParameter(const ParameterPlace& at, const std::string& value);

  void CmdSave_Click();
  std::optional<std::string> AskForFile();
  void Save(const std::string& path);
  std::string SavedText(const std::string& path, int filled);
  void TellFileProblem(const char* what, const std::string& path, const std::string& error);

  FormCfgParts work_;
  ConfigDocument document_;
  CfgPanels panels_{*this, document_, work_, *this};
  config::ConfigGroup group_ = config::ConfigGroup::kStandard;
  int slave_ = 1;
  bool busy_ = false;  // tables are chosen by the program's own hand
};

}  // namespace tintbench::editor
